#pragma once

#include <string_view>

namespace corvane {

/// Whether a text in a first record, not empty, can be nothing but a name: not "1'234", "<0.1", "-", "inf" or
/// a number with signs from elsewhere.
bool IsName(std::string_view text);

/// The `Column` that bears this name, or 0.
int DatasetColumnOf(std::string_view name);

/// Whether words in a column's name are of predicted values, X, or of observed ones, Y.
struct Roles {
    bool X = false, Y = false;

    bool operator==(const Roles&) const = default;
};

/// Of the words "observed", "predicted" and the like and of "Qobs"; if there are none, of the letters x and y
/// that are alone, unless words only count: "y_pred" is X. A column of standard deviations and the like has
/// no role.
Roles RolesOf(std::string_view name, bool wordsOnly = false);

/// Whether a text tells by itself that it heads a column.
bool IsColumnName(std::string_view text);

} // namespace corvane
