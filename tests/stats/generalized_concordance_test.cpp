#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "stats/generalized_concordance.h"
#include "stats/robust_scale.h"

namespace corvane::stats::test {

namespace {

struct Direct {
    std::array<long double, 7> Rg{}, SE{};
};

/// The definition, term by term. Its long doubles are the reason that no shape is farther from zero than 1e3.
Direct DirectSums(const std::vector<double>& x, const std::vector<double>& y, double power) {
    const std::size_t n = x.size();
    const long double s = std::sqrt(static_cast<long double>(RobustQn(x)) * RobustQn(y));
    const long double c = 2 * std::sqrt(2.0L) * s, h = 1.345L * std::sqrt(2.0L) * s;
    const auto raised = [&](long double z) {
        return power == 1.5 ? z * std::sqrt(z) : std::pow(z, static_cast<long double>(power));
    };
    const auto distances = [&](long double difference) -> std::array<long double, 7> {
        const long double z = std::fabs(difference), low = std::min(z, c), power1 = raised(z);
        const long double huber = z <= h ? z * z / 2 : h * z - h * h / 2;
        return {z * z, z, power1, low * low, low, z < c ? power1 : raised(c), huber};
    };
    std::vector<std::array<long double, 7>> means(n), own(n), b(n);
    for (std::size_t i = 0; i < n; ++i) {
        const long double xi = x[i], yi = y[i];
        for (std::size_t j = 0; j < n; ++j) {
            const auto minus = distances(xi - y[j]), plus = distances(xi + y[j]);
            for (std::size_t m = 0; m < 7; ++m) {
                means[i][m] += (minus[m] - plus[m]) / n;
                means[j][m] += (minus[m] - plus[m]) / n;
            }
        }
        const auto minus = distances(xi - yi), plus = distances(xi + yi), gx = distances(2 * xi),
                   gy = distances(2 * yi);
        for (std::size_t m = 0; m < 7; ++m) {
            own[i][m] = minus[m] - plus[m];
            b[i][m] = (gx[m] + gy[m]) / 2;
        }
    }
    Direct result;
    for (std::size_t m = 0; m < 7; ++m) {
        long double v1 = 0, v2 = 0, v3 = 0, squares = 0;
        for (std::size_t k = 0; k < n; ++k)
            v1 += means[k][m] / (2 * n), v2 += own[k][m] / n, v3 += b[k][m] / n;
        result.Rg[m] = (v1 - v2) / (v1 + v3);
        for (std::size_t k = 0; k < n; ++k) {
            const long double common = means[k][m] - 2 * v1;
            const long double influence = common - (own[k][m] - v2) - result.Rg[m] * (common + b[k][m] - v3);
            squares += influence * influence / ((v1 + v3) * (v1 + v3));
        }
        result.SE[m] = std::sqrt(squares / (n * (n - 1.0L)));
    }
    return result;
}

/// Pairs about a line, smooth or tied, clustered, of heavy tails, far from zero, apart and of all sizes.
struct Shape {
    const char* Name;
    double (*X)(double z, std::size_t i);
    double (*Y)(double x, double e, std::size_t i);
};
double Plus(double x, double e, std::size_t) {
    return x + 0.6 * e + 0.3;
}
const Shape shapes[] = {{"smooth", [](double z, std::size_t) { return z; }, Plus},
                        {"tied", [](double z, std::size_t) { return std::round(8 * z); },
                         [](double x, double e, std::size_t) { return std::round(x + 3 * e); }},
                        {"a few values", [](double z, std::size_t) { return std::round(z); },
                         [](double x, double e, std::size_t) { return std::round(x + 0.5 * e); }},
                        {"clustered", [](double z, std::size_t i) { return 1e-3 * z + (i % 2 ? 1e6 : 0.0); },
                         [](double x, double e, std::size_t) { return x + 1e-3 * e; }},
                        {"heavy",
                         [](double z, std::size_t) { return z / std::pow(std::erfc(std::fabs(z)), 0.6); },
                         [](double x, double e, std::size_t) { return x + e / std::erfc(std::fabs(e)); }},
                        {"far from zero", [](double z, std::size_t) { return 1e3 + z; }, Plus},
                        {"apart", [](double z, std::size_t) { return z; },
                         [](double x, double e, std::size_t) { return 1000 + x + e; }},
                        {"of all sizes", [](double z, std::size_t) { return std::exp2(40 * z); },
                         [](double x, double e, std::size_t) { return x * std::exp2(5 * e); }}};

TEST(GeneralizedConcordance, FastSumsEqualDirectSums) {
    for (const auto& [n, power] :
         {std::pair{3u, 1.5}, {10u, 1.5}, {100u, 1.5}, {1500u, 1.5}, {200u, 0.3}, {700u, 3.0}})
        for (const Shape& shape : shapes) {
            std::mt19937_64 generator(n);
            std::normal_distribution<> normal;
            std::vector<double> x, y;
            for (std::size_t i = 0; i < n; ++i) {
                x.push_back(shape.X(normal(generator), i));
                y.push_back(shape.Y(x.back(), normal(generator), i));
            }
            if (RobustQn(x) * RobustQn(y) == 0.0)
                continue; // the reference sets have the other scale
            const GeneralizedConcordanceResult result = GeneralizedConcordance(x, y, power);
            const Direct direct = DirectSums(x, y, power);
            for (std::size_t m = 0; m < 7; ++m) {
                SCOPED_TRACE(shape.Name + (" N " + std::to_string(n)) + " row " + std::to_string(m + 1));
                const double rg = static_cast<double>(direct.Rg[m]), se = static_cast<double>(direct.SE[m]);
                EXPECT_NEAR(result.Rg[m], rg, 1e-9 * std::fabs(rg) + 1e-13);
                EXPECT_NEAR(result.SE[m], se, 1e-9 * se + 1e-13);
            }
        }
}

TEST(GeneralizedConcordance, LimitsEndAtOne) {
    // Rg of the capped squares by the definition in plain Python.
    const std::pair<GeneralizedConcordanceResult, double> beyond[] = {
        {GeneralizedConcordance(std::vector<double>{12, 45, 4}, std::vector<double>{6, 43, 7}), 1.0825736587},
        {GeneralizedConcordance(std::vector<double>{8, 6, -4}, std::vector<double>{-2, 6, 18}),
         -1.3903276505}};
    for (const auto& [result, rg] : beyond) {
        EXPECT_NEAR(result.Rg[3], rg, 1e-9);
        EXPECT_EQ(result.Lower[3], std::copysign(1.0, rg));
        EXPECT_EQ(result.Upper[3], std::copysign(1.0, rg));
    }
}

} // namespace

} // namespace corvane::stats::test
