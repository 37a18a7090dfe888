#include "files/csv_separator.h"

#include "files/csv_reader.h"
#include "files/number_form.h"

#include <algorithm>

namespace corvane {
namespace {

/// What the first records of a table look like when a character parts them.
struct Look {
    char separator;
    std::size_t fields = 0; ///< Of the first record.
    bool even = true;       ///< All records have as many.
    bool numbers = true;    ///< All fields behind the first record are numbers or missing.
};

Look LookAt(std::string_view table, char separator) {
    constexpr int recordsSeen = 100;
    Look look{separator};
    CsvReader reader(table, separator);
    for (int record = 0; record < recordsSeen && reader.NextRecord(); ++record) {
        std::size_t count = 0;
        for (std::optional<CsvField> field; !field || !field->last; ++count) {
            field = reader.ReadField();
            if (!field) {
                look.even = false;
                return look;
            }
            const std::string_view text = TrimWhiteSpace(field->text);
            if (record > 0 && !IsMissing(text) && FormOf(text) == NumberForm::None)
                look.numbers = false;
        }
        if (record == 0)
            look.fields = count;
        look.even = look.even && count == look.fields;
    }
    return look;
}

} // namespace

std::optional<std::string> FindSeparator(std::string_view table, char& separator) {
    std::vector<Look> looks;
    for (const char candidate : {',', ';', '\t'})
        looks.push_back(LookAt(table, candidate));
    std::erase_if(looks, [](const Look& look) { return look.fields < 2; });
    if (looks.empty())
        return "neither comma nor semicolon nor tab parts it into columns";
    const auto keep = [&](bool Look::*quality) {
        if (std::ranges::any_of(looks, quality))
            std::erase_if(looks, [&](const Look& look) { return !(look.*quality); });
    };
    keep(&Look::even);
    if (looks.size() > 1)
        keep(&Look::numbers);
    separator = looks.front().separator;
    if (looks.size() == 1)
        return std::nullopt;
    return std::string(SeparatorName(looks[0].separator)) + " or " +
           std::string(SeparatorName(looks[1].separator)) +
           " may part its columns; import with --separator and the right one";
}

} // namespace corvane
