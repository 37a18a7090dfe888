#include "files/csv_names.h"

#include "core/format/text_lists.h"
#include "files/csv_layout.h"

#include <algorithm>
#include <string>
#include <vector>

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
    return character >= 'a' && character <= 'z';
}

bool IsLetter(char character) {
    return IsCapital(character) || IsSmall(character);
}

/// Gives each word of letters A to Z, in capitals, and where it begins. A word also ends before a capital
/// that has a small letter before or after it: "LAIObs" is "LAI" and "OBS".
template<class Take>
void ForEachWord(std::string_view name, Take&& take) {
    for (std::size_t begin = 0, end = 0; begin < name.size(); begin = end) {
        end = begin + 1;
        if (!IsLetter(name[begin]))
            continue;
        while (end < name.size() && IsLetter(name[end]) &&
               !(IsCapital(name[end]) &&
                 (IsSmall(name[end - 1]) || (end + 1 < name.size() && IsSmall(name[end + 1])))))
            ++end;
        take(std::string_view(UpperCase(name.substr(begin, end - begin))), begin);
    }
}

/// The words of a role: whole ones, beginnings, and endings as of "Qobs".
struct RoleWords {
    std::vector<std::string_view> whole, beginnings, endings;

    bool Has(std::string_view word) const {
        return std::ranges::find(whole, word) != whole.end() ||
               std::ranges::any_of(beginnings,
                                   [&](std::string_view part) { return word.starts_with(part); }) ||
               std::ranges::any_of(endings, [&](std::string_view part) { return word.ends_with(part); });
    }
};

/// Where what is told of a column's name apart begins: a unit or a remark.
std::size_t BehindName(std::string_view name) {
    return std::min(name.find_first_of("([,?"), name.size());
}

/// Whether a column holds no values but what is said about them, such as their standard deviation.
bool IsStatistic(std::string_view name) {
    static const RoleWords statistics{
        {"SD", "SE", "SEM", "STD", "STDEV", "STDERR", "ERR", "RANK", "LOWER", "UPPER", "LWR", "UPR"},
        {"ERROR", "RESID"},
        {}};
    bool is = false;
    ForEachWord(name, [&](std::string_view word, std::size_t begin) {
        const bool wordStarts = begin == 0 || !IsLetter(name[begin - 1]);
        is = is || statistics.Has(word) || // "SDobs" is "S" and "DOBS"
             (wordStarts && EqualInAnyCase(name.substr(begin, 2), "SD")) ||
             (begin > BehindName(name) &&
              (word == "MIN" || word == "MAX" || (word == "N" && name[begin] == 'n'))); // no newton
    });
    return is;
}

} // namespace

bool IsName(std::string_view text) {
    for (const char* value : {"INF", "INFINITY", "N/A", "NULL"})
        if (EqualInAnyCase(text, value))
            return false;
    const char first = text.front();
    if (static_cast<unsigned char>(first) >= 0x80)
        return text.find_first_of("0123456789") == std::string_view::npos;
    return first == '_' || IsLetter(first);
}

int DatasetColumnOf(std::string_view name) {
    // Names of columns that are meant otherwise may be of any length.
    constexpr std::size_t longestName = 20;
    const std::string key = NameKey(name.substr(0, std::min(BehindName(name), longestName)));
    const auto valuesAre = [&](int column) { return IsStatistic(name) ? 0 : column; };
    for (int column = ColumnX; column <= LastColumn; ++column)
        if (key == NameKey(DatasetColumnName(column)))
            return column == ColumnX || column == ColumnY ? valuesAre(column) : column;
    if (key == "PRED" || key == "PREDICTED")
        return valuesAre(ColumnX);
    if (key == "EXCLUDED")
        return ColumnExclude;
    return key == "OBS" || key == "OBSERVED" ? valuesAre(ColumnY) : 0;
}

Roles RolesOf(std::string_view name, bool wordsOnly) {
    static const RoleWords forX{{"PRED", "PREDS", "PREDICT", "SIM", "SIMS", "MOD", "EST", "FIT", "FITS",
                                 "HAT", "CALC", "COMPUTED", "FCST"},
                                {"PREDICTED", "PREDICTION", "SIMUL", "MODEL", "ESTIM", "FITTED", "CALCUL",
                                 "FORECAST", "HINDCAST", "THEOR"},
                                {"PRED", "SIM", "MOD"}};
    static const RoleWords forY{{"OBS", "OBSV", "OBSERV", "MEAS", "ACTUAL", "ACTUALS", "TRUE", "TRUTH", "REF",
                                 "TARGET", "TARGETS", "GAUGE", "GAUGED", "GAGE"},
                                {"OBSERVED", "OBSERVATION", "MEASURE", "REFERENCE", "EXPERIMENT"},
                                {"OBS", "MEAS"}};
    if (IsStatistic(name))
        return {};
    Roles byWord, byLetter;
    ForEachWord(name, [&](std::string_view word, std::size_t) {
        const std::string_view rest = word.substr(word.front() == 'X' || word.front() == 'Y'); // "yhat"
        byLetter.X = byLetter.X || word == "X";
        byLetter.Y = byLetter.Y || word == "Y";
        byWord.X = byWord.X || forX.Has(word) || forX.Has(rest);
        byWord.Y = byWord.Y || forY.Has(word) || forY.Has(rest);
    });
    return byWord == Roles() && !wordsOnly ? byLetter : byWord;
}

bool IsColumnName(std::string_view text) {
    return DatasetColumnOf(text) != 0 || RolesOf(text, true) != Roles();
}

} // namespace corvane
