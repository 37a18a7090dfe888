#pragma once

#include <string_view>

namespace corvane {

/// How a text may be read as a number, as far as its own digits and marks tell.
enum class NumberForm {
    None,          ///< No number, whichever mark is decimal; also one too large for a double.
    Whole,         ///< Neither point nor comma.
    Point,         ///< One point, which can only be decimal: "1.5", "0.125", "1234.567", "1.250e3".
    PointOrGroups, ///< One point with 1 to 3 digits before it and 3 after it, as in "1.234".
    Comma,         ///< The same with a comma.
    CommaOrGroups, ///< "1,234".
    DigitGroups,   ///< Groups of three, by marks that cannot all be decimal: "1.234.567", "1,234.5".
};

/// The form of a text without blanks around it.
NumberForm FormOf(std::string_view text);

} // namespace corvane
