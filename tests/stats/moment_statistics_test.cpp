#include "stats/moment_statistics.h"

#include <cmath>
#include <gtest/gtest.h>

#include "stats/order.h"

namespace corvane::stats::test {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
const double nan = std::nan("");

TEST(MomentStatistics, FollowUnitAndSign) {
    // Unit and sign: exact for powers of two, as far out as they may be. Exact skewness of 0, 0, 0, 1: 2.
    for (double unit : {1.0, -0x1p+1000, 0x1p-1000, -0x1p-1}) {
        const MomentStatisticsResult moments = MomentStatistics(std::vector{0.0, 0.0, 0.0, unit});
        EXPECT_EQ(moments.SD, 0.5 * std::fabs(unit));
        EXPECT_NEAR(moments.Skewness, std::copysign(2.0, unit), 1e-15);
        EXPECT_NEAR(moments.Kurtosis, 4.0, 1e-14);
    }
}

TEST(Order, SortsTheRangeAlone) {
    std::vector<double> values{5, 4, 3, 2, 1};
    SortRange(values, 2, 4);
    EXPECT_EQ(values, (std::vector<double>{5, 2, 3, 4, 1}));
    SortRange(values, 4, 3);
    SortRange(values, 6, 9);
    EXPECT_EQ(values, (std::vector<double>{5, 2, 3, 4, 1}));
    SortRange(values, 0, 9);
    EXPECT_EQ(values, (std::vector<double>{1, 2, 3, 4, 5}));
    std::vector<double> withNaN{nan, 2, nan, -infinity, 1};
    SortRange(withNaN, 1, 5);
    EXPECT_EQ((std::vector<double>(withNaN.begin(), withNaN.begin() + 3)),
              (std::vector<double>{-infinity, 1, 2}));
}

TEST(Order, Extremes) {
    const std::vector<double> negative{-3, -1, -2};
    EXPECT_EQ(ArrayMax(negative), -1.0);
    EXPECT_EQ(ArrayMin(negative), -3.0);
    EXPECT_EQ(ArrayMax({}), 0.0);
    EXPECT_EQ(ArrayMin(std::vector{nan, 2.0, infinity}), 0.0);
    EXPECT_EQ(ArrayMax(std::vector{nan, 2.0, infinity}), std::numeric_limits<double>::max());
    EXPECT_EQ(MinOfTwo(2, -1), -1.0);
    EXPECT_EQ(MaxOfTwo(2, nan), 2.0);
    EXPECT_EQ(MaxOfTwo(nan, -2), 0.0);
}

} // namespace

} // namespace corvane::stats::test
