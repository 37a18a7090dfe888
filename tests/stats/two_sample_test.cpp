#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

#include "stats/two_sample_ranks.h"
#include "stats/two_sample_tests.h"

namespace corvane::stats::test {

namespace {

using Test = TestResult (*)(std::span<const double>, std::span<const double>, const std::stop_token&);
constexpr std::pair<const char*, Test> tests[] = {{"TTestEqualVariance", TTestEqualVariance},
                                                  {"TTestUnequalVariance", TTestUnequalVariance},
                                                  {"TTestPairedCovariance", TTestPairedCovariance},
                                                  {"TTestPairedDifference", TTestPairedDifference},
                                                  {"FTestVariance", FTestVariance}};

// R 4.2.2: t.test, var.test, ks.test, wilcox.test(correct = FALSE, exact = FALSE); P of KolmogorovSmirnov2
// from the alternating series in mpmath 1.2.1.
TEST(TwoSamples, LengthsMayDiffer) {
    const std::vector<double> y{3.5, 1.25, 4, 4, 7.75, 2, 9.5};
    const std::vector<double> x{1, 2, 2, 4, 3.25, 0.5, 1, 6, 2.75, 4, 1.5};
    const TestResult pooled = TTestEqualVariance(y, x), welch = TTestUnequalVariance(y, x),
                     f = FTestVariance(y, x);
    const KolmogorovSmirnovResult kolmogorov = KolmogorovSmirnov2(x, y);
    const MannWhitneyResult mann = MannWhitney(x, y);
    const std::pair<double, double> results[] = {
        {pooled.Statistic, 1.860148154765057793}, {pooled.P, 0.081348115982227118},
        {welch.Statistic, 1.637611399981278693},  {welch.P, 0.138488942022327449},
        {f.Statistic, 3.280610125229983964},      {f.P, 0.094693989002350154},
        {kolmogorov.P, 0.281163988728535197},     {mann.OneSidedP, 0.055096263150159593}};
    for (const auto& [actual, expected] : results)
        EXPECT_NEAR(actual, expected, 1e-14);
    EXPECT_NEAR(kolmogorov.D, 34.0 / 77.0, 1e-15);
    EXPECT_NEAR(mann.WD, 2.0 * 56.0 / 77.0 - 1.0, 1e-15);
    EXPECT_NEAR(mann.Z, 1.5973283870219912, 1e-13);
    EXPECT_EQ(mann.TwoSidedP, 2.0 * mann.OneSidedP);
}

TEST(TwoSamples, RanksAgreeWithTheDefinition) {
    std::mt19937_64 random(13);
    for (int round = 0; round < 500; ++round) {
        const std::size_t values = 1 + random() % 80;
        std::vector<double> x(1 + random() % 60), y(1 + random() % 60);
        for (std::vector<double>* sample : {&x, &y})
            for (double& value : *sample)
                value = static_cast<double>(random() % values);
        const double nx = static_cast<double>(x.size()), ny = static_cast<double>(y.size());
        double balance = 0.0, D = 0.0;
        for (double a : x)
            for (double b : y)
                balance += (b > a) - (b < a);
        for (double at = 0.0; at < static_cast<double>(values); ++at) {
            const auto upTo = [&](double value) { return value <= at; };
            const double fx = static_cast<double>(std::ranges::count_if(x, upTo)) / nx;
            const double fy = static_cast<double>(std::ranges::count_if(y, upTo)) / ny;
            D = std::max(D, std::fabs(fx - fy));
        }
        ASSERT_NEAR(MannWhitney(x, y).WD, balance / (nx * ny), 1e-15) << round;
        ASSERT_EQ(MannWhitney(x, y).Z, -MannWhitney(y, x).Z) << round;
        ASSERT_NEAR(KolmogorovSmirnov2(x, y).D, D, 1e-15) << round;
    }
}

// One value out of line: N^3 - N - sum (t^3 - t) = 3 N (N - 1) is what is left of two terms of 1e16.
TEST(TwoSamples, MannWhitneyKeepsItsDigitsUnderHeavyTies) {
    std::vector<double> x(100'000, 1.0), y(100'000, 1.0);
    y[3] = 2.0; // U - NX NY / 2 = 50 000, Var U = NX NY / 4
    EXPECT_NEAR(MannWhitney(x, y).Z, 1.0, 1e-14);
}

TEST(TwoSamples, DegenerateSamplesSaturate) {
    constexpr double largest = std::numeric_limits<double>::max();
    const std::vector<double> three(4, 3.0), two(4, 2.0), mixed{1, 2, 2, 3};
    for (const auto& [name, test] : tests) {
        EXPECT_EQ(test(three, three, {}).Statistic, 0.0) << name;
        EXPECT_EQ(test(three, three, {}).P, 1.0) << name;
        if (test != FTestVariance) {
            EXPECT_EQ(test(two, three, {}).Statistic, -largest) << name;
            EXPECT_EQ(test(two, three, {}).P, 0.0) << name;
        }
    }
    EXPECT_EQ(FTestVariance(mixed, three).Statistic, largest);
    EXPECT_EQ(FTestVariance(mixed, three).P, 0.0);
    EXPECT_EQ(FTestVariance(three, mixed).P, 0.0);
    // A constant shift that doubles hold exactly, and close predictions whose covariance form has lost all
    // digits.
    EXPECT_EQ(TTestPairedCovariance(std::vector{1e9 + 3, 1e9 + 4.5}, std::vector{1e9, 1e9 + 1.5}).Statistic,
              largest);
    const std::vector<double> x{1e9, 2e9, 3e9}, y{1e9 + 1, 2e9 + 2, 3e9 + 3};
    EXPECT_NEAR(TTestPairedCovariance(y, x).Statistic, std::sqrt(12.0), 1e-14);
}

} // namespace

} // namespace corvane::stats::test
