#pragma once

#include <cstddef>
#include <cstdint>

namespace corvane {

/// A number rounded to some count of decimals: units * 10^zeros of the last decimal's size. `zeros` is 0
/// unless the number has more digits than the 15 that are significant; those print as 0.
struct RoundedDecimal {
    std::uint64_t units = 0;
    std::int64_t zeros = 0;

    bool operator==(const RoundedDecimal&) const = default;
};

/// Rounds a finite number >= 0 to the nearest decimal of 15 significant digits (an exact tie to the even
/// digit) and this decimal half away from zero to `decimals` >= 0 places.
RoundedDecimal RoundToDecimals(double magnitude, std::int64_t decimals);

/// The number of digits in units * 10^zeros; 0 for zero.
std::int64_t DigitCount(const RoundedDecimal& number);

/// Writes the last `count` digits, with zeros in front where the number has fewer.
void WriteDigits(const RoundedDecimal& number, char* first, std::size_t count);

} // namespace corvane
