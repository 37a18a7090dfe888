#include <algorithm>
#include <cmath>
#include <cstring>
#include <numeric>
#include <random>

#include <gtest/gtest.h>

#include "stats/median_fit.h"

namespace corvane::stats::test {

namespace {

struct Sample {
    std::vector<double> X, Y;
};

/// What an exhaustive search over the lines through two points finds, in more digits than a double has.
struct Optimum {
    long double SumAbs = std::numeric_limits<long double>::infinity();
    long double SmallestSlope = 0, LargestSlope = 0; ///< of the optimal lines
};

Optimum Exhaustive(const Sample& sample) {
    const std::size_t n = sample.X.size();
    const auto dx = [&](std::size_t i, std::size_t j) {
        return static_cast<long double>(sample.X[i]) - sample.X[j];
    };
    const auto dy = [&](std::size_t i, std::size_t j) {
        return static_cast<long double>(sample.Y[i]) - sample.Y[j];
    };
    Optimum best;
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < i; ++j) {
            if (dx(i, j) == 0)
                continue;
            const long double slope = dy(i, j) / dx(i, j);
            long double sum = 0;
            for (std::size_t k = 0; k < n; ++k)
                sum += std::fabs(dy(k, i) - slope * dx(k, i));
            if (sum < best.SumAbs * (1 - 1e-15L))
                best = {sum, slope, slope};
            else if (sum <= best.SumAbs * (1 + 1e-15L)) {
                best.SmallestSlope = std::min(best.SmallestSlope, slope);
                best.LargestSlope = std::max(best.LargestSlope, slope);
            }
        }
    return best;
}

/// Samples of one kind: noise about a line, heavy tails, an integer grid, a coarse decimal grid, points that
/// are on a line but for a third of them, equal x in a few stacks, six decades of magnitudes, an offset.
Sample Random(int kind, std::size_t n, std::mt19937_64& generator) {
    std::normal_distribution<> normal;
    const auto below = [&](unsigned bound) { return static_cast<double>(generator() % bound); };
    Sample sample;
    for (std::size_t i = 0; i < n; ++i) {
        const double z = normal(generator), e = normal(generator);
        const std::pair<double, double> points[] = {{z, 2 - 3 * z + e},
                                                    {1 / z, 1 / e},
                                                    {below(4), below(4)},
                                                    {0.1 * below(9), 0.1 * below(9)},
                                                    {below(9), below(3) > 0 ? 7.0 : below(20)},
                                                    {below(3), z},
                                                    {z * std::pow(10, below(7)), e * std::pow(10, below(7))},
                                                    {1e9 + below(16) / 8, 1e9 + below(16) / 8}};
        sample.X.push_back(points[kind].first);
        sample.Y.push_back(points[kind].second + (kind == 4 ? sample.X.back() / 4 : 0.0));
    }
    return sample;
}

TEST(FitMedian, ReachesTheOptimumOfAnExhaustiveSearchInAnyOrder) {
    std::mt19937_64 generator(20240501), shuffler(7);
    int notUnique = 0;
    for (int round = 0; round < 1600; ++round) {
        const int kind = round % 8;
        const Sample sample = Random(kind, 2 + generator() % (round % 20 == 0 ? 59 : 14), generator);
        const Optimum best = Exhaustive(sample);
        if (!std::isfinite(best.SumAbs))
            continue; // all x equal
        const MedianFit fit = FitMedian(sample.X, sample.Y);
        const long double n = static_cast<long double>(sample.X.size());
        const double largest =
            std::fabs(*std::max_element(sample.Y.begin(), sample.Y.end(),
                                        [](double a, double b) { return std::fabs(a) < std::fabs(b); }));
        ASSERT_NEAR(static_cast<double>(fit.AbsDev * n), static_cast<double>(best.SumAbs),
                    1e-12 * static_cast<double>(best.SumAbs) + 1e-18 * largest)
            << "kind " << kind << " round " << round;

        // The line as returned, up to the rounding of a and b.
        long double sum = 0, rounding = 0;
        for (std::size_t i = 0; i < sample.X.size(); ++i) {
            sum += std::fabs(sample.Y[i] - fit.a - static_cast<long double>(fit.b) * sample.X[i]);
            rounding += std::fabs(fit.a) + std::fabs(fit.b * sample.X[i]);
        }
        ASSERT_LE(sum, best.SumAbs * (1 + 1e-12L) + 1.2e-16L * rounding)
            << "kind " << kind << " round " << round;

        // Of many optimal lines the middle one.
        const double middle = static_cast<double>((best.SmallestSlope + best.LargestSlope) / 2);
        ASSERT_NEAR(fit.b, middle, 1e-12 * (1 + std::fabs(middle))) << "kind " << kind << " round " << round;

        Sample shuffled;
        std::vector<std::size_t> order(sample.X.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::shuffle(order.begin(), order.end(), shuffler);
        for (std::size_t i : order) {
            shuffled.X.push_back(sample.X[i]);
            shuffled.Y.push_back(sample.Y[i]);
        }
        const MedianFit other = FitMedian(shuffled.X, shuffled.Y);
        ASSERT_EQ(std::memcmp(&fit, &other, sizeof fit), 0) << "kind " << kind << " round " << round;
        notUnique += best.LargestSlope - best.SmallestSlope > 1e-6L;
    }
    EXPECT_GT(notUnique, 100);
}

TEST(FitMedian, TakesThePlainCasesExactly) {
    const auto expect = [](const Sample& sample, double a, double b, double absDev) {
        const MedianFit fit = FitMedian(sample.X, sample.Y);
        EXPECT_EQ(fit.a, a);
        EXPECT_EQ(fit.b, b);
        EXPECT_EQ(fit.AbsDev, absDev);
    };
    expect({{}, {}}, 0, 0, 0);
    expect({{3}, {5}}, 5, 0, 0);
    expect({{3, 3, 3, 3}, {1, 2, 4, 9}}, 3, 0, 2.5); // constant x: the median
    expect({{1, 2, 3, 4, 5}, {4, 4, 4, 4, 4}}, 4, 0, 0);
    expect({{0, 1, 3, 7, 100}, {0, 1, 3, 7, 100}}, 0, 1, 0);
    expect({{3, 6, 9, 300, 3}, {1, 2, 3, 100, 50}}, 0, 1.0 / 3, 49.0 / 5); // b is not a double
    expect({{0, 0, 1, 1}, {0, 1, 0, 1}}, 0.5, 0, 0.5); // every line between the corners: the middle one
}

TEST(FitMedian, FollowsPowersOfTwo) {
    std::mt19937_64 generator(11);
    const Sample sample = Random(0, 50, generator);
    const MedianFit fit = FitMedian(sample.X, sample.Y);
    for (const auto& [powerX, powerY] : {std::pair{900, 850}, {-900, -850}, {300, -600}, {-300, 500}}) {
        Sample scaled = sample;
        for (double& x : scaled.X)
            x = std::ldexp(x, powerX);
        for (double& y : scaled.Y)
            y = std::ldexp(y, powerY);
        const MedianFit other = FitMedian(scaled.X, scaled.Y);
        EXPECT_EQ(other.a, std::ldexp(fit.a, powerY));
        EXPECT_EQ(other.b, std::ldexp(fit.b, powerY - powerX));
        EXPECT_EQ(other.AbsDev, std::ldexp(fit.AbsDev, powerY));
    }
}

} // namespace

} // namespace corvane::stats::test
