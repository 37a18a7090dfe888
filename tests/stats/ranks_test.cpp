#include <cmath>
#include <gtest/gtest.h>

#include "stats/kendall.h"

namespace corvane::stats::test {

namespace {

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
