#pragma once

#include <span>
#include <string_view>

namespace corvane {

/// Which values of a quantity speak for the model.
enum class Better { Neither, Higher, Lower, NearZero, NearOne };

/// A number that a report can show, told once: the text, the JSON, the windows' cards and the manual draw on
/// it. Texts are UTF-8, sentences end with a period, and a field that a quantity has no use for is empty.
/// Lists are separated by "; ".
struct Quantity {
    std::string_view key;     ///< Unique machine name, lower case with dots, as "concordance.lin.rc".
    std::string_view title;   ///< What the field calls it, as "Concordance correlation coefficient".
    std::string_view meaning; ///< What it says, in one plain sentence; where one way is better, which.
    std::string_view formula; ///< In X, Y, N and the names of other values; D = Y - X.
    std::string_view range;   ///< Its unit or its range, as "unit of Y, 0 or more".
    Better better = Better::Neither;
    std::string_view sign{};   ///< What a positive value says.
    std::string_view papers{}; ///< Keys of papers, a list.
    std::string_view others{}; ///< Other names in the field, with their difference if there is one; a list.
    std::string_view sameIn{}; ///< The routine elsewhere that gives the same, as "R: DescTools::CCC"; a list.
    std::string_view remark{}; ///< What the line does that a reader would not guess.
};

/// Every quantity, in the order of the report.
std::span<const Quantity> QuantityTable();

/// The quantity of a key, or null.
const Quantity* FindQuantity(std::string_view key);

} // namespace corvane
