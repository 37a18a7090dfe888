#include "analyses/difference_regressions.h"

#include "analyses/regression.h"
#include "analyses/run_plot.h"
#include "stats/distributions.h"
#include "stats/intercept_slope_test.h"
#include "stats/sums.h"
#include "stats/two_sample_tests.h"

#include <string>

namespace corvane {
namespace {

constexpr Place kleijnenPlaces[] = {
    {"a", "kleijnen.intercept", "Estimate ß0 ± SD                       : "},
    {"SDa", "regression.intercept.sd", " ± "},
    {"b", "kleijnen.slope", "Estimate ß1 ± SD                       : "},
    {"SDb", "regression.slope.sd", " ± "},
    {"T_a", "test.intercept.t", "H0: ß0 = 0, T-value (P-value)          : "},
    {"P_a", "test.intercept.p", " (", 7, 5, Look::Probability},
    {"T_b", "test.slope_zero.t", "H0: ß1 = 0, T-value (P-value)          : "},
    {"P_b", "test.slope_zero.p", " (", 7, 5, Look::Probability},
    {"F", "kleijnen.f", "H0: ß0 = 0 & ß1 = 0, F-value (P-value) : "},
    {"P_F", "kleijnen.p", " (", 7, 5, Look::Probability},
};

constexpr Place blandAltmanPlaces[] = {
    {"a", "bland_altman.intercept", "Estimate ß0 ± SD               : "},
    {"SDa", "regression.intercept.sd", " ± "},
    {"b", "bland_altman.slope", "Estimate ß1 ± SD               : "},
    {"SDb", "regression.slope.sd", " ± "},
    {"T_a", "test.intercept.t", "H0: ß0 = 0, T-value (P-value)  : "},
    {"P_a", "test.intercept.p", " (", 7, 5, Look::Probability},
    {"T_b", "test.slope_zero.t", "H0: ß1 = 0, T-value (P-value)  : "},
    {"P_b", "test.slope_zero.p", " (", 7, 5, Look::Probability},
};

/// Estimates and t-tests of the run's line. A coefficient whose SD is 0 has no test.
void WriteCoefficients(const RunState& run, ReportSection& section) {
    const auto writeTest = [&](const std::string& name, double estimate, double sd) {
        if (!(sd > 0))
            return;
        const double t = TStatistic(estimate, sd);
        section.Row({{"T_" + name, t}, {"P_" + name, stats::TailT(t, run.N() - 2)}, ")"});
    };
    section.Row({{"a", run.a}, {"SDa", run.SDa}});
    section.Row({{"b", run.b}, {"SDb", run.SDb}});
    writeTest("a", run.a, run.SDa);
    writeTest("b", run.b, run.SDb);
}

void WriteVerdict(const RunState& run, ReportSection& section, double PF) {
    constexpr double level = 0.05;
    const auto& [X, SDX, Y, SDY, rows, differ] = run.arrays;
    double PM = 0, PV = 0;
    if (run.Options().DIVERSE_MEASURES == 0) {
        PM = stats::TTestPairedDifference(Y, X, run.stop).P;
        PV = stats::FTestVariance(Y, X, run.stop).P;
    }
    const bool positive = run.pearson.r >= 0;
    if (positive && PM >= level && PV >= level) {
        if (run.Comments())
            section.Note(PF < level ? "!! Reject H0 and conclude the model does not meet the stringent "
                                      "validation requirement !!"
                                    : "!! Fail to reject H0 and conclude the model meets the stringent "
                                      "validation requirement !!");
        return;
    }
    if (PM < level)
        section.Note("!! Stringent assumption of identical mean failed !!");
    if (PV < level)
        section.Note("!! Stringent assumption of identical variance failed !!");
    if (!(positive && run.pearson.P <= level))
        section.Note("!! Stringent assumption of positive correlation failed !!");
}

void WriteKleijnen(RunState& run) {
    const auto& [X, SDX, Y, SDY, rows, differ] = run.arrays;
    std::vector<double> differences(X.size()), sums(X.size());
    for (std::size_t i = 0; i < X.size(); ++i) {
        differences[i] = X[i] - Y[i];
        sums[i] = X[i] + Y[i];
    }
    const stats::LineFit line = stats::FitLine(sums, differences, run.stop);
    TakeLine(run, line);
    const double df = run.N() - 2;
    const auto jointF = stats::FTestZeroLine(run.errors.RMSEP * SquareRoot(run.N()), line.RootChi2, df);
    if (!jointF)
        throw RunFailure("overflow in the joint F test");
    // The distribution function itself with the degrees of freedom in this order, not the tail above F.
    const double PF = stats::ProbF(*jointF, df, 2);

    ReportSection& section = run.report.BeginSection(KleijnenSection.frame);
    section.Text("Equation: (X-Y) = ß0 + ß1×(Y+X)" + std::string(24, ' '));
    WriteCoefficients(run, section);
    section.Row({{"F", *jointF}, {"P_F", PF}, ")"});
    WriteVerdict(run, section, PF);
    OpenPlot(run, ChartKind::Kleijnen, {"Kleijnen Analysis", "Summation", "Difference"},
             ShareColumn(std::move(sums)), ShareColumn(std::move(differences)));
}

void WriteBlandAltman(RunState& run) {
    const auto& [X, SDX, Y, SDY, rows, differ] = run.arrays;
    std::vector<double> differences(X.size()), averages(X.size());
    for (std::size_t i = 0; i < X.size(); ++i) {
        differences[i] = X[i] - Y[i];
        averages[i] = (X[i] + Y.front()) / 2;
    }
    TakeLine(run, stats::FitLine(differences, averages, run.stop));

    ReportSection& section = run.report.BeginSection(BlandAltmanSection.frame);
    section.Text("Equation: (X-Y) = ß0 + ß1×(Avg(Y and X))" + std::string(24, ' '));
    WriteCoefficients(run, section);
    OpenPlot(run, ChartKind::BlandAltman, {"Bland and Altman Analysis", "Average", "Difference"},
             ShareColumn(std::move(averages)), ShareColumn(std::move(differences)));
}

} // namespace

const SectionDefinition KleijnenSection{
    .frame = {"kleijnen",
              "KLEIJNEN'S DIFFERENCE REGRESSION (Kleijnen, 1987; Kleijnen et al., 1996, 1998)",
              {kleijnenPlaces}},
    .gate = {&AnalysisOptions::KLEIJNEN_ANALYSIS, nullptr, true},
    .progress = "Kleijnen analysis...",
    .meaning =
        "Whether the differences of prediction and observation are free of a level and of a trend over "
        "their sums.",
    .papers = "kleijnen1987; kleijnen1996; kleijnen1998",
    .write = WriteKleijnen,
};

const SectionDefinition BlandAltmanSection{
    .frame = {"bland_altman",
              "BLAND AND ALTMAN'S DIFFERENCE REGRESSION (Bland and Altman, 1986)",
              {blandAltmanPlaces}},
    .gate = {&AnalysisOptions::BLAND_ALTMAN_ANALYSIS, nullptr, true},
    .progress = "Bland and Altman analysis...",
    .meaning = "Whether the differences of prediction and observation are related to the size of the values.",
    .papers = "bland1986",
    .write = WriteBlandAltman,
};

} // namespace corvane
