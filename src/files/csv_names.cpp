#include "files/csv_names.h"

#include "core/format/text_lists.h"
#include "files/csv_layout.h"

#include <algorithm>
#include <array>
#include <string>

namespace corvane {
namespace {

/// "sd_x" and "SDX" are "SD X".
std::string NameKey(std::string_view name) {
    std::string key = UpperCase(name);
    std::erase_if(key, [](char character) { return character == ' ' || character == '_'; });
    return key;
}

bool IsCapital(char character) {
    return character >= 'A' && character <= 'Z';
}

bool IsSmall(char character) {
    return (character >= 'a' && character <= 'z') || static_cast<unsigned char>(character) >= 0x80;
}

} // namespace

bool IsName(std::string_view text) {
    for (const char* value : {"INF", "INFINITY", "N/A", "NULL"})
        if (EqualInAnyCase(text, value))
            return false;
    const char first = text.front();
    if (static_cast<unsigned char>(first) >= 0x80)
        return text.find_first_of("0123456789") == std::string_view::npos;
    return first == '_' || IsCapital(first) || IsSmall(first);
}

int DatasetColumnOf(std::string_view name) {
    // Names of columns that are meant otherwise may be of any length.
    constexpr std::size_t longestName = 20;
    const std::string key = NameKey(name.substr(0, std::min(name.find_first_of("([,?"), longestName)));
    for (int column = ColumnX; column <= LastColumn; ++column)
        if (key == NameKey(DatasetColumnName(column)))
            return column;
    if (key == "PRED" || key == "PREDICTED")
        return ColumnX;
    if (key == "EXCLUDED")
        return ColumnExclude;
    return key == "OBS" || key == "OBSERVED" ? ColumnY : 0;
}

Roles RolesOf(std::string_view name) {
    constexpr std::array<std::string_view, 7> forX = {"PRED", "SIM",      "MODEL", "EST",
                                                      "FIT",  "FORECAST", "HAT"};
    constexpr std::array<std::string_view, 4> forY = {"OBS", "MEAS", "ACTUAL", "TRUE"};
    Roles byWord, byLetter;
    for (std::size_t begin = 0, end = 0; begin < name.size(); begin = end) {
        // A word ends where no letter follows, or a capital behind a small one.
        for (end = begin; end < name.size() && (IsSmall(name[end]) || IsCapital(name[end])); ++end)
            if (end > begin && IsCapital(name[end]) && IsSmall(name[end - 1]))
                break;
        if (end == begin) {
            ++end;
            continue;
        }
        const std::string capitals = UpperCase(name.substr(begin, end - begin));
        const std::string_view word = capitals;
        const std::size_t letter = word.front() == 'X' || word.front() == 'Y'; // "yobs"
        const auto begins = [&](std::string_view start) {
            return word.starts_with(start) || word.substr(letter).starts_with(start);
        };
        byLetter.X = byLetter.X || word == "X";
        byLetter.Y = byLetter.Y || word == "Y";
        byWord.X = byWord.X || std::ranges::any_of(forX, begins);
        byWord.Y = byWord.Y || std::ranges::any_of(forY, begins);
    }
    return byWord == Roles() ? byLetter : byWord;
}

} // namespace corvane
