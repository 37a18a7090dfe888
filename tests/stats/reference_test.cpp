#include <gtest/gtest.h>

#include "reference_data.h"
#include "stats/correlation.h"
#include "stats/error_measures.h"
#include "stats/intercept_slope_test.h"
#include "stats/line_family.h"
#include "stats/line_fits.h"
#include "stats/median_fit.h"
#include "stats/moments.h"
#include "stats/pair_statistics.h"
#include "stats/residual_statistics.h"

// Every routine on every data set against values of 50 digits; tests/data/README.md has their provenance and
// the tolerances used here.
namespace corvane::stats::test {

namespace {

template<class Body>
void OnSetsWith(const std::string& routine, Body body) {
    int sets = 0;
    for (const ReferenceSet& set : ReferenceSets()) {
        if (!set.Has(routine))
            continue;
        SCOPED_TRACE(set.Name + " " + routine);
        body(set, set.Values[routine]);
        ++sets;
    }
    EXPECT_GT(sets, 0) << routine;
}

TEST(Reference, PairStatistics) {
    OnSetsWith("PairStatistics", [](const ReferenceSet& set, const nlohmann::json& expected) {
        const PairSummary pairs = PairStatistics(set.X, set.Y);
        const Tolerance unit{1e-12, 1e-13 * set.Spread}, square{1e-12, 1e-13 * set.Spread * set.Spread};
        ExpectClose(pairs.MeanX, expected["MeanX"], unit, "MeanX");
        ExpectClose(pairs.MeanY, expected["MeanY"], unit, "MeanY");
        ExpectClose(pairs.MeanDiff, expected["MeanDiff"], unit, "MeanDiff");
        ExpectClose(pairs.VarX, expected["VarX"], {1e-12, 0}, "VarX");
        ExpectClose(pairs.VarY, expected["VarY"], {1e-12, 0}, "VarY");
        ExpectClose(pairs.VarDiff, expected["VarDiff"], square, "VarDiff");
        ExpectClose(pairs.CovXY, expected["CovXY"], square, "CovXY");
        const MeanVarianceResult one = MeanVariance(set.Y);
        ExpectClose(one.Mean, expected["MeanY"], unit, "MeanVariance.Mean");
        ExpectClose(one.Variance, expected["VarY"], {1e-12, 0}, "MeanVariance.Variance");
    });
    // Two samples of which the doubles themselves have a known SD.
    const ReferenceSet& set = Reference("numacc34");
    for (const auto& [sample, column] : {std::pair{set.X, "X"}, std::pair{set.Y, "Y"}}) {
        const nlohmann::json& expected = set.Values.at("MomentStatistics").at(column);
        ExpectClose(MeanVariance(sample).Mean, expected["Mean"], {1e-15, 0}, "NumAcc mean");
        ExpectClose(MeanVariance(sample).Variance, expected["Variance"], {1e-12, 0}, "NumAcc variance");
    }
}

void ExpectLine(const LineFit& fit, const nlohmann::json& expected, double spread, double relative,
                double sds) {
    ExpectClose(fit.a, expected["a"], {relative, 1e-13 * spread}, "a");
    ExpectClose(fit.b, expected["b"], {relative, 1e-13}, "b");
    ExpectClose(fit.SDa, expected["SDa"], {sds, 1e-13 * spread}, "SDa");
    ExpectClose(fit.SDb, expected["SDb"], {sds, 1e-13}, "SDb");
    ExpectClose(fit.Chi2, expected["Chi2"], {relative, 1e-13 * spread * spread}, "Chi2");
    ExpectClose(fit.Q, expected["Q"], {relative, 1e-13}, "Q");
}

TEST(Reference, FitLine) {
    OnSetsWith("FitLine", [](const ReferenceSet& set, const nlohmann::json& expected) {
        ExpectLine(FitLine(set.X, set.Y), expected, set.Spread, 1e-11, 1e-11);
    });
    // Certified values of the NIST Statistical Reference Datasets; the doubles nearest to the data move the
    // last two digits.
    const ReferenceSet& norris = Reference("norris");
    const nlohmann::json certified = {{"a", -0.262323073774029},  {"b", 1.00211681802045},
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
                   [&, x = ignoreX, y = ignoreY](const ReferenceSet& set, const nlohmann::json& expected) {
                       const LineFit line = fit(set, x, y);
                       ExpectLine(line, expected, set.Spread, 1e-10, 1e-9);
                       // Small ones too: an SD of 1e-31 carries no absolute tolerance, nor does Q.
                       ExpectClose(line.SDb, expected["SDb"], {1e-9, 0}, "SDb");
                       ExpectClose(line.Q, expected["Q"], {1e-10, 0}, "Q");
                   });
    OnSetsWith(
        "FTestInterceptSlope_FitLineXYErrors", [&](const ReferenceSet& set, const nlohmann::json& expected) {
            const LineFit line = fit(set, false, false);
            const InterceptSlopeTest test = FTestInterceptSlope(set.X, set.Y, line.a, line.b, 0.0, 0.0);
            ExpectClose(test.F1, expected["F1"], {1e-10, 0}, "F1");
            ExpectClose(test.P1, expected["P1"], {1e-10, 0}, "P1");
            ExpectClose(test.F2, expected["F2"], {1e-10, 0}, "F2");
            ExpectClose(test.P2, expected["P2"], {1e-10, 0}, "P2");
        });
}

TEST(Reference, FitMedian) {
    OnSetsWith("FitMedian", [](const ReferenceSet& set, const nlohmann::json& expected) {
        const MedianFit fit = FitMedian(set.X, set.Y);
        const double n = static_cast<double>(set.X.size());
        ExpectClose(fit.AbsDev, expected["AbsDev"], {1e-12, 1e-15 * set.Spread}, "AbsDev");
        if (set.Name != "offset9") { // the doubles nearest to its a and b miss the line by 6e-8
            double sum = 0.0;
            for (std::size_t i = 0; i < set.X.size(); ++i)
                sum += std::fabs(set.Y[i] - (fit.a + fit.b * set.X[i]));
            ExpectClose(sum, expected["SumAbs"], {1e-12, 1e-13 * set.Spread * n}, "SumAbs");
        }
        if (!expected.contains("a"))
            return;
        ExpectClose(fit.a, expected["a"], {1e-12, 1e-13 * set.Spread}, "a");
        ExpectClose(fit.b, expected["b"], {1e-12, 1e-13}, "b");
        ExpectClose(fit.Chi2, expected["Chi2"], {1e-12, 1e-13 * set.Spread * set.Spread}, "Chi2");
    });
}

TEST(Reference, FitLineFamily) {
    OnSetsWith("FitLineFamily", [](const ReferenceSet& set, const nlohmann::json& expected) {
        const LineFamily family = FitLineFamily(set.X, set.Y);
        ExpectClose(family.A, expected["A"], {1e-10, 1e-13 * set.Spread}, "A");
        ExpectClose(family.B, expected["B"], {1e-10, 1e-13}, "B");
        ExpectClose(family.SDA, expected["SDA"], {1e-10, 1e-13 * set.Spread}, "SDA");
        ExpectClose(family.SDB, expected["SDB"], {1e-10, 1e-13}, "SDB");
    });
}

TEST(Reference, Correlation) {
    OnSetsWith("PearsonCorrelation", [](const ReferenceSet& set, const nlohmann::json& expected) {
        const Pearson pearson = PearsonCorrelation(set.X, set.Y);
        const bool norris = set.Name == "norris";
        ExpectClose(pearson.r, expected["r"], {1e-11, 1e-13}, "r");
        ExpectClose(pearson.T, expected["T"], {norris ? 1e-9 : 1e-11, 1e-13}, "T");
        ExpectClose(pearson.P, expected["P"], {norris ? 1e-7 : 1e-11, 0}, "P");
        ExpectClose(pearson.RSquared, expected["RSquared"], {1e-11, 1e-13}, "RSquared");
        ExpectClose(pearson.AdjRSquared, expected["AdjRSquared"], {1e-11, 1e-13}, "AdjRSquared");
    });
    OnSetsWith("ResistantRSquared", [](const ReferenceSet& set, const nlohmann::json& expected) {
        const LineFit line = FitLine(set.X, set.Y);
        std::vector<double> fitted;
        for (double x : set.X)
            fitted.push_back(line.a + line.b * x);
        const ResistantFit fit = ResistantRSquared(set.Y, MeanVariance(set.Y).Mean, fitted);
        const Tolerance tolerance{set.Name == "offset9" ? 1e-9 : 1e-11, 1e-13}; // a of 2.8e8 as a double
        ExpectClose(fit.ResistantR2, expected["ResistantR2"], tolerance, "ResistantR2");
        ExpectClose(fit.AdjResistantR2, expected["AdjResistantR2"], tolerance, "AdjResistantR2");
    });
}

TEST(Reference, DiverseStatistics) {
    OnSetsWith("DiverseStatistics", [](const ReferenceSet& set, const nlohmann::json& expected) {
        const double meanX = MeanVariance(set.X).Mean, meanY = MeanVariance(set.Y).Mean;
        const ErrorMeasures measures = DiverseStatistics(set.X, set.Y, meanX, meanY);
        const double spread = set.Spread, square = spread * spread;
        ExpectClose(measures.RSquared, expected["RSquared"], {1e-11, 1e-13}, "RSquared");
        ExpectClose(measures.MeanBias, expected["MeanBias"], {1e-11, 1e-13 * spread}, "MeanBias");
        ExpectClose(measures.MAE, expected["MAE"], {1e-11, 1e-13 * spread}, "MAE");
        ExpectClose(measures.MAPE, expected["MAPE"], {1e-11, 0}, "MAPE");
        ExpectClose(measures.MSEP, expected["MSEP"], {1e-11, 0}, "MSEP");
        ExpectClose(measures.VarMSEP, expected["VarMSEP"], {1e-11, 0}, "VarMSEP");
        std::vector<double> difference;
        for (std::size_t i = 0; i < set.X.size(); ++i)
            difference.push_back(set.Y[i] - set.X[i]);
        const SquaredError alone = MeanSquaredError(difference);
        EXPECT_EQ(alone.MSEP, measures.MSEP);
        EXPECT_EQ(alone.VarMSEP, measures.VarMSEP);
        const bool norris = set.Name == "norris", mtcars = set.Name == "mtcars_fit";
        double partsOfTwo = 0.0, partsOfThree = 0.0;
        for (std::size_t i = 0; i < 5; ++i) {
            const bool loose = (norris && (i == 2 || i == 4)) || (mtcars && i == 3);
            ExpectClose(measures.MSEPParts[i], expected["MSEPParts"][i],
                        {loose ? 1e-9 : 1e-11, 1e-13 * square}, "MSEPParts");
            partsOfTwo += i < 3 ? measures.MSEPParts[i] : 0.0;
            partsOfThree += i == 0 || i > 2 ? measures.MSEPParts[i] : 0.0;
        }
        EXPECT_NEAR(partsOfTwo, measures.MSEP, 1e-13 * measures.MSEP);
        EXPECT_NEAR(partsOfThree, measures.MSEP, 1e-13 * measures.MSEP);
        ExpectClose(measures.MEF, expected["MEF"], {1e-11, 1e-13}, "MEF");
        ExpectClose(measures.MaxError, expected["MaxError"], {1e-11, 0}, "MaxError");
        ExpectClose(measures.CD, expected["CD"], {1e-11, 1e-13}, "CD");
    });
}

TEST(Reference, ResidualStatistics) {
    OnSetsWith("ResidualStatistics", [](const ReferenceSet& set, const nlohmann::json& expected) {
        const LineFit line = FitLine(set.X, set.Y);
        const PairSummary pairs = PairStatistics(set.X, set.Y);
        const Residuals result =
            ResidualStatistics(line.a, line.b, set.X, set.Y, pairs.VarX, pairs.MeanX, pairs.MeanY);
        const bool offset = set.Name == "offset9"; // the doubles a and b leave seven digits
        const double absolute = offset ? 1e-6 : 1e-13;
        const Tolerance unit{1e-11, offset ? 1e-6 : 1e-13 * set.Spread}, pure{1e-11, absolute},
            loose{1e-10, absolute};
        ExpectClose(result.MSE, expected["MSE"], unit, "MSE");
        ExpectClose(result.Deviation, expected["Deviation"], unit, "Deviation");
        ExpectClose(result.Fitted, expected["Fitted"], unit, "Fitted");
        ExpectClose(result.Residue, expected["Residue"], unit, "Residue");
        ExpectClose(result.SERes, expected["SERes"], unit, "SERes");
        ExpectClose(result.StdtRes, expected["StdtRes"], pure, "StdtRes");
        ExpectClose(result.RStdtRes, expected["RStdtRes"], pure, "RStdtRes");
        ExpectClose(result.Leverage, expected["Leverage"], pure, "Leverage");
        ExpectClose(result.CookD, expected["CookD"], loose, "CookD");
        ExpectClose(result.DFFITS, expected["DFFITS"], loose, "DFFITS");
        ExpectClose(result.NormRes, expected["NormRes"], unit, "NormRes");
        ExpectClose(result.PRESS, expected["PRESS"], unit, "PRESS");
        ExpectClose(result.SemiStdtR, expected["SemiStdtR"], pure, "SemiStdtR");
        ExpectClose(result.WtDev, expected["WtDev"], pure, "WtDev");
    });
}

TEST(Reference, FTestInterceptSlope) {
    OnSetsWith("FTestInterceptSlope", [](const ReferenceSet& set, const nlohmann::json& expected) {
        const LineFit line = FitLine(set.X, set.Y);
        const InterceptSlopeTest test = FTestInterceptSlope(set.X, set.Y, line.a, line.b, 0.0, 0.0);
        const Tolerance tolerance = set.Name == "offset9"      ? Tolerance{1e-7, 0}
                                    : set.Name == "norris"     ? Tolerance{1e-9, 0}
                                    : set.Name == "mtcars_fit" ? Tolerance{1e-10, 1e-12}
                                                               : Tolerance{1e-10, 0};
        ExpectClose(test.F1, expected["F1"], tolerance, "F1");
        ExpectClose(test.F2, expected["F2"], tolerance, "F2");
        ExpectClose(test.P1, expected["P1"], tolerance, "P1");
        ExpectClose(test.P2, expected["P2"], tolerance, "P2");
    });
}

} // namespace

} // namespace corvane::stats::test
