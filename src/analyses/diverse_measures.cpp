#include "analyses/diverse_measures.h"

#include "analyses/prediction_comment.h"
#include "stats/two_sample_tests.h"

#include <string>

namespace corvane {
namespace {

/// What is in per cent of a mean is labelled where it is written: the label says whose mean it is.
constexpr Place places[] = {
    {"MeanBias", "bias.mean", "Mean Bias (Y - X) (MB)             : "},
    {"MeanBiasPercentOfX", "bias.mean.percent_of_x"},
    {"MeanBiasPercentOfY", "bias.mean.percent_of_y"},
    {"PercentBias", "bias.percent"},
    {"F", "variances.f", "H0: VarY = VarX, F-value           : "},
    {"P_F", "variances.p", " (P =", 10, 5, Look::Probability},
    {"T_same", "means.pooled.t", "H0: MB = 0, T-value (same var.)    : "},
    {"P_T_same", "means.pooled.p", " (P =", 10, 5, Look::Probability},
    {"T_diff", "means.welch.t", "H0: MB = 0, T-value (diff. var.)   : "},
    {"P_T_diff", "means.welch.p", " (P =", 10, 5, Look::Probability},
    {"T_cov", "means.paired_covariance.t", "H0: MB = 0, T-value (paired w/cov.): "},
    {"P_T_cov", "means.paired_covariance.p", " (P =", 10, 5, Look::Probability},
    {"T_paired", "means.paired_difference.t", "H0: MB = 0, T-value (paired diff.) : "},
    {"P_T_paired", "means.paired_difference.p", " (P =", 10, 5, Look::Probability},
    {"MAE", "error.mae", "Mean Absolute Error |Y - X| (MAE)  : "},
    {"MAEPercentOfX", "error.mae.percent_of_x"},
    {"MAEPercentOfY", "error.mae.percent_of_y"},
    {"MAPE", "error.mape", "MA%E, |Y - X|/Y                    : "},
    {"MEF", "error.mef", "MEF                                : "},
    {"CD", "error.cd", "CD                                 : "},
    {"MaxError", "error.maximum", "Maximum error = Max|Y - X|         : "},
};

/// A measure in per cent of the mean of X and of Y. What goes for a mean of zero goes for a negative one,
/// too, words included.
void WritePercentages(RunState& run, ReportSection& section, const std::string& measure,
                      const std::string& name, double value) {
    const auto write = [&](const std::string& side, const char* role, double mean) {
        const std::string label =
            AlignField(measure + ", % of " + side + " (" + role + ")", 35, AlignLeft) + ": ";
        if (mean > 0)
            run.Statement([&] { section.Row({label, {name + "PercentOf" + side, Percent(value, mean)}}); });
        else
            section.Text(label + "!! Mean " + side + " is Zero !!");
    };
    const bool swapped = IsSet(run.Options().SwapXY);
    write("X", swapped ? "Observed" : "Predicted", run.pairs.MeanX);
    write("Y", swapped ? "Predicted" : "Observed", run.pairs.MeanY);
}

void WriteTest(RunState& run, ReportSection& section, const std::string& name,
               const stats::TestResult& test) {
    run.Statement([&] { section.Row({{name, test.Statistic}, {"P_" + name, test.P}, ")"}); });
}

void Write(RunState& run) {
    const auto& [X, SDX, Y, SDY, rows, differ] = run.arrays;
    const stats::ErrorMeasures& errors = run.errors;
    ReportSection& section = run.report.BeginSection(DiverseMeasuresSection.frame);
    if (run.Comments()) {
        section.Note("!! .MEF is modeling efficiency; closer to one better it is !!");
        section.Note("!! .CD is the coefficient of model determination; closer to one better it is !!");
    }
    const auto row = [&](auto&& write) { run.Statement(write); };
    row([&] {
        section.Row({{"MeanBias", errors.MeanBias},
                     PredictionComment(run, errors.MeanBias),
                     " (Cochran and Cox, 1954)"});
    });
    WritePercentages(run, section, "Mean Bias", "MeanBias", errors.MeanBias);
    row([&] { section.Value({"PercentBias", errors.PercentBias}); });
    WriteTest(run, section, "F", stats::FTestVariance(Y, X, run.stop));
    WriteTest(run, section, "T_same", stats::TTestEqualVariance(Y, X, run.stop));
    WriteTest(run, section, "T_diff", stats::TTestUnequalVariance(Y, X, run.stop));
    WriteTest(run, section, "T_cov", stats::TTestPairedCovariance(Y, X, run.stop));
    WriteTest(run, section, "T_paired", stats::TTestPairedDifference(Y, X, run.stop));
    section.Blank();
    row([&] { section.Row({{"MAE", errors.MAE}}); });
    WritePercentages(run, section, "MAE", "MAE", errors.MAE);
    row([&] { section.Row({{"MAPE", errors.MAPE}}); });
    section.Blank();
    row([&] { section.Row({{"MEF", errors.MEF}, " (Loague and Green, 1991; Zacharias et al., 1996)"}); });
    row([&] { section.Row({{"CD", errors.CD}, " (Loague and Green, 1991; Zacharias et al., 1996)"}); });
    row([&] { section.Row({{"MaxError", errors.MaxError}}); });
}

} // namespace

const SectionDefinition DiverseMeasuresSection{
    .frame = {"diverse_measures", "DIVERSE MEASURE ANALYSES", {places}},
    .gate = {&AnalysisOptions::DIVERSE_MEASURES},
    .progress = "Mean bias...",
    .meaning = "How far the predicted values are from the observed ones, with and without the sign, and "
               "whether their means and variances differ.",
    .papers = "cochran1957; loague1991; zacharias1996",
    .write = Write,
};

} // namespace corvane
