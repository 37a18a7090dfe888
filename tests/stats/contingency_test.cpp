#include "stats/contingency.h"

#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "stats/degenerate_samples.h"

namespace corvane::stats::test {

namespace {

using Values = std::vector<double>;

TEST(Contingency, HoldsForEveryShapeAndUnit) {
    // 1 x 3 against equal shares, by hand: ((-2)^2 + 1 + 1) / 4 = 1.5, V = sqrt(1.5 / (12 * 2)), DF 2.
    const ContingencyResult shares = ContingencyTest({{2, 5, 5}}, 1, 3, 1.0 / 3);
    EXPECT_NEAR(shares.X2, 1.5, 1e-14);
    EXPECT_EQ(shares.DF, 2u);
    EXPECT_NEAR(shares.V, 0.25, 1e-14);
    // Counts in proportion, none of whose expectations is a round number.
    EXPECT_EQ(ContingencyTest({{1, 3, 7, 7, 21, 49}}, 2, 3).X2, 0.0);
    const Values table = {10, 20, 30, 40, 5, 7};
    const ContingencyResult plain = ContingencyTest(table, 2, 3),
                            turned = ContingencyTest({{10, 40, 20, 5, 30, 7}}, 3, 2);
    EXPECT_NEAR(turned.X2, plain.X2, 1e-13 * plain.X2);
    EXPECT_EQ(turned.DF, 2u);
    for (const int power : {-1000, 1000}) {
        Values scaled;
        for (const double cell : table)
            scaled.push_back(std::ldexp(cell, power));
        EXPECT_EQ(ContingencyTest(scaled, 2, 3).V, plain.V);
        EXPECT_EQ(ContingencyTest(scaled, 2, 3).X2, std::ldexp(plain.X2, power));
    }
    // A row of almost nothing, wholly in one column: its share of X2 is that of its counts, here lost in 1.
    EXPECT_NEAR(ContingencyTest({{1e-200, 0, 0, 1}}, 2, 2).V, 1.0, 1e-15);
}

TEST(Contingency, OfDefectiveTablesIsFinite) {
    const double none = std::nan(""), infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(ContingencyTest({{none, 3, -5, 4}}, 2, 2).X2, ContingencyTest({{0, 3, 0, 4}}, 2, 2).X2);
    EXPECT_EQ(ContingencyTest({{1, 2, 4}}, 2, 2).X2, ContingencyTest({{1, 2, 4, 0}}, 2, 2).X2);
    EXPECT_EQ(ContingencyTest({}, 3, 3, 0.25).P, 1.0);
    EXPECT_EQ(ContingencyTest({{7}}, 1, 1, 0.25).X2, 0.0);
    const auto check = [](const ContingencyResult& result) {
        ASSERT_TRUE(std::isfinite(result.X2) && result.X2 >= 0);
        ASSERT_TRUE(result.P >= 0 && result.P <= 1);
        ASSERT_TRUE(std::isfinite(result.V) && result.V >= 0);
        ASSERT_TRUE(result.C >= 0 && result.C <= 1);
    };
    constexpr std::size_t most = std::numeric_limits<std::size_t>::max();
    for (const double p : {0.0, 0.25, 5e-324, 1e-300, infinity, none, -1.0}) {
        check(ContingencyTest({{infinity, 1, 2, none}}, most, most, p));
        ForDegenerateSamples([&](const DegenerateSample& sample) {
            check(ContingencyTest(sample.X, 2, sample.X.size() / 2, p));
        });
    }
}

} // namespace

} // namespace corvane::stats::test
