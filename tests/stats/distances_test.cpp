#include "stats/distances.h"

#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "stats/sums.h"

namespace corvane::stats::test {

namespace {

TEST(Distances, TakeAnyOrder) {
    const std::vector<double> x = {1, 2, -4, 7}, y = {4, 2, 0, 5}; // D = 3, 0, 4, -2
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_NEAR(DistanceMeasures(x, y, 2.5).Minkowski,
                std::pow(std::pow(3, 2.5) + 32 + std::pow(2, 2.5), 0.4), 1e-14);
    EXPECT_NEAR(DistanceMeasures(x, y, 0.5).Minkowski, Square(std::sqrt(3) + 2 + std::sqrt(2)), 1e-13);
    EXPECT_EQ(DistanceMeasures(x, y, 1).Minkowski, 9.0);
    EXPECT_EQ(DistanceMeasures(x, y, 1e6).Minkowski, 4.0);
    EXPECT_EQ(DistanceMeasures(x, y, infinity).Minkowski, 4.0);
    EXPECT_EQ(DistanceMeasures(x, y, 1e-5).Minkowski, std::numeric_limits<double>::max());
    for (const double order : {0.0, -1.0, std::nan("")})
        EXPECT_EQ(DistanceMeasures(x, y, order).Minkowski, 0.0);
    EXPECT_NEAR(DistanceMeasures({{3e300, 0}}, {{0, -4e300}}, 2).Euclidean, 5e300, 1e285);
    EXPECT_NEAR(DistanceMeasures({{3e-310, 0}}, {{0, -4e-310}}, 7).Euclidean, 5e-310, 1e-323);
    // Canberra weighs each pair by itself, however small beside the others.
    EXPECT_NEAR(DistanceMeasures({{1e-300, 1e300}}, {{3e-300, -1e300}}, 1).Canberra, 1.5, 1e-15);
}

TEST(Distances, KeepTheDigitsOfADivergence) {
    // q = p (1 + d): the divergence of -+d in turn is d^2/2 + d^4/12 + O(d^6), 1e-13 here.
    std::vector<double> x, y;
    const double d = 0x1p-21;
    for (int i = 0; i < 100; ++i) {
        x.push_back(1e6);
        y.push_back(1e6 * (1 + (i % 2 == 0 ? d : -d)));
    }
    EXPECT_NEAR(DistanceMeasures(x, y, 1).KullbackLeibler / (d * d / 2), 1.0, 1e-12);
    EXPECT_EQ(DistanceMeasures({{1, 2, 3}}, {{0x1p-1000, 0x1p-999, 3 * 0x1p-1000}}, 1).KullbackLeibler, 0.0);
    // q = 1/2, 1/2 beside p = 1e-300 and 1e-600.
    const double ln2 = std::log(2.0), ln10 = std::log(10.0);
    EXPECT_NEAR(DistanceMeasures({{1e-300, 1}}, {{1, 1}}, 1).KullbackLeibler, 150 * ln10 - ln2, 1e-12);
    EXPECT_NEAR(DistanceMeasures({{1e-300, 1e300}}, {{1, 1}}, 1).KullbackLeibler, 300 * ln10 - ln2, 1e-12);
    EXPECT_NEAR(DistanceMeasures({{1, 1}}, {{1e-300, 1e300}}, 1).KullbackLeibler, ln2, 1e-15);
    // Pairs that are not both positive take no part, nor do their values in the sums.
    EXPECT_EQ(DistanceMeasures({{1, 3, 0, -1e300, 5}}, {{2, 1, 7, 4, 0}}, 1).KullbackLeibler,
              DistanceMeasures({{1, 3}}, {{2, 1}}, 1).KullbackLeibler);
}

} // namespace

} // namespace corvane::stats::test
