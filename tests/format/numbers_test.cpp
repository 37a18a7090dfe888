#include "core/format/numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <utility>
#include <vector>

namespace corvane {
namespace {

using Readings = std::vector<std::pair<const char*, double>>;

TEST(ReadNumber, ReadsSignsPointsAndExponents) {
    const Readings readings{{" \t-12.5\t ", -12.5}, {".5", 0.5},      {"+5.", 5},    {"1e3", 1000},
                            {"1.5D-2", 0.015},      {"-2.E+2", -200}, {"12d01", 120}};
    for (const auto& [text, value] : readings)
        EXPECT_EQ(ReadNumber(text), value) << text;
}

TEST(ReadNumber, RefusesEverythingElse) {
    for (const char* text : {"",    " ",   ".",   "+",   "-.",  "e5",   "1e", "1e+", "1 2", "1,5",  "1.2.3",
                             "--1", "+-1", "- 1", "inf", "nan", "0x10", "1f", "\n1", "1_0", "1e5.", "١"})
        EXPECT_FALSE(ReadNumber(text)) << text;
    EXPECT_FALSE(ReadNumber(std::string_view("1\0", 2)));
}

TEST(ReadNumber, TellsOverflowFromUnderflow) {
    for (const char* text : {"1e309", "-1.8E308", "1e99999999999999999999", "1000e306"})
        EXPECT_FALSE(ReadNumber(text)) << text;
    EXPECT_FALSE(ReadNumber(std::string(400, '9')));
    for (const char* text :
         {"1e-400", "0.0001D-330", "1e-99999999999999999999", "0e99999999999999999999", "0e999"})
        EXPECT_EQ(ReadNumber(text), 0.0) << text;
    EXPECT_EQ(ReadNumber("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(ReadNumber("0." + std::string(400, '0') + "1e401"), 1.0);
    EXPECT_EQ(ReadNumber("5e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(ReadNumber("1.7976931348623157e308"), std::numeric_limits<double>::max());
}

TEST(LeadingNumber, TakesTheLongestNumericBeginning) {
    const Readings readings{
        {"\t 12.5 rows", 12.5}, {"1e", 1}, {"1d+x", 1}, {"2d1%", 20}, {"3.4.5", 3.4}, {"-.5-", -0.5}, {"", 0},
        {"rows 12", 0},         {".", 0},  {"inf", 0},  {"1e999", 0}};
    for (const auto& [text, value] : readings)
        EXPECT_EQ(LeadingNumber(text), value) << text;
}

TEST(NumberText, IsShortAndPlainInTheUsualRange) {
    const Readings readings{{"0.5", 0.5},
                            {"-12.25", -12.25},
                            {"100000", 1e5},
                            {"0.00001", 1e-5},
                            {"0.30000000000000004", 0.1 + 0.2},
                            {"1.2E-06", 1.2e-6},
                            {"999999999999999", 1e15 - 1},
                            {"1E+15", 1e15},
                            {"-1E+300", -1e300},
                            {"0", -0.0},
                            {"Infinity", HUGE_VAL}};
    for (const auto& [text, value] : readings)
        EXPECT_EQ(NumberText(value), text);
    EXPECT_EQ(NumberText(9.1F), "9.1");
    EXPECT_EQ(PlainNumber(1.0) + PlainNumber(-0.0) + PlainNumber(-1.0) + PlainNumber(9.75F), " 1 0-1 9.75");
}

TEST(NumberText, ReadsBack) {
    std::mt19937_64 random(11);
    for (int i = 0; i < 200000; ++i) {
        const auto any = std::bit_cast<double>(random());
        const auto single =
            static_cast<float>(std::ldexp(static_cast<double>(random()), static_cast<int>(i % 200) - 164));
        const double usual = static_cast<double>(random() % 1000000) / std::pow(10.0, i % 12);
        for (const double value : {any, usual}) {
            if (std::isfinite(value)) {
                ASSERT_EQ(ReadNumber(NumberText(value)), value);
                ASSERT_EQ(std::strtod(NumberText(value).c_str(), nullptr), value);
            }
        }
        ASSERT_EQ(std::strtof(NumberText(single).c_str(), nullptr), single);
        ASSERT_LE(NumberText(single).size(), 15U);
    }
}

TEST(ToInteger, RoundsHalvesToEvenWithinTheRange) {
    for (const auto& [value, whole] : {std::pair{2.5, 2}, {-3.5, -4}, {32767.4, 32767}, {-32768.5, -32768}})
        EXPECT_EQ(ToInteger16(value), whole);
    EXPECT_FALSE(ToInteger16(32767.5));
    EXPECT_EQ(ToInteger32(2147483647.4), 2147483647);
    for (const double value : {2147483647.5, -2147483648.6, std::nan("")})
        EXPECT_FALSE(ToInteger32(value));
}

TEST(ToBoolean, TakesWordsAndNumbers) {
    EXPECT_EQ(ToBoolean(" TRUE\t"), true);
    EXPECT_EQ(ToBoolean("False"), false);
    EXPECT_EQ(ToBoolean("-0.5"), true);
    EXPECT_EQ(ToBoolean(" 0.0 "), false);
    EXPECT_FALSE(ToBoolean("") || ToBoolean("yes") || ToBoolean("true1"));
}

} // namespace
} // namespace corvane
