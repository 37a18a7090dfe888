#include "analyses/difference_regressions.h"

#include "analyses/regression.h"
#include "plots/point_plot.h"
#include "stats/distributions.h"
#include "stats/two_sample_tests.h"

#include <algorithm>
#include <string>

namespace corvane {
namespace {

/// Estimates and t-tests of the run's line, behind labels of one width. A coefficient whose SD is 0 has no
/// test.
void WriteCoefficients(const RunState& run, ReportSection& section, std::int32_t labelWidth) {
    const auto label = [&](const char* words) { return AlignField(words, labelWidth, AlignLeft) + ": "; };
    const auto writeTest = [&](const char* words, const std::string& name, double estimate, double sd) {
        if (!(sd > 0))
            return;
        const double t = TStatistic(estimate, sd);
        section.Line(label(words), F(10, 5, t).Named("T_" + name), " (",
                     FP(7, 5, stats::TailT(t, run.N() - 2)).Named("P_" + name), ")");
    };
    section.Line(label("Estimate ß0 ± SD"), F(10, 5, run.a).Named("a"), " ± ",
                 F(10, 5, run.SDa).Named("SDa"));
    section.Line(label("Estimate ß1 ± SD"), F(10, 5, run.b).Named("b"), " ± ",
                 F(10, 5, run.SDb).Named("SDb"));
    writeTest("H0: ß0 = 0, T-value (P-value)", "a", run.a, run.SDa);
    writeTest("H0: ß1 = 0, T-value (P-value)", "b", run.b, run.SDb);
}

/// F test of intercept and slope 0, of the roots of the sums of squares: that about the line y = 0 and that
/// of the residuals.
double JointF(double root0, double rootSSE, double df) {
    if (rootSSE <= 0)
        return 0;
    const double ratio = Divide(root0, rootSSE);
    return df / 2 * std::max(0.0, (ratio - 1) * (ratio + 1)); // negative by rounding alone
}

void WriteVerdict(const RunState& run, ReportSection& section, double PF) {
    constexpr double level = 0.05;
    const auto& [X, SDX, Y, SDY, rows, differ] = run.arrays;
    double PM = 0, PV = 0;
    if (run.Options().DIVERSE_MEASURES == 0) {
        PM = stats::TTestPairedDifference(Y, X).P;
        PV = stats::FTestVariance(Y, X).P;
    }
    const bool positive = run.pearson.r >= 0;
    if (positive && PM >= level && PV >= level) {
        if (run.Comments())
            section.Line(PF < level ? "!! Reject H0 and conclude the model does not meet the stringent "
                                      "validation requirement !!"
                                    : "!! Fail to reject H0 and conclude the model meets the stringent "
                                      "validation requirement !!");
        return;
    }
    if (PM < level)
        section.Line("!! Stringent assumption of identical mean failed !!");
    if (PV < level)
        section.Line("!! Stringent assumption of identical variance failed !!");
    if (!(positive && run.pearson.P <= level))
        section.Line("!! Stringent assumption of positive correlation failed !!");
}

} // namespace

void Kleijnen_Analysis(RunState& run) {
    const auto& [X, SDX, Y, SDY, rows, differ] = run.arrays;
    std::vector<double> differences(X.size()), sums(X.size());
    for (std::size_t i = 0; i < X.size(); ++i) {
        differences[i] = X[i] - Y[i];
        sums[i] = X[i] + Y[i];
    }
    const stats::LineFit line = stats::FitLine(sums, differences);
    TakeLine(run, line);
    const double df = run.N() - 2;
    const double jointF = JointF(run.errors.RMSEP * SquareRoot(run.N()), line.RootChi2, df);
    // The distribution function itself with the degrees of freedom in this order, not the tail above F.
    const double PF = stats::ProbF(jointF, df, 2);

    ReportSection& section = run.report.BeginSection(
        "kleijnen", "KLEIJNEN'S DIFFERENCE REGRESSION (Kleijnen, 1987; Kleijnen et al., 1996, 1998)");
    section.Line("Equation: (X-Y) = ß0 + ß1×(Y+X)", std::string(24, ' '));
    WriteCoefficients(run, section, 39);
    section.Line("H0: ß0 = 0 & ß1 = 0, F-value (P-value) : ", F(10, 5, jointF).Named("F"), " (",
                 FP(7, 5, PF).Named("P_F"), ")");
    WriteVerdict(run, section, PF);
    run.plots.emplace_back(PointPlot({"Kleijnen Analysis", "Summation", "Difference"},
                                     ShareColumn(std::move(sums)), ShareColumn(std::move(differences)),
                                     run.session));
}

void Bland_Altman_Analysis(RunState& run) {
    const auto& [X, SDX, Y, SDY, rows, differ] = run.arrays;
    std::vector<double> differences(X.size()), averages(X.size());
    for (std::size_t i = 0; i < X.size(); ++i) {
        differences[i] = X[i] - Y[i];
        averages[i] = (X[i] + Y.front()) / 2;
    }
    TakeLine(run, stats::FitLine(differences, averages));

    ReportSection& section = run.report.BeginSection(
        "bland_altman", "BLAND AND ALTMAN'S DIFFERENCE REGRESSION (Bland and Altman, 1986)");
    section.Line("Equation: (X-Y) = ß0 + ß1×(Avg(Y and X))", std::string(24, ' '));
    WriteCoefficients(run, section, 31);
    run.plots.emplace_back(PointPlot({"Bland and Altman Analysis", "Average", "Difference"},
                                     ShareColumn(std::move(averages)), ShareColumn(std::move(differences)),
                                     run.session));
}

} // namespace corvane
