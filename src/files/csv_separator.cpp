#include "files/csv_separator.h"

#include "core/format/text_lists.h"
#include "files/csv_reader.h"
#include "files/number_form.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace corvane {
namespace {

constexpr std::string_view separators = ",;\t";

/// What the first records of a table look like when a character separates them.
struct Look {
    char separator = 0;
    std::size_t fields = 0;  ///< Of the first record.
    bool even = true;        ///< All records have as many.
    std::size_t records = 0; ///< After the first.
    std::size_t cut = 0;     ///< Those of all that have two fields or more, or broken quotes, but no names.
    std::string unexplained; ///< Separators without quotes in fields after the first record.
};

/// Whether a comma in a text is the mark of a number; some programs write ",5", but none "5,".
bool MayBeNumber(std::string_view text) {
    return FormOf(text) != NumberForm::None && text.back() != ',';
}

Look LookAt(std::string_view table, char separator) {
    constexpr std::size_t recordsSeen = 100;
    Look look;
    look.separator = separator;
    CsvReader reader(table, separator);
    for (bool first = true; look.records < recordsSeen && reader.NextRecord(); first = false) {
        std::size_t count = 0;
        bool names = false;
        for (std::optional<CsvField> field; !field || !field->last; ++count) {
            field = reader.ReadField();
            if (!field) {
                look.even = false;
                ++look.cut;
                look.unexplained = separators;
                return look;
            }
            const std::string_view text = TrimWhiteSpace(field->text);
            names = names || (first && !IsMissing(text) && FormOf(text) == NumberForm::None);
            if (!first && !field->quoted && text.find_first_of(separators) != std::string_view::npos &&
                !MayBeNumber(text))
                std::ranges::copy_if(separators, std::back_inserter(look.unexplained), [&](char each) {
                    return text.find(each) != std::string_view::npos &&
                           look.unexplained.find(each) == std::string::npos;
                });
        }
        if (first)
            look.fields = count;
        else
            ++look.records;
        look.cut += !names && count > 1;
        look.even = look.even && count == look.fields;
    }
    return look;
}

/// Whether all of the other's separators are marks of numbers by the one look, and not the reverse: "1,5;2,5"
/// is two numbers by the semicolon, and by the comma the text "5;2" is between two.
bool Explains(const Look& look, const Look& other) {
    return look.unexplained.find(other.separator) == std::string::npos &&
           other.unexplained.find(look.separator) != std::string::npos;
}

} // namespace

std::size_t AfterStatement(std::string_view table, char& said) {
    const std::size_t end = std::min(table.find_first_of("\r\n"), table.size());
    std::string_view line = table.substr(0, end);
    if (line.starts_with('"') && line.ends_with('"') && line.size() > 1)
        line = line.substr(1, line.size() - 2);
    constexpr std::string_view statement = "sep=";
    if (line.size() != statement.size() + 1 || !EqualInAnyCase(line.substr(0, statement.size()), statement))
        return 0;
    said = line.back();
    return std::min(end + (table.substr(end).starts_with("\r\n") ? 2 : 1), table.size());
}

std::optional<std::string> FindSeparator(std::string_view table, char& separator) {
    std::vector<Look> looks, others; // that cut the first record, and that do not
    for (const char each : separators) {
        Look look = LookAt(table, each);
        (look.fields > 1 ? looks : others).push_back(std::move(look));
    }
    if (looks.empty())
        return "neither comma nor semicolon nor tab separates it into columns";
    const auto cutsNone = [](const Look& look) { return look.cut == 0; };
    if (!std::ranges::all_of(looks, cutsNone))
        std::erase_if(looks, cutsNone);
    // Even records prove nothing, since all numbers may have a decimal comma; they only raise a doubt.
    const auto rivalOf = [&](const Look& look) -> const Look* {
        for (const Look& other : looks)
            if (&other != &look && (!Explains(look, other) || (other.even && !look.even)))
                return &other;
        for (const Look& other : others)
            if (2 * other.cut > other.records && Explains(other, look))
                return &other;
        return nullptr;
    };
    for (const Look& look : looks)
        if (!rivalOf(look)) {
            separator = look.separator;
            return std::nullopt;
        }
    std::vector<const Look*> candidates;
    candidates.reserve(separators.size());
    for (const Look& look : looks)
        candidates.push_back(&look);
    for (const Look& other : others)
        if (std::ranges::any_of(looks, [&](const Look& look) { return rivalOf(look) == &other; }))
            candidates.push_back(&other);
    std::stable_partition(candidates.begin(), candidates.end(), [](const Look* look) { return look->even; });
    std::string names;
    for (const Look* look : candidates)
        names.append(look == candidates.front()  ? ""
                     : look == candidates.back() ? " or "
                                                 : ", ")
            .append(SeparatorName(look->separator));
    return names + " may separate its columns; import with --separator and one of these words";
}

} // namespace corvane
