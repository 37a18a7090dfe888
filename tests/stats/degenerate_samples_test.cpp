#include "stats/degenerate_samples.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <source_location>
#include <string>

#include <gtest/gtest.h>

#include "stats/correlation.h"
#include "stats/distances.h"
#include "stats/edf_normality.h"
#include "stats/error_measures.h"
#include "stats/generalized_concordance.h"
#include "stats/intercept_slope_test.h"
#include "stats/kendall.h"
#include "stats/line_family.h"
#include "stats/line_fits.h"
#include "stats/median_fit.h"
#include "stats/moment_statistics.h"
#include "stats/moments.h"
#include "stats/normality.h"
#include "stats/pair_statistics.h"
#include "stats/ranks.h"
#include "stats/residual_statistics.h"
#include "stats/robust_scale.h"
#include "stats/two_sample_ranks.h"
#include "stats/two_sample_tests.h"

namespace corvane::stats::test {

namespace {

using Values = std::vector<double>;
constexpr double largest = std::numeric_limits<double>::max();

/// Runs every routine and collects every number that it returns, the three goodnesses of fit Q last.
Values EveryResult(const Values& x, const Values& y, const Values& sdx, const Values& sdy) {
    Values all, goodness;
    const auto add = [&](const auto& values) { all.insert(all.end(), values.begin(), values.end()); };
    const auto take = [&](std::initializer_list<double> values) { add(values); };
    const PairSummary p = PairStatistics(x, y);
    take({p.MeanX, p.MeanY, p.VarX, p.VarY, p.MeanDiff, p.VarDiff, p.CovXY});
    const MeanVarianceResult m = MeanVariance(x);
    take({m.Mean, m.Variance});
    const MedianFit median = FitMedian(x, y);
    take({median.a, median.b, median.AbsDev, median.Chi2});
    const LineFamily family = FitLineFamily(x, y);
    add(family.A), add(family.B), add(family.SDA), add(family.SDB);
    const Pearson r = PearsonCorrelation(x, y);
    take({r.r, r.T, r.P, r.RSquared, r.AdjRSquared});
    const ErrorMeasures e = DiverseStatistics(x, y, p.MeanX, p.MeanY);
    take({e.RSquared, e.MeanBias, e.MAE, e.MAPE, e.MSEP, e.VarMSEP, e.MEF, e.MaxError, e.CD});
    add(e.MSEPParts);
    LineFit median2;
    median2.a = median.a, median2.b = median.b;
    for (const LineFit& line : {FitLine(x, y), FitLineXYErrors(x, y, sdx, sdy), median2}) {
        take({line.a, line.b, line.SDa, line.SDb, line.Chi2});
        goodness.push_back(line.Q);
        const Residuals d = ResidualStatistics(line.a, line.b, x, y, p.VarX, p.MeanX, p.MeanY);
        for (const Values& column :
             {d.Deviation, d.Fitted, d.Residue, d.SERes, d.StdtRes, d.RStdtRes, d.Leverage, d.CookD, d.DFFITS,
              d.NormRes, d.PRESS, d.SemiStdtR, d.WtDev}) {
            EXPECT_EQ(column.size(), std::min(x.size(), y.size()));
            add(column);
        }
        take({d.MSE});
        const ResistantFit resistant = ResistantRSquared(y, p.MeanY, d.Fitted);
        take({resistant.ResistantR2, resistant.AdjResistantR2});
        const InterceptSlopeTest f = FTestInterceptSlope(x, y, line.a, line.b, p.MeanX, p.MeanY);
        take({f.F1, f.P1, f.F2, f.P2});
    }
    add(goodness);
    return all;
}

void ExpectWithin(double low, double high, std::initializer_list<double> values,
                  std::source_location where = std::source_location::current()) {
    for (const double value : values)
        ASSERT_TRUE(value >= low && value <= high) << value << " of line " << where.line();
}

void CheckSample(const Values& s) {
    const auto [low, high] = std::minmax_element(s.begin(), s.end());
    const bool spread = !s.empty() && *low < *high;
    const MomentStatisticsResult m = MomentStatistics(s);
    ExpectWithin(-largest, largest, {m.Median, m.Skewness, m.Kurtosis});
    ExpectWithin(m.Min, m.Max, {m.Mean});
    ExpectWithin(0, largest, {m.SD, m.Variance, RobustSn(s), RobustQn(s)});
    ExpectWithin(std::fabs(m.Mean) / (1 + 1e-15), largest, {m.AbsMean}); // two roundings apart
    const ShapiroWilkResult w = ShapiroWilk(s);
    const EDFResult e = EDFNormalityStatistics(s);
    ExpectWithin(0, 1 + 1e-15, {w.W, w.P, e.D, e.V, e.PW2, e.PU2, e.PA2});
    ExpectWithin(0, 1e3, {e.W2, e.U2, e.A2});
    if (std::ranges::all_of(s, [](double value) { return std::isfinite(value); })) {
        ASSERT_EQ(w.W > 0, spread && s.size() > 2);
        ASSERT_EQ(e.D > 0, spread);
        ExpectWithin(w.W > 0 ? 0 : 1, 1, {w.P});
        ExpectWithin(spread ? 0 : 1, 1, {e.PW2, e.PU2, e.PA2});
    }
}

void CheckPair(const Values& x, const Values& y, double order) {
    const SpearmanResult s = SpearmanRank(x, y, x.size() % 2 != 0);
    const KendallResult k = KendallTau(x, y);
    const KolmogorovSmirnovResult ks = KolmogorovSmirnov2(x, y);
    const MannWhitneyResult mw = MannWhitney(x, y);
    ExpectWithin(-largest, largest, {s.D, s.Z, s.T, k.Z, mw.Z});
    ExpectWithin(-1, 1, {s.rs, k.Tau, mw.WD});
    ExpectWithin(0, 1, {s.P, s.P2, k.P, ks.D, ks.P, 2 * mw.OneSidedP});
    for (const auto test : {TTestEqualVariance, TTestUnequalVariance, TTestPairedCovariance,
                            TTestPairedDifference, FTestVariance}) {
        const TestResult result = test(y, x, {}), swapped = test(x, y, {});
        ExpectWithin(-largest, largest, {result.Statistic});
        ExpectWithin(0, 1, {result.P});
        ASSERT_TRUE(test == FTestVariance || result.Statistic == -swapped.Statistic);
    }
    const Distances d = DistanceMeasures(x, y, order);
    ExpectWithin(0, largest, {d.Euclidean, d.Minkowski, d.KullbackLeibler});
    ExpectWithin(0, 1 + 1e-15, {d.Czekanowski, d.Canberra / (1.0 + static_cast<double>(x.size()))});
    for (const double power : {1.5, 0.01, 3.0, -1.0, std::nan("")}) {
        const GeneralizedConcordanceResult g = GeneralizedConcordance(x, y, power);
        for (std::size_t i = 0; i < 7; ++i)
            ExpectWithin(-largest, largest, {g.Rg[i], g.SE[i], g.Lower[i], g.Upper[i]});
    }
}

TEST(DegenerateSamples, GiveFiniteResults) {
    ForDegenerateSamples([](const DegenerateSample& sample) {
        SCOPED_TRACE("round " + std::to_string(sample.Round));
        const Values all = EveryResult(sample.X, sample.Y, sample.SDX, sample.SDY);
        for (std::size_t k = 0; k < all.size(); ++k)
            ASSERT_TRUE(std::isfinite(all[k])) << "result " << k;
        Values longer = sample.X;
        longer.insert(longer.end(), sample.SDX.begin(), sample.SDX.end());
        CheckSample(sample.X);
        CheckSample(sample.Y);
        CheckPair(sample.X, sample.Y, sample.Round % 8 == 0 ? 1e-3 : sample.Round % 8);
        CheckPair(longer, sample.SDY, 3);
    });
}

TEST(DegenerateSamples, WithoutDefiniteNumbersGiveFiniteResultsToo) {
    const double infinity = std::numeric_limits<double>::infinity(), none = std::nan("");
    const Values x = {1, none, infinity, 4}, y = {-infinity, 2, 3, none};
    for (double result : EveryResult(x, y, {none, 1, 0, -1}, {1, infinity, 1, 1}))
        EXPECT_TRUE(std::isfinite(result));
    CheckSample(x);
    CheckSample(y);
    for (const double order : {0.3, 7.0, 1e-300, 1e300, infinity})
        CheckPair(x, y, order);
}

TEST(DegenerateSamples, SaturateByOneRule) {
    const Values rising = {1, 2, 4, 5}, same = {3, 3, 3, 3}, noisy = {1, 3, 2, 5}, ones = {1, 1, 1, 1};
    const auto expect = [](double expected, std::initializer_list<double> values) {
        for (const double value : values)
            EXPECT_EQ(value, expected);
    };
    const LineFit line = FitLine(same, noisy), errors = FitLineXYErrors(same, noisy, ones, ones);
    expect(2.75, {line.a, errors.a});
    expect(0, {line.b, errors.b});
    expect(largest, {line.SDa, line.SDb, errors.SDb});
    const Pearson none = PearsonCorrelation(same, noisy);
    EXPECT_EQ(none.r, 0.0);
    EXPECT_EQ(none.P, 1.0);
    const Pearson whole = PearsonCorrelation({{1, 2, 4}}, {{-3, -6, -12}}); // means of 7/3 and -7
    EXPECT_EQ(whole.r, -1.0);
    EXPECT_EQ(whole.AdjRSquared, 1.0);
    expect(-largest, {whole.T, DiverseStatistics(rising, same, 3, 3).MEF,
                      ResistantRSquared(same, 3, rising).ResistantR2});
    expect(0, {whole.P, DiverseStatistics(rising, {{0, 0, 0, 0}}, 3, 0).MAPE,
               ResistantRSquared(same, 3, same).ResistantR2});
    const LineFamily uncorrelated = FitLineFamily({{-1, 0, 0, 1}}, {{0, 2, -2, 0}});
    EXPECT_EQ(uncorrelated.B, (std::array<double, 6>{0, largest, 1, largest, 2, largest}));
    EXPECT_EQ(FitLineFamily(rising, same).SDB, (std::array<double, 6>{}));
    EXPECT_EQ(PairStatistics({{1e308, -1e308}}, {{0, 0}}).VarX, largest);
    EXPECT_EQ(FTestInterceptSlope(rising, rising, 0, 1, 3, 3).P1, 1.0);
    // A line is a line, and equal differences are equal, also far from zero.
    const Values far = {1e9, 1e9 + 1, 1e9 + 6}, onLine = {3e9 + 1, 3e9 + 4, 3e9 + 19};
    expect(0, {FitLine(far, onLine).Chi2, FitLine(far, onLine).SDa,
               PairStatistics({{0, 7, 28}}, {{5, 12, 33}}).VarDiff});
    expect(largest,
           {PearsonCorrelation(far, onLine).T, FTestInterceptSlope(rising, {{2, 3, 5, 6}}, 1, 1, 3, 4).F2});
}

TEST(DegenerateSamples, HaveResidualsOfTheirOwn) {
    // A pair of leverage 1: its residual is 0, but for rounding, whatever it is divided by.
    for (std::size_t n = 4; n < 40; ++n) {
        Values stack(n, 0.1), over(n, 0.3);
        stack[0] = 0.7, over[0] = 3.1, over[1] = 1.1;
        const LineFit lever = FitLine(stack, over);
        const Residuals alone = ResidualStatistics(lever.a, lever.b, stack, over, 0, 0, 0);
        EXPECT_EQ(alone.Leverage[0], 1.0);
        for (const double value : {alone.SERes[0], alone.StdtRes[0], alone.CookD[0]})
            EXPECT_EQ(value, 0.0);
    }
    // One pair off a line through all others: nothing is left when it is taken out.
    const Values x = {1, 2, 3, 4, 5, 6}, y = {1, 2, 3, 10, 5, 6};
    const LineFit fit = FitLine(x, y);
    const Residuals outlier = ResidualStatistics(fit.a, fit.b, x, y, 3.5, 3.5, 4.5);
    EXPECT_EQ(outlier.RStdtRes[3], largest);
    EXPECT_EQ(outlier.DFFITS[3], largest);
    // Points on the line 0.1 + 0.3 x to the last digit: no residual but rounding.
    Values line;
    for (double value : x)
        line.push_back(0.1 + 0.3 * value);
    const LineFit exact = FitLine(x, line);
    const Residuals zero = ResidualStatistics(exact.a, exact.b, x, line, 3.5, 3.5, 1.15);
    EXPECT_EQ(zero.StdtRes, Values(6, 0.0));
    EXPECT_EQ(zero.NormRes, Values(6, 0.0));
    // Residuals of 1 and -1 in turn, which the rounding of 0.1 and 0.3 tells apart: ranks are means all the
    // same.
    for (std::size_t i = 0; i < line.size(); ++i)
        line[i] += i % 2 == 0 ? 1.0 : -1.0;
    const Residuals tied = ResidualStatistics(0.1, 0.3, x, line, 3.5, 3.5, 1.15);
    const double high = tied.NormRes[0];
    EXPECT_EQ(tied.NormRes, (Values{high, -high, high, -high, high, -high}));
}

TEST(DegenerateSamples, FollowPowersOfTwo) {
    const Values x = {1.25, 3, 4.5, 8, 9, 12}, y = {2, 2.5, 6, 7, 11, 10}, sd = {1, 0.5, 2, 1, 0.25, 1};
    const Values ofOrder = EveryResult(x, y, sd, sd);
    for (int power : {-250, 250}) {
        const auto scaled = [&](Values values) {
            for (double& value : values)
                value = std::ldexp(value, power);
            return values;
        };
        const Values other = EveryResult(scaled(x), scaled(y), scaled(sd), scaled(sd));
        for (std::size_t k = 0; k + 3 < ofOrder.size(); ++k) { // all but Q: a unit, its powers, a pure number
            bool follows = false;
            for (int unit : {0, 1, 2, 4})
                follows = follows || other[k] == std::ldexp(ofOrder[k], unit * power);
            EXPECT_TRUE(follows) << power << " result " << k << ": " << other[k] << " from " << ofOrder[k];
        }
    }
}

} // namespace

} // namespace corvane::stats::test
