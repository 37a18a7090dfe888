#include "generator/copula_pairs.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace corvane {
namespace {

using Uniforms = std::vector<double>;
constexpr CopulaFamily families[] = {CopulaFamily::Frank, CopulaFamily::Clayton};

Uniforms Draw(std::uint64_t seed, std::size_t count) {
    std::mt19937_64 generator(seed);
    Uniforms values(count);
    for (double& value : values)
        value = (static_cast<double>(generator() >> 12) + 0.5) * 0x1p-52;
    return values;
}

Uniforms Partners(const Uniforms& U, const Uniforms& V, double r, CopulaFamily family) {
    Uniforms W(U.size());
    GenerateCopulaPairs(U, V, W, r, family);
    return W;
}

// tests/generator/reference.py: Hoeffding's formula instead of the expectation.
TEST(CopulaParameter, GivesNormalMarginsTheirCorrelation) {
    struct Case {
        double r, frank, clayton;
    };
    for (const auto& [r, frank, clayton] : {Case{0.001, 0.0062831887072, 0.0012265184633},
                                            {0.1, 0.63178321106, 0.13044922867},
                                            {0.5, 3.6889654723, 1.0061278975},
                                            {0.9, 15.93954076, 6.7983278577},
                                            {0.99, 93.299295096, 48.732328052},
                                            {0.999, 596.267608, 325.63928439}}) {
        EXPECT_NEAR(CopulaParameter(CopulaFamily::Frank, r), frank, 1e-10 + 1e-8 * frank) << r;
        EXPECT_NEAR(CopulaParameter(CopulaFamily::Clayton, r), clayton, 1e-10 + 1e-8 * clayton) << r;
    }
}

// P(W < q | U < q) tends to 2^(-1/t) as q does to 0; at q = 0.001 and this t it is 0.00024 above.
TEST(GenerateCopulaPairs, ClaytonsLowerTailDependence) {
    const Uniforms U = Draw(3, 1'000'000), V = Draw(4, U.size());
    const Uniforms W = Partners(U, V, 0.5, CopulaFamily::Clayton);
    const double limit = std::exp2(-1 / 1.0061278975);
    double low = 0, both = 0;
    for (std::size_t i = 0; i < U.size(); ++i)
        if (U[i] < 0.001) {
            ++low;
            both += W[i] < 0.001 ? 1 : 0;
        }
    EXPECT_NEAR(both / low, limit, 5 * std::sqrt(limit * (1 - limit) / low));
}

TEST(GenerateCopulaPairs, IndependenceGivesV) {
    const Uniforms U = Draw(5, 1000), V = Draw(6, 1000);
    for (const CopulaFamily family : families) {
        EXPECT_EQ(Partners(U, V, 0, family), V);
        const Uniforms W = Partners(U, V, 1e-8, family);
        for (std::size_t i = 0; i < W.size(); ++i)
            EXPECT_NEAR(W[i], V[i], 1e-6);
    }
}

TEST(GenerateCopulaPairs, StaysInsideTheUnitIntervalAndRisesWithV) {
    Uniforms edges = {SmallestUniform, 1e-12, 1e-3, 0.3};
    for (std::size_t i = edges.size(); i-- > 0;)
        edges.push_back(1 - edges[i]);
    Uniforms U, V;
    for (const double u : edges)
        for (const double v : edges) {
            U.push_back(u);
            V.push_back(v);
        }
    for (const CopulaFamily family : families)
        for (const double r : {1e-300, 0.5, 0.999, 1 - 1e-12}) {
            const Uniforms W = Partners(U, V, r, family);
            for (std::size_t i = 0; i < W.size(); ++i) {
                EXPECT_TRUE(W[i] > 0 && W[i] < 1) << r << " " << U[i] << " " << V[i];
                EXPECT_TRUE(i % edges.size() == 0 || W[i] >= W[i - 1]) << r << " " << U[i] << " " << V[i];
            }
        }
}

} // namespace
} // namespace corvane
