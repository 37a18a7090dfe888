#include "stats/ranks.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

#include "degenerate_samples.h"
#include "reference_data.h"
#include "stats/kendall.h"

namespace corvane::stats::test {

namespace {

void ExpectSpearman(const SpearmanResult& result, const nlohmann::json& expected, const std::string& name) {
    const Tolerance pure{1e-11, 1e-13};
    ExpectClose(result.D, expected["D"], {0, 0}, name + " D");
    ExpectClose(result.Z, expected["Z"], pure, name + " Z");
    ExpectClose(result.P, expected["P"], {1e-11, 0}, name + " P");
    ExpectClose(result.rs, expected["rs"], pure, name + " rs");
    ExpectClose(result.T, expected["T"], {name == "norris" ? 1e-10 : 1e-11, 1e-13}, name + " T");
    ExpectClose(result.P2, expected["P2"], {1e-11, 0}, name + " P2");
}

TEST(Ranks, ReferenceValues) {
    for (const ReferenceSet& set : ReferenceSets()) {
        if (!set.Has("SpearmanRank"))
            continue;
        const nlohmann::json& expected = set.Values.at("SpearmanRank");
        const SpearmanResult spearman = SpearmanRank(set.X, set.Y);
        ExpectSpearman(spearman, expected, set.Name);
        ExpectClose(spearman.RankX, expected["RX"], {0, 0}, set.Name + " RX");
        ExpectClose(spearman.RankY, expected["RY"], {0, 0}, set.Name + " RY");
        EXPECT_EQ(spearman.Order.back(), static_cast<double>(set.X.size()));
        ExpectSpearman(SpearmanRank(set.X, set.Y, true), expected["InvertX"], set.Name);
        ExpectSpearman(SpearmanRank(set.X, set.Y, false, true), expected["InvertX"], set.Name);
        ExpectSpearman(SpearmanRank(set.X, set.Y, true, true), expected, set.Name);

        const nlohmann::json& tau = set.Values.at("KendallTau");
        const KendallResult kendall = KendallTau(set.X, set.Y);
        ExpectClose(kendall.Tau, tau["Tau"], {1e-11, 1e-13}, set.Name + " Tau");
        ExpectClose(kendall.Z, tau["Z"], {1e-11, 1e-13}, set.Name + " Z");
        ExpectClose(kendall.P, tau["P"], {1e-11, 0}, set.Name + " P");
    }
}

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

TEST(Ranks, ExtremesStayFinite) {
    ForDegenerateSamples([](const DegenerateSample& sample) {
        const SpearmanResult spearman = SpearmanRank(sample.X, sample.Y, sample.Round % 2 != 0);
        const KendallResult kendall = KendallTau(sample.X, sample.Y);
        for (double value : {spearman.D, spearman.Z, spearman.T, kendall.Z})
            ASSERT_TRUE(std::isfinite(value)) << sample.Round;
        for (double correlation : {spearman.rs, kendall.Tau})
            ASSERT_LE(std::fabs(correlation), 1.0) << sample.Round;
        for (double P : {spearman.P, spearman.P2, kendall.P})
            ASSERT_TRUE(P >= 0.0 && P <= 1.0) << sample.Round;
    });
    const double nan = std::nan("");
    EXPECT_EQ(SpearmanRank(std::vector{nan, 1.0, -1.0}, std::vector{0.0, 2.0, -2.0, 5.0}).rs, 1.0);
    EXPECT_EQ(KendallTau(std::vector{nan, 1.0, -1.0}, std::vector{0.0, 2.0, -2.0, 5.0}).Tau, 1.0);
}

} // namespace

} // namespace corvane::stats::test
