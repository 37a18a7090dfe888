#include "analyses/deviation_analysis.h"

#include "analyses/normality_test.h"
#include "core/format/numbers.h"
#include "stats/correlation.h"
#include "stats/deviation_intervals.h"
#include "stats/distributions.h"
#include "stats/moments.h"
#include "stats/sums.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <string>
#include <vector>

namespace corvane {
namespace {

using IntervalRow = stats::DeviationIntervalRow;

struct Limits {
    double lower, upper;
};

/// A number to 15 digits, without those behind them that its own subtraction left.
std::string ToFifteenDigits(double value) {
    std::array<char, 32> text{};
    const auto written =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 15);
    return NumberText(ReadNumber({text.data(), written.ptr}).value_or(value));
}

/// The probability outside the intervals. It arrives in per cent, but one that is not above 1 counts as a
/// fraction, so that a confidence of 99.5 % has the limits of 50 %.
double OutsideProbability(RunState& run) {
    const double confidence = run.session.DeviationCIProb, percent = (1 - confidence) * 100;
    const double alpha = percent > 1 ? percent / 100 : percent;
    const std::string asked =
        "DEVIATION_CI_PROB: a confidence of " + ToFifteenDigits(100 * confidence) + " % ";
    if (alpha <= 0 || alpha >= 1)
        run.warnings.push_back(asked + "has no limits: there is no deviation analysis");
    else if (percent <= 1)
        run.warnings.push_back(
            asked + "leaves out " + ToFifteenDigits(percent) +
            ", which counts as a fraction since it is not above 1: the deviation analysis has " +
            ToFifteenDigits(100 - 100 * alpha) + " %");
    return alpha;
}

/// Limits of the size that a deviation exceeds with probability alpha: root sqrt(chi(1 - alpha, 1) / chi),
/// `root` that of a sum of squares and chi the quantiles at 1 - tail and tail of its DF degrees of freedom.
/// Freese (1960); Reynolds (1984).
Limits SizeLimits(double root, int DF, double tail, double alpha) {
    const double of = stats::InverseChiSquare(1 - alpha, 1);
    const auto limit = [&](double P) {
        return root * SquareRoot(Divide(of, stats::InverseChiSquare(P, DF)));
    };
    return {limit(1 - tail), limit(tail)};
}

void WriteLimits(ReportSection& section, const std::string& label, const std::string& name,
                 const Limits& limits) {
    section.Line(label, F(10, 5, limits.lower).Named(name + "Lower"), " to ",
                 F(10, 5, limits.upper).Named(name + "Upper"));
}

void WriteEstimate(ReportSection& section, const std::string& name, double estimate, double sd) {
    section.Line("Estimate " + name + " ± SD                  : ", F(10, 5, estimate).Named(name), " ± ",
                 F(10, 5, sd).Named("SD" + name));
}

void WriteTTest(ReportSection& section, const std::string& name, double estimate, double sd, double DF) {
    const double t = TStatistic(estimate, sd);
    section.Line("H0: " + name + " = 0; T-value (P-value)     : ", F(10, 5, t).Named("T_" + name), " (",
                 FP(7, 5, stats::TailT(t, DF)).Named("P_" + name), ")");
}

struct IntervalColumn {
    const char *title, *name;
    double IntervalRow::*value;
};

constexpr IntervalColumn intervalColumns[] = {
    {"X", "X", &IntervalRow::X},
    {"Deviation", "Deviation", &IntervalRow::Deviation},
    {"Fitted", "Fitted", &IntervalRow::Fitted},
    {"CI Lower", "CILower", &IntervalRow::CILower},
    {"CI Upper", "CIUpper", &IntervalRow::CIUpper},
    {"PI Lower", "PILower", &IntervalRow::PILower},
    {"PI Upper", "PIUpper", &IntervalRow::PIUpper},
};

/// The text of stats::DeviationIntervals as a table.
void OpenIntervalWindow(RunState& run, const stats::LineFit& line, double confidence) {
    constexpr std::int32_t width = 12, decimals = 5;
    const std::vector<IntervalRow> rows =
        stats::DeviationIntervalRows(line.a, line.b, run.arrays.X, run.residuals.Deviation, confidence);
    std::string titles;
    ReportTable table{.columns = {}, .rows = rows.size()};
    for (const IntervalColumn& column : intervalColumns) {
        titles += AlignField(column.title, width, AlignRight);
        std::vector<double> values;
        values.reserve(rows.size());
        for (const IntervalRow& row : rows)
            values.push_back(row.*column.value);
        table.columns.push_back({column.name, ShareColumn(std::move(values)), width, decimals});
    }

    RunWindow window{"deviation", "Deviation Analyses - ", Report("deviation_header")};
    window.content.Current().lines = run.header;
    ReportSection& section = window.content.BeginSection(
        "deviation_intervals", "Deviation Analysis - Confidence and Prediction Interval");
    const std::string rule(titles.size(), '-');
    section.Line(titles);
    section.Line(rule);
    section.Table(std::move(table));
    section.Line(rule);
    run.windows.push_back(std::move(window));
}

} // namespace

void WriteDeviationAnalysis(RunState& run) {
    const std::vector<double>&X = run.arrays.X, &D = run.residuals.Deviation;
    const int N = static_cast<int>(X.size());
    const double n = run.N();
    const double alpha = OutsideProbability(run), confidence = 100 - 100 * alpha;
    const stats::LineFit line = stats::FitLine(X, D);
    const auto [mean, variance, sd] = stats::MeanVariance(D);
    const double MSE = stats::Square(Divide(line.RootChi2, SquareRoot(n - 2))),
                 rootSum = SquareRoot(n) * run.errors.RMSEP;
    const Limits noBias = SizeLimits(rootSum, N, alpha, alpha);
    // (n - 1) sd^2 = sum D^2 - n mean^2, which rounding would make negative where the bias is all.
    const Limits constantBias = SizeLimits(SquareRoot(n - 1) * sd, N - 1, alpha, alpha);
    const Limits proportionalBias = SizeLimits(line.RootChi2, N - 2, alpha / 2, alpha);

    ReportSection& section = run.report.BeginSection("deviation_analysis", "DEVIATION ANALYSIS");
    section.Line("Regression of: Deviation = a + b×'Model-Predicted'");
    WriteEstimate(section, "a", line.a, line.SDa);
    WriteEstimate(section, "b", line.b, line.SDb);
    if (line.SDa > 0)
        WriteTTest(section, "a", line.a, line.SDa, n - 2);
    if (line.SDb > 0)
        WriteTTest(section, "b", line.b, line.SDb, n - 2);
    section.Line("r²                               : ",
                 F(10, 5, stats::PearsonCorrelation(X, D).RSquared).Named("RSquared"));
    section.Line("MSE                              : ", F(10, 5, stats::Finite(MSE)).Named("MSE"));
    const double t = Divide(mean, sd / SquareRoot(n));
    section.Line("Mean deviation                   : ", F(10, 5, mean).Named("MeanDeviation"),
                 " (P = ", FP(7, 5, stats::TailT(t, n - 1)).Named("P_MeanDeviation"), ")");
    const std::string percent = ToFifteenDigits(confidence);
    const auto around = [&, centre = mean, spread = sd](double factor) {
        const double half = stats::InverseT(1 - alpha / 2, n - 1) * spread * SquareRoot(factor);
        return Limits{centre - half, centre + half};
    };
    WriteLimits(section, "Confidence interval (" + percent + "%)        : ", "CI", around(1 / n));
    WriteLimits(section, "Prediction interval (" + percent + "%)        : ", "PI", around(1 / n + 1));
    section.Line("Variance deviation               : ", F(10, 5, variance).Named("Variance"));
    section.Line("S deviation                      : ", F(10, 5, sd).Named("SD"));
    section.Line();
    section.Line(
        "Confidence Interval of the Distribution of the |Deviations| (Freese, 1960; Reynolds, 1984)");
    section.Line(std::string(90, '-'));
    section.Line("Assuming ", ReportField{{confidence}, "Confidence", percent}, "% of probability");
    section.Line("Root of sum of deviation squared : ", F(10, 5, rootSum).Named("RootSumOfSquares"));
    WriteLimits(section, "Assuming no mean bias            : ", "NoBias", noBias);
    WriteLimits(section, "Assuming constant mean bias      : ", "ConstantBias", constantBias);
    WriteLimits(section, "Assuming proportional bias       : ", "ProportionalBias", proportionalBias);
    NormalityTest(section, D, "Deviation.");
    OpenIntervalWindow(run, line, confidence);
}

} // namespace corvane
