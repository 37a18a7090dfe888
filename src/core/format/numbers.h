#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

// Conversions between numbers and text. None of them looks at the process locale: the point is ".".

/// Reads a whole text as a number: blanks (space, tab) around, a sign, digits with at most one ".", an
/// exponent after e, E, d or D. At least one digit must come before the exponent; ".5" and "5." read.
///
/// A number too small for a double reads as the nearest denormal or 0. nullopt: anything else in the text, no
/// digit, a number too large for a double.
std::optional<double> ReadNumber(std::string_view text);

/// The longest numeric beginning of a text after its leading blanks, so "12 rows" is 12 and "1e" is 1. A
/// text without one, or with one too large for a double, is 0.
double LeadingNumber(std::string_view text);

/// The fewest digits that read back as the same number. Plain digits from 0.00001 up to below 1E+15,
/// otherwise an exponent of at least two digits, as in "1E+30". A negative zero is "0"; "NaN", "Infinity",
/// "-Infinity".
std::string NumberText(double value);
std::string NumberText(float value);

/// `NumberText` with one blank in place of the sign that a number from 0 upwards does not have.
std::string PlainNumber(double value);
std::string PlainNumber(float value);

/// Rounds to the nearest whole number, halves to the even one. nullopt: out of range, NaN.
std::optional<std::int16_t> ToInteger16(double value);
std::optional<std::int32_t> ToInteger32(double value);

/// "true" and "false" in any case with blanks around; a number is true where it is not 0. nullopt: other
/// text.
std::optional<bool> ToBoolean(std::string_view text);

} // namespace corvane
