#include "core/format/console_text.h"

#include "core/format/text_lists.h"

namespace corvane {
namespace {

constexpr std::size_t columns = 80;

void AppendRows(std::string& text, std::string_view line) {
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    if (const std::size_t again = line.rfind('\r'); again != std::string_view::npos)
        line.remove_prefix(again + 1);
    while (!line.empty()) {
        const std::string_view row = FirstCharacters(line, columns);
        line.remove_prefix(row.size());
        if (const std::string_view shown = TrimBlanks(row); !shown.empty())
            text.append(shown).append("\r\n");
    }
}

} // namespace

std::string ReadConsoleText(std::string_view output) {
    std::string text;
    while (!output.empty()) {
        const std::size_t end = output.find('\n');
        AppendRows(text, output.substr(0, end));
        output.remove_prefix(end == std::string_view::npos ? output.size() : end + 1);
    }
    return text;
}

} // namespace corvane
