#pragma once

#include "core/format/cell_value.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// A moment of local time; months and days count from 1.
struct CalendarTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// Shows a number in a picture of "#", "0" and ".".
///
/// The first "." is the point and is always printed, so 5 under "0.##" is "5.". After it the placeholders up
/// to the last "0" always print a digit and later "#" only what is not a trailing zero. Before it every digit
/// of the integer part prints, and at least as many as there are placeholders from the leftmost "0" to the
/// point. Other characters before the first of "#0." come before the number, those after the last one
/// follow it, those in between are dropped. A picture without a placeholder or point is continued by a "#".
///
/// A number is first rounded to 15 significant digits and then half away from zero to the picture's decimals:
/// 2.675 under "0.00" is "2.68". Every number below zero gets its "-", also where only zeros or nothing
/// remain after it; a negative zero is zero.
///
/// Text that reads as a number is shown as that number, other text comes back unchanged, an empty value is
/// "". NaN and infinity fit no picture: nullopt.
std::optional<std::string> FormatPicture(const CellValue& value, std::string_view picture);

/// Shows a date or time by the fields d dd m mm mmm mmmm yy yyyy h hh n nn s ss (lower case).
///
/// m and mm are minutes where the field before them is h or hh, otherwise the month. Month names are English
/// in every locale; a month outside 1 to 12 has no name and prints as its number. Other characters stand for
/// themselves.
std::string FormatPicture(const CalendarTime& time, std::string_view picture);

} // namespace corvane
