#include "stats/normality.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "stats/edf_normality.h"
#include "stats/reference_data.h"

namespace corvane::stats::test {

namespace {

using Values = std::vector<double>;

/// Quantiles of the exponential law, strictly increasing.
Values Exponential(std::size_t n) {
    Values sample;
    for (std::size_t i = 0; i < n; ++i)
        sample.push_back(-std::log((static_cast<double>(i) + 0.5) / static_cast<double>(n)));
    return sample;
}

TEST(Normality, ShapiroWilkOfLargeAndSmallestSamples) {
    EXPECT_EQ(ShapiroWilk({{1, 2}}).IFault, 1);
    EXPECT_EQ(ShapiroWilk(Values(9, 0.1)).IFault, 6);
    // R 4.2.2: shapiro.test for N = 5000, beyond which it refuses; the same formulas written in R for 6000.
    const ShapiroWilkResult most = ShapiroWilk(Exponential(5000)), more = ShapiroWilk(Exponential(6000));
    ExpectClose(most.W, 0.81636067744779091, {1e-11, 0}, "W of 5000");
    ExpectClose(most.P, 5.4840379256e-60, {1e-9, 0}, "P of 5000");
    EXPECT_EQ(most.IFault, 0);
    ExpectClose(more.W, 0.81627511323947832, {1e-11, 0}, "W of 6000");
    ExpectClose(more.P, 9.8618657589365e-64, {1e-9, 0}, "P of 6000");
    EXPECT_EQ(more.IFault, 2);

    // W = 27/28 by hand, P = 6/pi (asin sqrt(W) - asin sqrt(3/4)).
    const ShapiroWilkResult three = ShapiroWilk({{7, 4, 5}});
    EXPECT_NEAR(three.W, 27.0 / 28, 1e-15);
    EXPECT_NEAR(three.P, 0.63688684502897, 1e-14);
    EXPECT_EQ(ShapiroWilk({{1, 5, 1}}).P, 0.0);
    EXPECT_NEAR(ShapiroWilk({{1, 3, 2}}).P, 1.0, 1e-15);
    EXPECT_NEAR(ShapiroWilk({{1, 2, 2 + 1e-12}}).P, 6 * std::sqrt(0.75) / std::acos(-1.0) * 1e-12, 1e-15);
}

TEST(Normality, OfASampleFarOutIsFiniteAndRight) {
    // R 4.2.2 with pnorm(log.p = TRUE): the last value is 54.8 SDs out, where Phi itself is 1 and its tail 0.
    Values sample(2999);
    std::iota(sample.begin(), sample.end(), 1.0);
    sample.push_back(1e9);
    const EDFResult result = EDFNormalityStatistics(sample);
    ExpectClose(result.D, 0.50691716901819173, {1e-11, 0}, "D");
    ExpectClose(result.V, 0.99960116828195877, {1e-11, 0}, "V");
    ExpectClose(result.A2, 1158.4743988459204, {1e-11, 0}, "A2");
}

TEST(Normality, DoesNotDependOnUnitOffsetAndOrder) {
    const Values sample = {3, 1, 4, 1.5, 9, 2.5, 6, 5.25, 3.5, 8, 9.75, 7, 9.25};
    const ShapiroWilkResult plain = ShapiroWilk(sample);
    const EDFResult edf = EDFNormalityStatistics(sample);
    for (const auto& [scale, offset] :
         {std::pair{1.0, 0x1p40}, {-1.0, 0.0}, {0x1p-900, 0.0}, {0x1p900, 0.0}}) {
        Values other;
        for (const double value : sample)
            other.push_back(offset + scale * value);
        std::rotate(other.begin(), other.begin() + 5, other.end());
        const ShapiroWilkResult moved = ShapiroWilk(other);
        EXPECT_NEAR(moved.W, plain.W, 1e-15);
        EXPECT_NEAR(moved.P, plain.P, 1e-14);
        const EDFResult e = EDFNormalityStatistics(other);
        for (const double difference : {e.D - edf.D, e.V - edf.V, e.W2 - edf.W2, e.U2 - edf.U2})
            EXPECT_NEAR(difference, 0, 1e-15);
        EXPECT_NEAR(e.A2, edf.A2, 1e-14);
    }
}

} // namespace

} // namespace corvane::stats::test
