#include "stats/residual_limits.h"

#include "stats/intercept_slope_test.h"
#include "stats/sums.h"

#include <cmath>
#include <gtest/gtest.h>

namespace corvane::stats::test {
namespace {

TEST(ResidualLimits, AreNothingWhereTheyHaveNoValue) {
    // R 4.2.2: sqrt(qchisq(0.95, 1) * 40 / qchisq(c(0.95, 0.05), 10))
    const auto limits = FreeseLimits(std::sqrt(40.0), 10, 0.05, 0.05);
    ASSERT_TRUE(limits);
    EXPECT_NEAR(limits->Lower, 2.8971370794793274, 1e-12);
    EXPECT_NEAR(limits->Upper, 6.2447274720733539, 1e-12);
    EXPECT_FALSE(FreeseLimits(40, 10, 0, 0));            // no quantile at 1
    EXPECT_FALSE(FreeseLimits(Largest, 10, 0.05, 0.05)); // saturated
    EXPECT_FALSE(FreeseLimits(-1, 10, 0.05, 0.05));

    EXPECT_NEAR(*AcceptableDeviation(0.95, 4, 4), 2 * 1.6448536269514722, 1e-14);
    EXPECT_FALSE(AcceptableDeviation(1, 4, 4));
    EXPECT_FALSE(AcceptableDeviation(0.95, 4, 0));
    EXPECT_FALSE(AcceptableDeviation(0.95, Largest, 4));

    EXPECT_NEAR(*FTestZeroLine(std::sqrt(30.0), std::sqrt(10.0), 6), 6.0, 1e-14); // 6 / 2 (30 - 10) / 10
    EXPECT_EQ(FTestZeroLine(10, 30, 6), 0.0);
    EXPECT_EQ(FTestZeroLine(30, 0, 6), 0.0);
    EXPECT_FALSE(FTestZeroLine(Largest, 10, 6));
    EXPECT_FALSE(FTestZeroLine(1, 1e-160, 6));
}

} // namespace
} // namespace corvane::stats::test
