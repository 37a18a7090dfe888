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

/// Of the words that begin as "observed", "measured", "predicted", "simulated" and the like do; if there are
/// none, of the letters x and y that stand alone: "y_pred" is X.
Roles RolesOf(std::string_view name);

} // namespace corvane
