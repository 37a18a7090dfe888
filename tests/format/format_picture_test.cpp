#include "core/format/format_picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace corvane {
namespace {

std::string Shown(const CellValue& value, std::string_view picture) {
    return FormatPicture(value, picture).value_or("refused");
}

TEST(FormatPicture, PlaceholdersDecideWhichDigitsPrint) {
    EXPECT_EQ(Shown(12.34567, "##.#000"), "12.3457");
    EXPECT_EQ(Shown(0.5, "##.#000"), ".5000");
    EXPECT_EQ(Shown(12.5, "#.0##"), "12.5");
    EXPECT_EQ(Shown(12.0, "#.0##"), "12.0");
    EXPECT_EQ(Shown(5.0, "0.##"), "5.");
    EXPECT_EQ(Shown(7.0, "0000"), "0007");
    EXPECT_EQ(Shown(7.0, "#0#0"), "007");
    EXPECT_EQ(Shown(123456.0, "0"), "123456");
    EXPECT_EQ(Shown(0.0, "####"), "");
    EXPECT_EQ(Shown(3.5, "####"), "4");
    EXPECT_EQ(Shown(0.0, "."), ".");
    EXPECT_EQ(Shown(5.0, ""), "5");
}

TEST(FormatPicture, OtherCharactersStandAroundTheNumber) {
    EXPECT_EQ(Shown(-2.5, "$ 0.00 each"), "-$ 2.50 each");
    EXPECT_EQ(Shown(1234.5, "#,##0.0.0"), "1234.50");
    EXPECT_EQ(Shown(5.0, "abc"), "abc5");
    EXPECT_EQ(Shown("word", "$0.00"), "word");
}

TEST(FormatPicture, RoundsTheDecimalExpansionHalfAway) {
    EXPECT_EQ(Shown(2.5, "0"), "3");
    EXPECT_EQ(Shown(2.675, "0.00"), "2.68"); // the double lies below 2.675
    EXPECT_EQ(Shown(1.005, "0.00"), "1.01");
    EXPECT_EQ(Shown(0.5 - 1e-15, "0"), "0"); // 0.499999999999999 has 15 digits
    EXPECT_EQ(Shown(0.5 - 1e-16, "0"), "1"); // 0.4999999999999999 is 0.500000000000000
    EXPECT_EQ(Shown(9.9995, "0.000"), "10.000");
    EXPECT_EQ(Shown(0.1, "0.00000000000000000000"), "0.10000000000000000000");
    EXPECT_EQ(Shown(std::ldexp(1.0, 70), "0.0"), "1180591620717410000000.0");
    EXPECT_EQ(Shown(-0.00001, "0.00"), "-0.00");
    EXPECT_EQ(Shown(-0.2, "#"), "-");
    EXPECT_EQ(Shown(-0.0, "0.0"), "0.0");
}

TEST(FormatPicture, TakesTextAndEmptyValues) {
    EXPECT_EQ(Shown(" 1.25D1 ", "0.0"), "12.5");
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
    EXPECT_EQ(FormatPicture(time, "hh mmm nn/mm/m n"), "05 Mar 04/03/3 4"); // m behind n is the month
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
        for (; digits[i] == '9'; --i) {
            digits[i] = '0';
        }
        ++digits[i];
    }
    digits.resize(kept);
    return digits.insert(point, 1, '.').substr(digits[0] == '0' ? 1 : 0);
}

class Rounding : public testing::Test {
protected:
    void Check(double value, std::size_t decimals) {
        if (!std::isfinite(value) || HasFatalFailure()) {
            return;
        }
        ++checked;
        ASSERT_EQ(Shown(std::abs(value), "0." + std::string(decimals, '0')),
                  RoundedByHand(std::abs(value), decimals))
            << std::hexfloat << value;
    }
    // A number, others half a unit of the 15th digit away, and the neighbours of all of these.
    void CheckAround(double value, std::size_t decimals) {
        for (const double step : {0.0, 4.8e-15, 5e-15, 5.2e-15, 6e-15, -4.8e-15, -5e-15, -5.2e-15, -6e-15}) {
            const double base = value * (1 + step);
            Check(base, decimals);
            Check(std::nextafter(base, 0), decimals);
            Check(std::nextafter(base, HUGE_VAL), decimals);
        }
    }
    std::size_t Below(std::uint64_t limit) { return random() % limit; }
    double Whole() { return static_cast<double>(Below(1ULL << Below(50))); }

    std::mt19937_64 random{20240229};
    int checked = 0;
};

TEST_F(Rounding, EveryDoubleRoundsAsItsDigitsDo) {
    for (int i = 0; i < 300000; ++i) {
        const std::size_t decimals = Below(12);
        const double power = std::pow(10.0, decimals);
        Check(std::bit_cast<double>(random()), Below(30));
        Check(Whole() / std::pow(10.0, Below(12)), decimals);
        Check((Whole() + 0.5) / power, decimals);
        // Exact binary fractions, ties among them, and some that tie at the 15th digit.
        Check(std::ldexp(Whole(), -static_cast<int>(Below(53))), Below(6));
        Check(Whole() + 0.125 * static_cast<double>(Below(8)), Below(4));
    }
    for (int i = 0; i < 25000; ++i) {
        const std::size_t decimals = Below(18);
        CheckAround((Whole() + 0.5) / std::pow(10.0, decimals), decimals);
    }
    for (int exponent = -30; exponent <= 308; ++exponent) {
        for (const std::size_t decimals : {0U, 1U, 5U, 15U, 22U, 23U, 29U}) {
            CheckAround(std::pow(10.0, exponent), decimals);
        }
    }
    for (const double extreme : {0.0, 4.9406564584124654e-324, 1.7976931348623157e308}) {
        Check(extreme, 0);
        Check(extreme, 340);
    }
    EXPECT_GT(checked, 2000000);
}

} // namespace
} // namespace corvane
