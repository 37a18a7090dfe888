#include <array>
#include <cmath>
#include <fstream>
#include <functional>
#include <limits>
#include <map>
#include <sstream>

#include <gtest/gtest.h>

#include "stats/distributions.h"

namespace corvane::stats::test {

namespace {

constexpr double largest = std::numeric_limits<double>::max();
constexpr double infinity = std::numeric_limits<double>::infinity();
const double notANumber = std::nan("");

TEST(Distributions, AgreeWithReferenceValues) {
    const std::map<std::string, std::function<double(double, double, double)>> functions = {
        {"ProbT", [](double t, double df, double) { return ProbT(t, df); }},
        {"InverseT", [](double p, double df, double) { return InverseT(p, df); }},
        {"ProbF", [](double f, double df1, double df2) { return ProbF(f, df1, df2); }},
        {"InverseChiSquare",
         [](double p, double df, double) { return InverseChiSquare(p, static_cast<int>(df)); }},
        {"GammaQ", [](double a, double x, double) { return GammaQ(a, x); }},
        {"ProbNormal", [](double z, double, double) { return ProbNormal(z); }},
        {"InverseNormal", [](double p, double, double) { return InverseNormal(p); }},
    };
    std::ifstream file(CORVANE_TEST_DATA "/distributions.csv");
    std::string line;
    std::getline(file, line);
    int rows = 0;
    for (; std::getline(file, line); ++rows) {
        std::stringstream fields(line);
        std::string name, field;
        std::getline(fields, name, ',');
        std::array<double, 4> number{}; // three arguments and the value
        for (double& value : number)
            if (std::getline(fields, field, ',') && !field.empty())
                value = std::strtod(field.c_str(), nullptr); // subnormal ones too
        const bool large = (name == "GammaQ" && number[0] >= 1e5) || number[1] == 1e6 || number[2] == 1e6;
        const double actual = functions.at(name)(number[0], number[1], number[2]);
        EXPECT_LE(std::fabs(actual - number[3]), (large ? 1e-10 : 1e-12) * std::fabs(number[3]))
            << line << ": " << actual;
    }
    EXPECT_GE(rows, 90);
}

TEST(Distributions, TailsKeepTheirDigits) {
    const auto near = [](double actual, double expected) {
        EXPECT_NEAR(actual / expected, 1.0, 1e-13) << expected;
    };
    const double pi = std::acos(-1.0);
    near(TailT(1e300, 1), 2.0 / pi * 1e-300); // Cauchy: 2/pi atan(1/t)
    near(TailT(1e-10, 1), 1.0 - 2.0 / pi * 1e-10);
    near(TailT(1e150, 2), 1e-300); // 1 - t/sqrt(2 + t^2), 1/t^2 for large t
    near(TailF(700.0, 2, 998), std::exp(-499.0 * std::log1p(1400.0 / 998.0))); // (1 + 2F/df2)^(-df2/2)
    near(TailF(1e300, 2, 1), std::sqrt(0.5) * 1e-150);
    near(GammaQ(1.0, 690.0), std::exp(-690.0));
    near(InverseT(1e-300, 2), -std::sqrt(0.5) * 1e150);
    near(InverseT(1e-250, 1), -1.0 / (pi * 1e-250));
    // Where the quantile has no closed form: back through the tail.
    for (double df : {1.5, 3.0, 7.5, 40.0})
        for (double p : {1e-300, 1e-100, 1e-8, 0.3, 0.49999})
            EXPECT_NEAR(TailT(InverseT(p, df), df) / (2.0 * p), 1.0, 1e-12) << p << " " << df;
}

TEST(Distributions, ComplementsAddUpToOne) {
    for (double value : {1e-9, 0.3, 1.0, 2.5, 40.0, 1e4})
        for (double df : {1.0, 2.5, 30.0, 1e4}) {
            EXPECT_NEAR(ProbT(value, df) + TailT(-value, df), 1.0, 1e-14);
            EXPECT_NEAR(ProbF(value, df, 3.0) + TailF(value, df, 3.0), 1.0, 1e-14);
            EXPECT_NEAR(ProbT(value, df, 0.0, false), 0.5 + 0.5 * ProbT(value, df), 1e-14);
            EXPECT_NEAR(ProbT(-value, df, 0.0, false), 0.5 * TailT(value, df), 1e-14);
        }
    EXPECT_EQ(ProbT(5.0, 3.0, 5.0), 0.0);
    EXPECT_NEAR(ProbNormal(-1.0, false), 0.15865525393145705, 1e-15); // R pnorm(-1)
}

TEST(Distributions, SaturateAndNeverFail) {
    for (const double value : {InverseNormal(1.0), InverseT(1.5, 3), InverseChiSquare(1.0, 3)})
        EXPECT_EQ(value, largest);
    for (const double value : {InverseNormal(0.0), InverseT(-0.1, 3)})
        EXPECT_EQ(value, -largest);
    for (const double value :
         {InverseT(0.5, 3), InverseChiSquare(0.0, 3), InverseChiSquare(0.5, 0), TailT(largest, 1e6),
          GammaQ(0.0, 1.0), ProbT(notANumber, 1), InverseNormal(notANumber)})
        EXPECT_EQ(value, 0.0);
    for (const double value : {ProbT(infinity, 1), TailT(1.0, -1.0), TailF(notANumber, 1, 1)})
        EXPECT_EQ(value, 1.0);
    const double odd[] = {notANumber, -infinity, -largest, -1.0,   -1e-310,    0.0, 1e-310,
                          1e-300,     0.5,       1.0,      1e-5,   3.0,        1e6, 1e12,
                          1e300,      largest,   infinity, 0.9999, 1.0 - 1e-16};
    for (double first : odd)
        for (double second : odd)
            for (double value : {ProbT(first, second), TailT(first, second), ProbF(first, second, 2.0),
                                 ProbF(first, 2.0, second), TailF(first, second, 3.0),
                                 TailF(first, 3.0, second), GammaQ(first, second), ProbNormal(first),
                                 InverseNormal(first), InverseT(first, second), InverseChiSquare(first, 7)})
                ASSERT_TRUE(std::isfinite(value)) << first << " " << second;
}

} // namespace

} // namespace corvane::stats::test
