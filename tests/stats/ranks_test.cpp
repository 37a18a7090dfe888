#include "stats/ranks.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

#include "stats/kendall.h"

namespace corvane::stats::test {

namespace {

int Sign(double value) {
    return (value > 0.0) - (value < 0.0);
}

TEST(Ranks, AgreeWithTheDefinition) {
    std::mt19937_64 random(11);
    for (int round = 0; round < 500; ++round) {
        const std::size_t n = 2 + random() % 59, values = 1 + random() % (2 * n);
        std::vector<double> x(n), y(n);
        for (std::size_t i = 0; i < n; ++i) {
            x[i] = static_cast<double>(random() % values);
            y[i] = static_cast<double>(random() % values) - (round % 2 ? x[i] : 0.0);
        }
        const SpearmanResult spearman = SpearmanRank(x, y);
        int S = 0, untiedX = 0, untiedY = 0;
        double D = 0.0;
        for (std::size_t i = 0; i < n; ++i) {
            double rankX = 0.5, rankY = 0.5;
            for (std::size_t j = 0; j < n; ++j) {
                const int a = Sign(x[i] - x[j]), b = Sign(y[i] - y[j]);
                rankX += 0.5 * (a + 1);
                rankY += 0.5 * (b + 1);
                S += j < i ? a * b : 0;
                untiedX += j < i ? a * a : 0;
                untiedY += j < i ? b * b : 0;
            }
            ASSERT_EQ(spearman.RankX[i], rankX);
            ASSERT_EQ(spearman.RankY[i], rankY);
            D += (rankX - rankY) * (rankX - rankY);
        }
        ASSERT_EQ(spearman.D, D);
        const double shared = std::sqrt(static_cast<double>(untiedX) * untiedY);
        ASSERT_NEAR(KendallTau(x, y).Tau, shared == 0.0 ? 0.0 : S / shared, 1e-15) << round;
    }
}

// All values but one are tied in both samples: the variance of S is all cancellation. With the odd values in
// one row S = N - 1 and Var S = N - 1; in different rows S = -1 of the same variance.
TEST(Ranks, KendallKeepsItsDigitsUnderHeavyTies) {
    const std::size_t n = 200'000;
    std::vector<double> x(n, 1.0), y(n, 1.0);
    x[5] = y[5] = 2.0;
    EXPECT_NEAR(KendallTau(x, y).Z, std::sqrt(n - 1.0), 1e-9);
    y[5] = 1.0, y[7] = 2.0;
    EXPECT_NEAR(KendallTau(x, y).Z, -1.0 / std::sqrt(n - 1.0), 1e-14);
}

} // namespace

} // namespace corvane::stats::test
