#include "analyses/diverse_measures.h"

#include "report/transition.h"

#include "analyses/prediction_comment.h"
#include "stats/two_sample_tests.h"

#include <string>

namespace corvane {
namespace {

/// A measure in per cent of the mean of X and of Y. What goes for a mean of zero goes for a negative one,
/// too, words included.
void WritePercentages(RunState& run, ReportSection& section, const std::string& measure,
                      const std::string& name, double value) {
    const auto write = [&](const std::string& side, const char* role, double mean) {
        const std::string label =
            AlignField(measure + ", % of " + side + " (" + role + ")", 35, AlignLeft) + ": ";
        if (mean > 0)
            run.Statement([&] {
                Line(section, label, F(10, 5, Divide(value * 100, mean)).Named(name + "PercentOf" + side));
            });
        else
            Line(section, label, "!! Mean " + side + " is Zero !!");
    };
    const bool swapped = IsSet(run.Options().SwapXY);
    write("X", swapped ? "Observed" : "Predicted", run.pairs.MeanX);
    write("Y", swapped ? "Predicted" : "Observed", run.pairs.MeanY);
}

void WriteTest(RunState& run, ReportSection& section, const char* label, const std::string& name,
               const stats::TestResult& test) {
    run.Statement([&] {
        Line(section, label, F(10, 5, test.Statistic).Named(name),
             " (P =", FP(10, 5, test.P).Named("P_" + name), ")");
    });
}

} // namespace

void WriteDiverseMeasures(RunState& run) {
    const auto& [X, SDX, Y, SDY, rows, differ] = run.arrays;
    const stats::ErrorMeasures& errors = run.errors;
    ReportSection& section = run.report.BeginSection({"diverse_measures", "DIVERSE MEASURE ANALYSES"});
    if (run.Comments()) {
        Line(section, "!! .MEF is modeling efficiency; closer to one better it is !!");
        Line(section, "!! .CD is the coefficient of model determination; closer to one better it is !!");
    }
    run.Statement([&] {
        Line(section, "Mean Bias (Y - X) (MB)             : ", F(10, 5, errors.MeanBias).Named("MeanBias"),
             PredictionComment(run, errors.MeanBias), " (Cochran and Cox, 1954)");
    });
    WritePercentages(run, section, "Mean Bias", "MeanBias", errors.MeanBias);
    WriteTest(run, section, "H0: VarY = VarX, F-value           : ", "F", stats::FTestVariance(Y, X));
    WriteTest(run, section, "H0: MB = 0, T-value (same var.)    : ", "T_same",
              stats::TTestEqualVariance(Y, X));
    WriteTest(run, section, "H0: MB = 0, T-value (diff. var.)   : ", "T_diff",
              stats::TTestUnequalVariance(Y, X));
    WriteTest(run, section, "H0: MB = 0, T-value (paired w/cov.): ", "T_cov",
              stats::TTestPairedCovariance(Y, X));
    WriteTest(run, section, "H0: MB = 0, T-value (paired diff.) : ", "T_paired",
              stats::TTestPairedDifference(Y, X));
    section.Blank();
    run.Statement(
        [&] { Line(section, "Mean Absolute Error |Y - X| (MAE)  : ", F(10, 5, errors.MAE).Named("MAE")); });
    WritePercentages(run, section, "MAE", "MAE", errors.MAE);
    run.Statement(
        [&] { Line(section, "MA%E, |Y - X|/Y                    : ", F(10, 5, errors.MAPE).Named("MAPE")); });
    section.Blank();
    run.Statement([&] {
        Line(section, "MEF                                : ", F(10, 5, errors.MEF).Named("MEF"),
             " (Loague and Green, 1991; Zacharias et al., 1996)");
    });
    run.Statement([&] {
        Line(section, "CD                                 : ", F(10, 5, errors.CD).Named("CD"),
             " (Loague and Green, 1991; Zacharias et al., 1996)");
    });
    run.Statement([&] {
        Line(section, "Maximum error = Max|Y - X|         : ", F(10, 5, errors.MaxError).Named("MaxError"));
    });
}

} // namespace corvane
