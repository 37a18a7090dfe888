#include "files/record_text.h"

#include "core/format/numbers.h"

namespace corvane {

void AppendQuoted(std::string& record, std::string_view text) {
    record += '"';
    for (const char c : text) {
        if (c == '"')
            record += '"';
        record += c;
    }
    record += '"';
}

void AppendTruth(std::string& record, bool value) {
    record += value ? "#TRUE#" : "#FALSE#";
}

std::optional<bool> ReadTruth(std::string_view item) {
    if (item.size() >= 2 && item.front() == '#' && item.back() == '#')
        item = item.substr(1, item.size() - 2);
    return ToBoolean(item);
}

} // namespace corvane
