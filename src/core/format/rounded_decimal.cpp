#include "core/format/rounded_decimal.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

namespace corvane {

namespace {

/// The powers of ten that a double holds exactly.
constexpr std::array<double, 23> ExactPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

constexpr std::array<std::uint64_t, 20> MakeIntegerPowers() {
    std::array<std::uint64_t, 20> powers{};
    std::uint64_t power = 1;
    for (std::uint64_t& entry : powers) {
        entry = power;
        power *= 10;
    }
    return powers;
}
constexpr std::array<std::uint64_t, 20> IntegerPowers = MakeIntegerPowers();

constexpr std::array<char, 200> MakeDigitPairs() {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}
constexpr std::array<char, 200> DigitPairs = MakeDigitPairs();

RoundedDecimal RoundByDigits(double magnitude, std::int64_t decimals) {
    // "d.dddddddddddddde+xx": the nearest decimal of 15 digits.
    std::array<char, 32> text{};
    const char* const end =
        std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific, 14)
            .ptr;
    std::uint64_t digits = static_cast<std::uint64_t>(text[0] - '0');
    for (std::size_t i = 2; i < 16; ++i)
        digits = 10 * digits + static_cast<std::uint64_t>(text[i] - '0');
    int exponent = 0;
    std::from_chars(text.data() + 18, end, exponent);
    if (text[17] == '-')
        exponent = -exponent;

    const std::int64_t dropped = 14 - exponent - decimals;
    if (digits == 0 || dropped > 15)
        return {};
    if (dropped <= 0)
        return {digits, -dropped};
    const std::uint64_t divisor = IntegerPowers[static_cast<std::size_t>(dropped)];
    return {(digits + divisor / 2) / divisor, 0};
}

} // namespace

RoundedDecimal RoundToDecimals(double magnitude, std::int64_t decimals) {
    // One multiplication settles nearly every number. The scaled double differs from the scaled 15-digit
    // decimal by less than 5e-15 (half a unit of the 15th digit) plus 2^-53 (the product), both relative.
    // Where it is farther than 6e-15 from the nearest tie q + 1/2, both lie on the same side of every tie and
    // round to the same integer. From 1/2 / 6e-15 = 8.3e13 upwards nothing passes that test.
    if (decimals < static_cast<std::int64_t>(ExactPowers.size())) {
        const double scaled = magnitude * ExactPowers[static_cast<std::size_t>(decimals)];
        if (scaled < 1e14) {
            const auto whole = static_cast<std::int64_t>(scaled);
            const double beyondTie = scaled - static_cast<double>(whole) - 0.5;
            if (std::abs(beyondTie) > 6e-15 * scaled)
                return {static_cast<std::uint64_t>(whole + (beyondTie > 0 ? 1 : 0)), 0};
        }
    }
    return RoundByDigits(magnitude, decimals);
}

std::int64_t DigitCount(const RoundedDecimal& number) {
    if (number.units == 0)
        return 0;
    // bits * log10(2) is the number of digits or one less.
    const auto least = static_cast<std::size_t>((std::bit_width(number.units) * 1233) >> 12);
    return static_cast<std::int64_t>(least) + (number.units >= IntegerPowers[least] ? 1 : 0) + number.zeros;
}

void WriteDigits(const RoundedDecimal& number, char* first, std::size_t count) {
    const std::size_t zeros = std::min(static_cast<std::size_t>(number.zeros), count);
    char* end = first + (count - zeros);
    std::memset(end, '0', zeros);
    std::uint64_t rest = number.units;
    while (end - first >= 2 && rest != 0) {
        end -= 2;
        std::memcpy(end, DigitPairs.data() + 2 * (rest % 100), 2);
        rest /= 100;
    }
    if (end != first && rest != 0)
        *--end = static_cast<char>('0' + rest % 10);
    std::memset(first, '0', static_cast<std::size_t>(end - first));
}

} // namespace corvane
