#include "app/option_assignments.h"

#include "core/format/text_lists.h"
#include "core/grid_operations.h"
#include "core/option_changes.h"
#include "core/option_table.h"

#include <algorithm>
#include <vector>

namespace corvane {
namespace {

/// Levenshtein's distance between two keys.
std::size_t EditDistance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> row(to.size() + 1);
    for (std::size_t j = 0; j < row.size(); ++j)
        row[j] = j;
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < to.size(); ++j) {
            const std::size_t replaced = diagonal + (from[i] == to[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

std::string UnknownKey(std::string_view key) {
    constexpr std::size_t longestKey = 40;
    std::string text = "there is no option " + QuotedForMessage(key);
    if (key.size() > longestKey)
        return text;
    const std::string upper = UpperCase(key);
    const auto distance = [&](const OptionRow& row) { return EditDistance(upper, UpperCase(row.key)); };
    const auto table = OptionTable();
    const auto nearest = std::ranges::min_element(table, {}, distance);
    if (3 * distance(*nearest) <= key.size())
        text += "; did you mean " + std::string(nearest->key) + "?";
    return text;
}

} // namespace

std::optional<std::string> AssignOption(Dataset& dataset, SessionState& session,
                                        std::string_view assignment) {
    const std::size_t equals = assignment.find('=');
    const std::string_view key = TrimBlanks(assignment.substr(0, equals));
    const std::string_view text = equals == std::string_view::npos ? "" : assignment.substr(equals + 1);
    const OptionRow* row = FindOption(key);
    if (!row)
        return UnknownKey(key);
    const auto value = ReadOptionValue(*row, text);
    if (!value)
        return std::string(row->key) + " takes " + std::string(ValuesTaken(row->Form())) + ", not " +
               QuotedForMessage(text);
    switch (TypeOption(dataset, session, *row, *value)) {
    case ChangeResult::TooFewRows:
        return std::string(TooFewRowsMessage);
    case ChangeResult::TooManyRows:
        return "N is " + QuotedForMessage(text) + ", more rows than can be counted";
    case ChangeResult::Done:
        break;
    }
    return std::nullopt;
}

} // namespace corvane
