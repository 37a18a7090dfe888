#include <fstream>
#include <gtest/gtest.h>

#include "reference_data.h"
#include "stats/contingency.h"
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

// Every routine on every data set against values of 50 digits; tests/data/README.md has their provenance and
// the tolerances used here.
namespace corvane::stats::test {

namespace {

using nlohmann::json;
constexpr Tolerance pure{1e-11, 1e-13};

TEST(Reference, PairStatistics) {
    OnSetsWith("PairStatistics", [](const ReferenceSet& set, const json& expected) {
        const PairSummary pairs = PairStatistics(set.X, set.Y);
        const MeanVarianceResult one = MeanVariance(set.Y);
        ExpectClose(expected, {1e-12, 1e-13 * set.Spread},
                    {{"MeanX", pairs.MeanX},
                     {"MeanY", pairs.MeanY},
                     {"MeanDiff", pairs.MeanDiff},
                     {"MeanY", one.Mean}});
        ExpectClose(expected, {1e-12, 0},
                    {{"VarX", pairs.VarX}, {"VarY", pairs.VarY}, {"VarY", one.Variance}});
        ExpectClose(expected, {1e-12, 1e-13 * set.Spread * set.Spread},
                    {{"VarDiff", pairs.VarDiff}, {"CovXY", pairs.CovXY}});
    });
    // Two samples of which the doubles themselves have a known SD.
    const ReferenceSet& set = Reference("numacc34");
    for (const auto& [sample, column] : {std::pair{set.X, "X"}, std::pair{set.Y, "Y"}}) {
        const json& expected = set.Values.at("MomentStatistics").at(column);
        ExpectClose(expected, {1e-15, 0}, {{"Mean", MeanVariance(sample).Mean}});
        ExpectClose(expected, {1e-12, 0}, {{"Variance", MeanVariance(sample).Variance}});
    }
}

TEST(Reference, MomentStatistics) {
    OnSamplesWith("MomentStatistics", [](const ReferenceSet& set, const auto& sample, const json& expected) {
        const MomentStatisticsResult m = MomentStatistics(sample);
        const double relative = set.Name == "numacc34" ? 1e-12 : 1e-11;
        ExpectClose(expected, {relative, 1e-13 * set.Spread},
                    {{"Mean", m.Mean}, {"Median", m.Median}, {"AbsMean", m.AbsMean}});
        ExpectClose(expected, {relative, 0}, {{"SD", m.SD}, {"Variance", m.Variance}});
        ExpectClose(expected, {0, 0}, {{"Min", m.Min}, {"Max", m.Max}});
        if (expected.contains("Skewness"))
            ExpectClose(expected, pure, {{"Skewness", m.Skewness}, {"Kurtosis", m.Kurtosis}});
    });
}

TEST(Reference, RobustScale) {
    for (const auto& [routine, scale] : {std::pair{"RobustSn", &RobustSn}, {"RobustQn", &RobustQn}})
        OnSamplesWith(routine, [&, estimate = scale](const ReferenceSet& set, const auto& sample,
                                                     const json& expected) {
            ExpectClose(estimate(sample, {}), expected, {1e-13, 1e-13 * set.Spread}, "scale");
        });
}

TEST(Reference, Normality) {
    OnSamplesWith("ShapiroWilk", [](const ReferenceSet&, const auto& sample, const json& expected) {
        const ShapiroWilkResult result = ShapiroWilk(sample);
        ExpectClose(expected, pure, {{"W", result.W}});
        ExpectClose(expected, {1e-9, 0}, {{"P", result.P}});
        EXPECT_EQ(result.IFault, 0);
    });
    OnSamplesWith(
        "EDFNormalityStatistics", [](const ReferenceSet&, const auto& sample, const json& expected) {
            const EDFResult e = EDFNormalityStatistics(sample);
            ExpectClose(expected, pure, {{"D", e.D}, {"V", e.V}, {"W2", e.W2}, {"U2", e.U2}, {"A2", e.A2}});
            ExpectClose(expected, {1e-10, 0}, {{"PW2", e.PW2}, {"PU2", e.PU2}, {"PA2", e.PA2}});
        });
}

void ExpectLine(const LineFit& fit, const json& expected, double spread, double relative, double sds) {
    ExpectClose(expected, {relative, 1e-13 * spread}, {{"a", fit.a}});
    ExpectClose(expected, {relative, 1e-13}, {{"b", fit.b}, {"Q", fit.Q}});
    ExpectClose(expected, {sds, 1e-13 * spread}, {{"SDa", fit.SDa}});
    ExpectClose(expected, {sds, 1e-13}, {{"SDb", fit.SDb}});
    ExpectClose(expected, {relative, 1e-13 * spread * spread}, {{"Chi2", fit.Chi2}});
}

TEST(Reference, FitLine) {
    OnSetsWith("FitLine", [](const ReferenceSet& set, const json& expected) {
        ExpectLine(FitLine(set.X, set.Y), expected, set.Spread, 1e-11, 1e-11);
    });
    // Certified values of the NIST Statistical Reference Datasets; the doubles nearest to the data move the
    // last two digits.
    const ReferenceSet& norris = Reference("norris");
    const json certified = {{"a", -0.262323073774029},  {"b", 1.00211681802045},
                            {"SDa", 0.232818234301152}, {"SDb", 0.429796848199937e-03},
                            {"Chi2", 26.6173985294224}, {"Q", norris.Values.at("FitLine").at("Q")}};
    ExpectLine(FitLine(norris.X, norris.Y), certified, 0.0, 1e-13, 1e-13);
}

TEST(Reference, FitLineXYErrors) {
    const auto fit = [](const ReferenceSet& set, bool ignoreX, bool ignoreY) {
        const std::vector<double> ignored(set.X.size(), 1e-30);
        return FitLineXYErrors(set.X, set.Y, ignoreX ? ignored : set.SDX, ignoreY ? ignored : set.SDY);
    };
    for (const auto& [suffix, ignoreX, ignoreY] : {std::tuple{"", false, false},
                                                   {"_sdx1e-30", true, false},
                                                   {"_sdy1e-30", false, true},
                                                   {"_both1e-30", true, true}})
        OnSetsWith(std::string("FitLineXYErrors") + suffix,
                   [&, x = ignoreX, y = ignoreY](const ReferenceSet& set, const json& expected) {
                       const LineFit line = fit(set, x, y);
                       ExpectLine(line, expected, set.Spread, 1e-10, 1e-9);
                       // Small ones too: an SD of 1e-31 carries no absolute tolerance, nor does Q.
                       ExpectClose(expected, {1e-9, 0}, {{"SDb", line.SDb}});
                       ExpectClose(expected, {1e-10, 0}, {{"Q", line.Q}});
                   });
    OnSetsWith("FTestInterceptSlope_FitLineXYErrors", [&](const ReferenceSet& set, const json& expected) {
        const LineFit line = fit(set, false, false);
        const InterceptSlopeTest test = FTestInterceptSlope(set.X, set.Y, line.a, line.b, 0.0, 0.0);
        ExpectClose(expected, {1e-10, 0},
                    {{"F1", test.F1}, {"P1", test.P1}, {"F2", test.F2}, {"P2", test.P2}});
    });
}

TEST(Reference, FitMedian) {
    OnSetsWith("FitMedian", [](const ReferenceSet& set, const json& expected) {
        const MedianFit fit = FitMedian(set.X, set.Y);
        const double n = static_cast<double>(set.X.size());
        ExpectClose(expected, {1e-12, 1e-15 * set.Spread}, {{"AbsDev", fit.AbsDev}});
        if (set.Name != "offset9") { // the doubles nearest to its a and b miss the line by 6e-8
            double sum = 0.0;
            for (std::size_t i = 0; i < set.X.size(); ++i)
                sum += std::fabs(set.Y[i] - (fit.a + fit.b * set.X[i]));
            ExpectClose(expected, {1e-12, 1e-13 * set.Spread * n}, {{"SumAbs", sum}});
        }
        if (!expected.contains("a"))
            return;
        ExpectClose(expected, {1e-12, 1e-13 * set.Spread}, {{"a", fit.a}});
        ExpectClose(expected, {1e-12, 1e-13}, {{"b", fit.b}});
        ExpectClose(expected, {1e-12, 1e-13 * set.Spread * set.Spread}, {{"Chi2", fit.Chi2}});
    });
}

TEST(Reference, FitLineFamily) {
    OnSetsWith("FitLineFamily", [](const ReferenceSet& set, const json& expected) {
        const LineFamily family = FitLineFamily(set.X, set.Y);
        ExpectClose(expected, {1e-10, 1e-13 * set.Spread}, {{"A", family.A}, {"SDA", family.SDA}});
        ExpectClose(expected, {1e-10, 1e-13}, {{"B", family.B}, {"SDB", family.SDB}});
    });
}

TEST(Reference, Correlation) {
    OnSetsWith("PearsonCorrelation", [](const ReferenceSet& set, const json& expected) {
        const Pearson pearson = PearsonCorrelation(set.X, set.Y);
        const bool norris = set.Name == "norris";
        ExpectClose(expected, pure,
                    {{"r", pearson.r}, {"RSquared", pearson.RSquared}, {"AdjRSquared", pearson.AdjRSquared}});
        ExpectClose(expected, {norris ? 1e-9 : 1e-11, 1e-13}, {{"T", pearson.T}});
        ExpectClose(expected, {norris ? 1e-7 : 1e-11, 0}, {{"P", pearson.P}});
    });
    OnSetsWith("ResistantRSquared", [](const ReferenceSet& set, const json& expected) {
        const LineFit line = FitLine(set.X, set.Y);
        std::vector<double> fitted;
        for (double x : set.X)
            fitted.push_back(line.a + line.b * x);
        const ResistantFit fit = ResistantRSquared(set.Y, MeanVariance(set.Y).Mean, fitted);
        ExpectClose(expected, {set.Name == "offset9" ? 1e-9 : 1e-11, 1e-13}, // a of 2.8e8 as a double
                    {{"ResistantR2", fit.ResistantR2}, {"AdjResistantR2", fit.AdjResistantR2}});
    });
}

TEST(Reference, DiverseStatistics) {
    OnSetsWith("DiverseStatistics", [](const ReferenceSet& set, const json& expected) {
        const double meanX = MeanVariance(set.X).Mean, meanY = MeanVariance(set.Y).Mean;
        const ErrorMeasures e = DiverseStatistics(set.X, set.Y, meanX, meanY);
        ExpectClose(expected, pure, {{"RSquared", e.RSquared}, {"MEF", e.MEF}, {"CD", e.CD}});
        ExpectClose(expected, {1e-11, 1e-13 * set.Spread}, {{"MeanBias", e.MeanBias}, {"MAE", e.MAE}});
        ExpectClose(expected, {1e-11, 0},
                    {{"PercentBias", e.PercentBias},
                     {"MAPE", e.MAPE},
                     {"MSEP", e.MSEP},
                     {"VarMSEP", e.VarMSEP},
                     {"MaxError", e.MaxError}});
        std::vector<double> difference;
        for (std::size_t i = 0; i < set.X.size(); ++i)
            difference.push_back(set.Y[i] - set.X[i]);
        const SquaredError alone = MeanSquaredError(difference);
        EXPECT_EQ(alone.MSEP, e.MSEP);
        EXPECT_EQ(alone.VarMSEP, e.VarMSEP);
        const bool norris = set.Name == "norris", mtcars = set.Name == "mtcars_fit";
        for (std::size_t i = 0; i < 5; ++i) {
            const bool loose = (norris && (i == 2 || i == 4)) || (mtcars && i == 3);
            ExpectClose(e.MSEPParts[i], expected["MSEPParts"][i],
                        {loose ? 1e-9 : 1e-11, 1e-13 * set.Spread * set.Spread}, "MSEPParts");
        }
    });
}

TEST(Reference, ResidualStatistics) {
    OnSetsWith("ResidualStatistics", [](const ReferenceSet& set, const json& expected) {
        const LineFit line = FitLine(set.X, set.Y);
        const PairSummary pairs = PairStatistics(set.X, set.Y);
        const Residuals r =
            ResidualStatistics(line.a, line.b, set.X, set.Y, pairs.VarX, pairs.MeanX, pairs.MeanY);
        const bool offset = set.Name == "offset9"; // the doubles a and b leave seven digits
        const double absolute = offset ? 1e-6 : 1e-13;
        const Tolerance unit{1e-11, offset ? 1e-6 : 1e-13 * set.Spread};
        ExpectClose(expected, unit, {{"MSE", r.MSE}, {"Deviation", r.Deviation}, {"Fitted", r.Fitted}});
        ExpectClose(expected, unit, {{"Residue", r.Residue}, {"SERes", r.SERes}, {"NormRes", r.NormRes}});
        ExpectClose(expected, unit, {{"PRESS", r.PRESS}});
        ExpectClose(expected, {1e-11, absolute}, {{"StdtRes", r.StdtRes}, {"RStdtRes", r.RStdtRes}});
        ExpectClose(expected, {1e-11, absolute}, {{"Leverage", r.Leverage}, {"SemiStdtR", r.SemiStdtR}});
        ExpectClose(expected, {1e-11, absolute}, {{"WtDev", r.WtDev}});
        ExpectClose(expected, {1e-10, absolute}, {{"CookD", r.CookD}, {"DFFITS", r.DFFITS}});
    });
}

TEST(Reference, FTestInterceptSlope) {
    OnSetsWith("FTestInterceptSlope", [](const ReferenceSet& set, const json& expected) {
        const LineFit line = FitLine(set.X, set.Y);
        const InterceptSlopeTest test = FTestInterceptSlope(set.X, set.Y, line.a, line.b, 0.0, 0.0);
        const Tolerance tolerance = set.Name == "offset9"      ? Tolerance{1e-7, 0}
                                    : set.Name == "norris"     ? Tolerance{1e-9, 0}
                                    : set.Name == "mtcars_fit" ? Tolerance{1e-10, 1e-12}
                                                               : Tolerance{1e-10, 0};
        ExpectClose(expected, tolerance,
                    {{"F1", test.F1}, {"F2", test.F2}, {"P1", test.P1}, {"P2", test.P2}});
    });
}

TEST(Reference, GeneralizedConcordance) {
    OnSetsWith("GeneralizedConcordance", [](const ReferenceSet& set, const json& expected) {
        const GeneralizedConcordanceResult result = GeneralizedConcordance(set.X, set.Y);
        ExpectClose(expected, {1e-9, 1e-13}, {{"Rg", result.Rg}});
        ExpectClose(expected, {set.Name == "norris" ? 1e-7 : 1e-9, 1e-13}, {{"SE", result.SE}});
        for (std::size_t i = 0; i < 7; ++i) {
            const Tolerance tolerance{1e-9, 1e-13 + 2e-8 * result.SE[i]};
            ExpectClose(result.Lower[i], expected["Lower"][i], tolerance, "Lower");
            ExpectClose(result.Upper[i], expected["Upper"][i], tolerance, "Upper");
        }
    });
}

TEST(Reference, Ranks) {
    OnSetsWith("SpearmanRank", [](const ReferenceSet& set, const json& expected) {
        const SpearmanResult ranks = SpearmanRank(set.X, set.Y);
        ExpectClose(expected, {0, 0}, {{"RX", ranks.RankX}, {"RY", ranks.RankY}});
        EXPECT_EQ(ranks.Order.back(), static_cast<double>(set.X.size()));
        for (const auto& [invertX, invertY] :
             {std::pair{false, false}, {true, false}, {false, true}, {true, true}}) {
            const SpearmanResult s = SpearmanRank(set.X, set.Y, invertX, invertY);
            const json& own = invertX == invertY ? expected : expected["InvertX"];
            ExpectClose(own, {0, 0}, {{"D", s.D}});
            ExpectClose(own, pure, {{"Z", s.Z}, {"rs", s.rs}});
            ExpectClose(own, {1e-11, 0}, {{"P", s.P}, {"P2", s.P2}});
            ExpectClose(own, {set.Name == "norris" ? 1e-10 : 1e-11, 1e-13}, {{"T", s.T}});
        }
    });
    OnSetsWith("KendallTau", [](const ReferenceSet& set, const json& expected) {
        const KendallResult kendall = KendallTau(set.X, set.Y);
        ExpectClose(expected, pure, {{"Tau", kendall.Tau}, {"Z", kendall.Z}});
        ExpectClose(expected, {1e-11, 0}, {{"P", kendall.P}});
    });
}

TEST(Reference, TwoSamples) {
    for (const auto& [name, test] : {std::pair{"TTestEqualVariance", &TTestEqualVariance},
                                     {"TTestUnequalVariance", &TTestUnequalVariance},
                                     {"TTestPairedCovariance", &TTestPairedCovariance},
                                     {"TTestPairedDifference", &TTestPairedDifference},
                                     {"FTestVariance", &FTestVariance}})
        OnSetsWith(name,
                   [&, run = test, isT = name[0] == 'T'](const ReferenceSet& set, const json& expected) {
                       const TestResult result = run(set.Y, set.X, {});
                       ExpectClose(expected, {1e-11, isT ? 1e-12 : 0}, {{"Statistic", result.Statistic}});
                       ExpectClose(expected, {1e-11, 0}, {{"P", result.P}});
                   });
    OnSetsWith("KolmogorovSmirnov2", [](const ReferenceSet& set, const json& expected) {
        const KolmogorovSmirnovResult ks = KolmogorovSmirnov2(set.X, set.Y);
        ExpectClose(expected, {1e-12, 0}, {{"D", ks.D}, {"NValue", ks.NValue}});
        ExpectClose(expected, {1e-11, 0}, {{"P", ks.P}});
    });
    OnSetsWith("MannWhitney", [](const ReferenceSet& set, const json& expected) {
        const MannWhitneyResult mw = MannWhitney(set.X, set.Y);
        ExpectClose(expected, {1e-12, 1e-13}, {{"WD", mw.WD}, {"Z", mw.Z}});
        ExpectClose(expected, {1e-11, 0}, {{"OneSidedP", mw.OneSidedP}});
    });
}

TEST(Reference, Distances) {
    int divergences = 0;
    OnSetsWith("DistanceMeasures", [&](const ReferenceSet& set, const json& expected) {
        for (std::size_t order = 1; order <= 7; ++order) {
            const Distances d = DistanceMeasures(set.X, set.Y, static_cast<double>(order));
            ExpectClose(d.Minkowski, expected["Minkowski"][order - 1], {1e-12, 0}, "Minkowski");
            ExpectClose(
                expected, {1e-12, 0},
                {{"Euclidean", d.Euclidean}, {"Canberra", d.Canberra}, {"Czekanowski", d.Czekanowski}});
            for (const char* key : {"KullbackLeibler", "KullbackLeibler_sums_of_positive_pairs"})
                if (expected.contains(key)) {
                    ExpectClose(expected, {1e-10, 0}, {{key, d.KullbackLeibler}});
                    ++divergences;
                }
        }
    });
    EXPECT_GT(divergences, 70);
}

TEST(Reference, ContingencyTest) {
    const json tables = json::parse(std::ifstream(CORVANE_TEST_DATA "/values.json"))["ContingencyTest"];
    ASSERT_GT(tables.size(), 10u);
    for (const json& expected : tables) {
        SCOPED_TRACE(expected.dump());
        const json& rows = expected["Table"];
        std::vector<double> cells;
        for (const auto& row : rows)
            cells.insert(cells.end(), row.begin(), row.end());
        const ContingencyResult result = ContingencyTest(cells, rows.size(), rows[0].size(), expected["p"]);
        EXPECT_EQ(result.DF, expected["DF"]);
        ExpectClose(expected, {1e-12, 0},
                    {{"X2", result.X2}, {"P", result.P}, {"V", result.V}, {"C", result.C}});
    }
}

} // namespace

} // namespace corvane::stats::test
