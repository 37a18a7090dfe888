#include "core/format/format_picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <tuple>

namespace corvane {
namespace {

std::string Shown(const CellValue& value, std::string_view picture) {
    return FormatPicture(value, picture).value_or("refused");
}

TEST(FormatPicture, PlaceholdersDecideWhichDigitsPrint) {
    const std::tuple<double, const char*, const char*> pictures[] = {{12.34567, "##.#000", "12.3457"},
                                                                     {0.5, "##.#000", ".5000"},
                                                                     {12.5, "#.0##", "12.5"},
                                                                     {12.0, "#.0##", "12.0"},
                                                                     {5.0, "0.##", "5."},
                                                                     {7.0, "0000", "0007"},
                                                                     {7.0, "#0#0", "007"},
                                                                     {123456.0, "0", "123456"},
                                                                     {0.0, "####", ""},
                                                                     {3.5, "####", "4"},
                                                                     {0.0, ".", "."},
                                                                     {5.0, "", "5"},
                                                                     {-2.5, "$ 0.00 each", "-$ 2.50 each"},
                                                                     {1234.5, "#,##0.0.0", "1234.50"},
                                                                     {5.0, "abc", "abc5"}};
    for (const auto& [value, picture, text] : pictures)
        EXPECT_EQ(Shown(value, picture), text);
}

TEST(FormatPicture, RoundsTheDecimalExpansionHalfAway) {
    const std::tuple<double, const char*, const char*> pictures[] = {
        {2.5, "0", "3"},
        {9.9995, "0.000", "10.000"},
        {0.1, "0.00000000000000000000", "0.10000000000000000000"},
        {std::ldexp(1.0, 70), "0.0", "1180591620717410000000.0"},
        {-0.00001, "0.00", "-0.00"},
        {-0.2, "#", "-"},
        {-0.0, "0.0", "0.0"},
        {1.005, "0.00", "1.01"},
        {2.675, "0.00", "2.68"},  // the double lies below 2.675
        {0.5 - 1e-15, "0", "0"},  // 0.499999999999999 has 15 digits
        {0.5 - 1e-16, "0", "1"}}; // 0.4999999999999999 is 0.500000000000000
    for (const auto& [value, picture, text] : pictures)
        EXPECT_EQ(Shown(value, picture), text);
}

TEST(FormatPicture, TakesTextAndEmptyValues) {
    EXPECT_EQ(Shown(" 1.25D1 ", "0.0"), "12.5");
    EXPECT_EQ(Shown("word", "$0.00"), "word");
    EXPECT_EQ(Shown("1,5", "0.0"), "1,5");
    EXPECT_EQ(Shown("inf", "0.0"), "inf");
    EXPECT_EQ(Shown("", "0.0"), "");
    EXPECT_EQ(Shown(CellValue(), "0.0"), "");
    EXPECT_FALSE(FormatPicture(std::nan(""), "0"));
    EXPECT_FALSE(FormatPicture(-HUGE_VAL, "0"));
}

TEST(FormatPicture, ShowsDatesAndTimes) {
    const CalendarTime time{.year = 2007, .month = 3, .day = 9, .hour = 5, .minute = 4, .second = 8};
    EXPECT_EQ(FormatPicture(time, "dd-mmm-yyyy hh:mm:ss"), "09-Mar-2007 05:04:08");
    EXPECT_EQ(FormatPicture(time, "d mmmm yy, h:m:s"), "9 March 07, 5:4:8");
    EXPECT_EQ(FormatPicture(time, "hh mmm nn/mm/m n"), "05 Mar 04/03/3 4"); // m after n is the month
    EXPECT_EQ(FormatPicture(time, "ss"), "08");
}

// The second way to the same text, over decimal digits only: what the C library prints with 15 of them,
// rounded by hand at a digit.
std::string RoundedByHand(double magnitude, std::size_t decimals) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.14e", magnitude);
    const int exponent = std::atoi(text.data() + 17);
    // One zero in front for the carry, and below 1 those up to the first digit.
    std::string digits(static_cast<std::size_t>(1 - std::min(exponent, 0)), '0');
    digits.append(1, text[0]).append(text.data() + 2, 14);
    const auto point = static_cast<std::size_t>(std::max(exponent, 0) + 2);
    const std::size_t kept = point + decimals;
    digits.resize(std::max(digits.size(), kept + 1), '0');
    if (digits[kept] >= '5') {
        std::size_t i = kept - 1;
        for (; digits[i] == '9'; --i)
            digits[i] = '0';
        ++digits[i];
    }
    digits.resize(kept);
    return digits.insert(point, 1, '.').substr(digits[0] == '0' ? 1 : 0);
}

void CheckRounding(double value, std::size_t decimals) {
    if (!std::isfinite(value))
        return;
    const std::string picture = "0." + std::string(decimals, '0');
    ASSERT_EQ(Shown(std::abs(value), picture), RoundedByHand(std::abs(value), decimals))
        << std::hexfloat << value;
}

TEST(FormatPicture, EveryDoubleRoundsAsItsDigitsDo) {
    std::mt19937_64 random{20240229};
    const auto below = [&](std::uint64_t limit) { return random() % limit; };
    const auto whole = [&] { return static_cast<double>(below(1ULL << below(50))); };
    for (int i = 0; i < 300000 && !testing::Test::HasFatalFailure(); ++i) {
        const std::size_t decimals = below(12);
        CheckRounding(std::bit_cast<double>(random()), below(30));
        CheckRounding(whole() / std::pow(10.0, below(12)), decimals);
        CheckRounding((whole() + 0.5) / std::pow(10.0, decimals), decimals);
        // Exact binary fractions, ties among them, and some that tie at the 15th digit.
        CheckRounding(std::ldexp(whole(), -static_cast<int>(below(53))), below(6));
        CheckRounding(whole() + 0.125 * static_cast<double>(below(8)), below(4));
    }
    // Others half a unit of the 15th digit away, and the neighbours of all of these.
    const auto checkAround = [](double value, std::size_t decimals) {
        for (const double step : {0.0, 4.8e-15, 5e-15, 5.2e-15, 6e-15, -4.8e-15, -5e-15, -5.2e-15, -6e-15}) {
            const double base = value * (1 + step);
            for (const double near : {base, std::nextafter(base, 0), std::nextafter(base, HUGE_VAL)})
                CheckRounding(near, decimals);
        }
    };
    for (int i = 0; i < 25000 && !testing::Test::HasFatalFailure(); ++i) {
        const std::size_t decimals = below(18);
        checkAround((whole() + 0.5) / std::pow(10.0, decimals), decimals);
    }
    for (int exponent = -30; exponent <= 308; ++exponent)
        for (const std::size_t decimals : {0U, 1U, 5U, 15U, 22U, 23U, 29U})
            checkAround(std::pow(10.0, exponent), decimals);
    for (const double extreme : {0.0, 4.9406564584124654e-324, 1.7976931348623157e308})
        for (const std::size_t decimals : {0U, 340U})
            CheckRounding(extreme, decimals);
}

} // namespace
} // namespace corvane
