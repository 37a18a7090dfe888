#pragma once

#include "core/format/cell_value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

enum : std::int16_t { AlignLeft = 1, AlignCentre = 2, AlignRight = 3 };

/// One value of a report line and the way it is shown.
struct Field {
    CellValue value = {};
    std::int32_t width = 0;    ///< in characters
    std::int32_t decimals = 0; ///< digits after the point
    std::int16_t alignment = 0;
    bool probability = false; ///< the value is a probability and must not print as zero
    bool leadingZero = false; ///< a zero without decimals prints as "0" and not as an empty field
};

/// The field's text, as a rule `width` characters long.
///
/// A value too wide for its field prints as "n/a". A probability whose units of the last place are cut to 0
/// is raised by one such unit, and `field.value` keeps the raised number; alignment 0 becomes `AlignRight` in
/// the field too. Callers that need the value as computed pass a copy.
///
/// nullopt: width or decimals below 0; a text that just fits although the leading zero of its final look
/// leaves no room (0.25 with width 5 and 4 decimals); NaN, infinity; a probability that is text and no
/// number, or whose decimals are so many that 10^decimals overflows.
std::optional<std::string> FormatField(Field& field);

/// Puts a text into `width` characters (code points of its UTF-8).
///
/// A longer text is cut on the right, an empty one stays empty. The blanks to add are counted before the left
/// and right alignment drop the text's own leading blanks, so such a text comes out shorter than `width`. An
/// alignment other than 1 to 3 acts as `AlignLeft`, a negative width as 0.
std::string AlignField(std::string_view text, std::int32_t width, std::int16_t alignment);

} // namespace corvane
