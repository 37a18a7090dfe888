#include "stats/robust_scale.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace corvane::stats::test {

namespace {

double Kth(std::vector<double> values, std::size_t k) {
    std::sort(values.begin(), values.end());
    return values.at(k - 1);
}

/// The order statistics as they are defined, from all pairs and without factors.
double DirectSn(const std::vector<double>& x) {
    std::vector<double> medians;
    for (double a : x) {
        std::vector<double> distances;
        for (double b : x)
            distances.push_back(std::fabs(a - b));
        medians.push_back(Kth(distances, x.size() / 2 + 1));
    }
    return Kth(medians, (x.size() + 1) / 2);
}

double DirectQn(const std::vector<double>& x) {
    std::vector<double> differences;
    for (std::size_t i = 0; i < x.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            differences.push_back(std::fabs(x[i] - x[j]));
    const std::size_t h = x.size() / 2 + 1;
    return Kth(differences, h * (h - 1) / 2);
}

double SnFactor(double n) {
    return std::fmod(n, 2.0) == 0.0 ? 1.0 : n / (n - 0.9);
}

double QnFactor(double n) {
    const double odd = 1.60188 - 2.1284 / n - 5.172 / (n * n);
    const double even = 3.67561 + 1.9654 / n + 6.987 / (n * n) - 77.0 / (n * n * n);
    return n / (n + (std::fmod(n, 2.0) == 0.0 ? even : odd));
}

TEST(RobustScale, AgreesWithTheDefinition) {
    std::mt19937_64 random(7);
    std::normal_distribution<> normal;
    for (int round = 0; round < 600; ++round) {
        // Smooth, tied, heavy-tailed by hundreds of powers of ten, and two far clusters; some of them large
        // enough for the bracket of Qn to be narrowed at length.
        const std::size_t n = 13 + random() % (round % 50 == 0 ? 500 : 48);
        std::vector<double> x(n);
        for (double& value : x) {
            const double z = normal(random);
            value = round % 4 == 0   ? z
                    : round % 4 == 1 ? static_cast<double>(random() % (2 + n / 4))
                    : round % 4 == 2 ? std::copysign(std::pow(10.0, 80.0 * z), normal(random))
                                     : 1e6 * static_cast<double>(random() % 2) + z;
        }
        const double count = static_cast<double>(n);
        const double sn = SnFactor(count) * 1.1926 * DirectSn(x),
                     qn = QnFactor(count) * 2.21914 * DirectQn(x);
        ASSERT_NEAR(RobustSn(x), sn, 4e-15 * sn) << round;
        ASSERT_NEAR(RobustQn(x), qn, 4e-15 * qn) << round;
        // Neither offset nor order nor unit matter.
        std::shuffle(x.begin(), x.end(), random);
        for (double& value : x)
            value = -4.0 * value;
        ASSERT_NEAR(RobustSn(x), 4.0 * sn, 2e-14 * sn) << round;
        ASSERT_NEAR(RobustQn(x), 4.0 * qn, 2e-14 * qn) << round;
    }
}

TEST(RobustScale, ExtremesSaturate) {
    EXPECT_EQ(RobustSn(std::vector(7, 1e-300)), 0.0);
    EXPECT_EQ(RobustQn(std::vector(7, 1e300)), 0.0);
    // The difference is twice the largest double, the estimate is in range: 0.399356 * 2.21914 * 2 > 1 is
    // not.
    EXPECT_EQ(RobustSn(std::vector{-1e308, 1e308}), 0.743 * 1.1926 * 0.5e308 * 4.0);
    EXPECT_EQ(RobustQn(std::vector{-1.7e308, 1.7e308}), std::numeric_limits<double>::max());
    // Saturated values and NaN are numbers: 0, 0 and the largest double here.
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(RobustQn(std::vector{std::nan(""), 0.0, infinity}), 0.0);
}

} // namespace

} // namespace corvane::stats::test
