#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "degenerate_samples.h"
#include "reference_data.h"
#include "stats/generalized_concordance.h"
#include "stats/robust_scale.h"

namespace corvane::stats::test {

namespace {

TEST(GeneralizedConcordance, Reference) {
    int sets = 0;
    for (const ReferenceSet& set : ReferenceSets()) {
        if (!set.Has("GeneralizedConcordance"))
            continue;
        SCOPED_TRACE(set.Name);
        ++sets;
        const nlohmann::json& expected = set.Values["GeneralizedConcordance"];
        const GeneralizedConcordanceResult result = GeneralizedConcordance(set.X, set.Y);
        ExpectClose(result.Rg, expected["Rg"], {1e-9, 1e-13}, "Rg");
        ExpectClose(result.SE, expected["SE"], {set.Name == "norris" ? 1e-7 : 1e-9, 1e-13}, "SE");
        for (std::size_t i = 0; i < 7; ++i) {
            const Tolerance tolerance{1e-9, 1e-13 + 2e-8 * result.SE[i]};
            ExpectClose(result.Lower[i], expected["Lower"][i], tolerance, "Lower");
            ExpectClose(result.Upper[i], expected["Upper"][i], tolerance, "Upper");
        }
        // The squared distance gives Lin's coefficient.
        if (set.Has("ConcordanceStatistics"))
            ExpectClose(result.Rg[0], set.Values["ConcordanceStatistics"]["rc"], {1e-12, 1e-15}, "rc");
    }
    EXPECT_GE(sets, 15);
}

struct Direct {
    std::array<long double, 7> Rg{}, SE{};
};

/// The definition, term by term. Its long doubles are the reason that no shape is farther from zero than 1e3.
Direct DirectSums(const std::vector<double>& x, const std::vector<double>& y, double power) {
    const std::size_t n = x.size();
    const long double s = std::sqrt(static_cast<long double>(RobustQn(x)) * RobustQn(y));
    const long double c = 2 * std::sqrt(2.0L) * s, h = 1.345L * std::sqrt(2.0L) * s;
    const auto raised = [&](long double z) {
        return power == 1.5 ? z * std::sqrt(z)
               : power == 3 ? z * z * z
                            : std::pow(z, static_cast<long double>(power));
    };
    const auto distances = [&](long double difference) -> std::array<long double, 7> {
        const long double z = std::fabs(difference), capped = std::min(z, c), raw = raised(z);
        return {z * z,
                z,
                raw,
                capped * capped,
                capped,
                z < c ? raw : raised(c),
                z <= h ? z * z / 2 : h * z - h * h / 2};
    };
    std::vector<std::array<long double, 7>> means(n), own(n), b(n);
    for (std::size_t i = 0; i < n; ++i) {
        const auto gx = distances(2 * static_cast<long double>(x[i])),
                   gy = distances(2 * static_cast<long double>(y[i]));
        for (std::size_t j = 0; j < n; ++j) {
            const auto minus = distances(static_cast<long double>(x[i]) - y[j]),
                       plus = distances(static_cast<long double>(x[i]) + y[j]);
            for (std::size_t m = 0; m < 7; ++m) {
                means[i][m] += (minus[m] - plus[m]) / n;
                means[j][m] += (minus[m] - plus[m]) / n;
                if (i == j)
                    own[i][m] = minus[m] - plus[m];
                b[i][m] = (gx[m] + gy[m]) / 2;
            }
        }
    }
    Direct result;
    for (std::size_t m = 0; m < 7; ++m) {
        long double v1 = 0, v2 = 0, v3 = 0, squares = 0;
        for (std::size_t k = 0; k < n; ++k) {
            v1 += means[k][m] / (2 * n);
            v2 += own[k][m] / n;
            v3 += b[k][m] / n;
        }
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

struct Shape {
    std::string Name;
    std::vector<double> X, Y;
};

std::vector<Shape> Shapes(std::size_t n) {
    std::mt19937_64 generator(n);
    std::normal_distribution<> normal;
    std::student_t_distribution<> heavy(1.5);
    std::cauchy_distribution<> cauchy;
    std::vector<Shape> shapes = {{"smooth", {}, {}},        {"tied", {}, {}},  {"a few values", {}, {}},
                                 {"clustered", {}, {}},     {"heavy", {}, {}}, {"Cauchy", {}, {}},
                                 {"far from zero", {}, {}}, {"apart", {}, {}}, {"of all sizes", {}, {}}};
    for (std::size_t i = 0; i < n; ++i) {
        const double z = normal(generator), e = normal(generator), t = heavy(generator),
                     q = cauchy(generator);
        const double xs[] = {
            z, std::round(8.0 * z), std::round(z), 1e-3 * z + (i % 2 ? 1e6 : 0.0), t, q, 1e3 + z,
            z, std::exp2(40.0 * z)};
        const double ys[] = {0.8 * z + 0.6 * e + 0.3,
                             std::round(8.0 * z + 3.0 * e),
                             std::round(z + 0.5 * e),
                             1e-3 * (z + e) + (i % 2 ? 1e6 : 0.0),
                             t + heavy(generator),
                             q + cauchy(generator),
                             1e3 + z + 0.5 * e,
                             1000.0 + z + e,
                             std::exp2(40.0 * z + 5.0 * e)};
        for (std::size_t shape = 0; shape < shapes.size(); ++shape) {
            shapes[shape].X.push_back(xs[shape]);
            shapes[shape].Y.push_back(ys[shape]);
        }
    }
    return shapes;
}

TEST(GeneralizedConcordance, FastSumsEqualDirectSums) {
    for (const auto& [n, power] :
         {std::pair{3u, 1.5}, {10u, 1.5}, {100u, 1.5}, {1500u, 1.5}, {200u, 0.3}, {700u, 3.0}})
        for (const Shape& shape : Shapes(n)) {
            const GeneralizedConcordanceResult result = GeneralizedConcordance(shape.X, shape.Y, power);
            if (RobustQn(shape.X) * RobustQn(shape.Y) == 0.0)
                continue; // the reference sets have the other scale
            const Direct direct = DirectSums(shape.X, shape.Y, power);
            for (std::size_t m = 0; m < 7; ++m) {
                const std::string what =
                    shape.Name + " N " + std::to_string(n) + " row " + std::to_string(m + 1);
                const double rg = static_cast<double>(direct.Rg[m]), se = static_cast<double>(direct.SE[m]);
                EXPECT_NEAR(result.Rg[m], rg, 1e-9 * std::fabs(rg) + 1e-13) << what;
                EXPECT_NEAR(result.SE[m], se, 1e-9 * se + 1e-13) << what;
            }
        }
}

TEST(GeneralizedConcordance, FiniteForDegenerateSamples) {
    ForDegenerateSamples([](const DegenerateSample& sample) {
        for (double power : {1.5, 0.01, 3.0, -1.0, std::nan("")}) {
            const GeneralizedConcordanceResult result = GeneralizedConcordance(sample.X, sample.Y, power);
            for (std::size_t i = 0; i < 7; ++i)
                ASSERT_TRUE(std::isfinite(result.Rg[i]) && std::isfinite(result.SE[i]) &&
                            std::isfinite(result.Lower[i]) && std::isfinite(result.Upper[i]))
                    << "sample " << sample.Round << " row " << i + 1 << " power " << power;
        }
    });
}

} // namespace

} // namespace corvane::stats::test
