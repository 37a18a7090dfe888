#include "analyses/deviation_analysis.h"

#include "report/transition.h"

#include "analyses/normality_test.h"
#include "core/format/numbers.h"
#include "stats/correlation.h"
#include "stats/deviation_intervals.h"
#include "stats/distributions.h"
#include "stats/moments.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <string>
#include <vector>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"Confidence", "deviation.confidence", "Assuming "},
};

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

/// Limits of the size that a deviation exceeds with probability alpha: sqrt(chi(1 - alpha, 1) S / chi), S a
/// sum of squares and chi the quantiles at 1 - tail and tail of its DF degrees of freedom. Freese (1960);
/// Reynolds (1984).
Limits SizeLimits(double sumOfSquares, int DF, double tail, double alpha) {
    const double scaled = stats::InverseChiSquare(1 - alpha, 1) * sumOfSquares;
    const auto limit = [&](double P) { return SquareRoot(Divide(scaled, stats::InverseChiSquare(P, DF))); };
    return {limit(1 - tail), limit(tail)};
}

void WriteLimits(ReportSection& section, const std::string& label, const std::string& name,
                 const Limits& limits) {
    Line(section, label, F(10, 5, limits.lower).Named(name + "Lower"), " to ",
         F(10, 5, limits.upper).Named(name + "Upper"));
}

void WriteEstimate(ReportSection& section, const std::string& name, double estimate, double sd) {
    Line(section, "Estimate " + name + " ± SD                  : ", F(10, 5, estimate).Named(name), " ± ",
         F(10, 5, sd).Named("SD" + name));
}

void WriteTTest(ReportSection& section, const std::string& name, double estimate, double sd, double DF) {
    const double t = TStatistic(estimate, sd);
    Line(section, "H0: " + name + " = 0; T-value (P-value)     : ", F(10, 5, t).Named("T_" + name), " (",
         FP(7, 5, stats::TailT(t, DF)).Named("P_" + name), ")");
}

constexpr Place intervalPlaces[] = {
    {"X", "data.x", "X", 12},
    {"Deviation", "deviation", "Deviation", 12},
    {"Fitted", "deviation.fitted", "Fitted", 12},
    {"CILower", "deviation.interval.ci_lower", "CI Lower", 12},
    {"CIUpper", "deviation.interval.ci_upper", "CI Upper", 12},
    {"PILower", "deviation.interval.pi_lower", "PI Lower", 12},
    {"PIUpper", "deviation.interval.pi_upper", "PI Upper", 12},
};

/// Of the columns, in their order.
constexpr double IntervalRow::*intervalValues[] = {
    &IntervalRow::X,       &IntervalRow::Deviation, &IntervalRow::Fitted,  &IntervalRow::CILower,
    &IntervalRow::CIUpper, &IntervalRow::PILower,   &IntervalRow::PIUpper,
};

/// The text of stats::DeviationIntervals as a table.
void OpenIntervalWindow(RunState& run, const stats::LineFit& line, double confidence) {
    const std::vector<IntervalRow> rows =
        stats::DeviationIntervalRows(line.a, line.b, run.arrays.X, run.residuals.Deviation, confidence);
    std::string titles;
    Listing listing{.columns = {}, .rows = rows.size()};
    for (std::size_t i = 0; i < std::size(intervalPlaces); ++i) {
        const Place& place = intervalPlaces[i];
        titles += AlignField(place.label, place.width, AlignRight);
        std::vector<double> values;
        values.reserve(rows.size());
        for (const IntervalRow& row : rows)
            values.push_back(row.*intervalValues[i]);
        listing.columns.push_back({std::string(place.name), ShareColumn(std::move(values))});
    }

    RunWindow window{"deviation", "Deviation Analyses - ", Report("deviation_header")};
    window.content.Current().lines = run.header;
    ReportSection& section = window.content.BeginSection(
        {"deviation_intervals", "Deviation Analysis - Confidence and Prediction Interval", {intervalPlaces}});
    const std::string rule(titles.size(), '-');
    Line(section, titles);
    Line(section, rule);
    section.List(std::move(listing));
    Line(section, rule);
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
    const double sumOfSquares = n * run.errors.MSEP;
    const Limits noBias = SizeLimits(sumOfSquares, N, alpha, alpha);
    // (n - 1) variance = sum D^2 - n mean^2, which rounding would make negative where the bias is all.
    const Limits constantBias = SizeLimits((n - 1) * variance, N - 1, alpha, alpha);
    const Limits proportionalBias = SizeLimits(line.Chi2, N - 2, alpha / 2, alpha);

    ReportSection& section = run.report.BeginSection({"deviation_analysis", "DEVIATION ANALYSIS", {places}});
    Line(section, "Regression of: Deviation = a + b×'Model-Predicted'");
    WriteEstimate(section, "a", line.a, line.SDa);
    WriteEstimate(section, "b", line.b, line.SDb);
    if (line.SDa > 0)
        WriteTTest(section, "a", line.a, line.SDa, n - 2);
    if (line.SDb > 0)
        WriteTTest(section, "b", line.b, line.SDb, n - 2);
    Line(section, "r²                               : ",
         F(10, 5, stats::PearsonCorrelation(X, D).RSquared).Named("RSquared"));
    Line(section, "MSE                              : ", F(10, 5, Divide(line.Chi2, n - 2)).Named("MSE"));
    const double t = Divide(mean, sd / SquareRoot(n));
    Line(section, "Mean deviation                   : ", F(10, 5, mean).Named("MeanDeviation"),
         " (P = ", FP(7, 5, stats::TailT(t, n - 1)).Named("P_MeanDeviation"), ")");
    const std::string percent = ToFifteenDigits(confidence);
    const auto around = [&, centre = mean](double spread) {
        const double half = stats::InverseT(1 - alpha / 2, n - 1) * SquareRoot(spread);
        return Limits{centre - half, centre + half};
    };
    WriteLimits(section, "Confidence interval (" + percent + "%)        : ", "CI", around(variance / n));
    WriteLimits(section, "Prediction interval (" + percent + "%)        : ", "PI",
                around(variance / n + variance));
    Line(section, "Variance deviation               : ", F(10, 5, variance).Named("Variance"));
    Line(section, "S deviation                      : ", F(10, 5, sd).Named("SD"));
    section.Blank();
    Line(section,
         "Confidence Interval of the Distribution of the |Deviations| (Freese, 1960; Reynolds, 1984)");
    Line(section, std::string(90, '-'));
    section.Row({RowItem("Confidence", confidence).As(percent), "% of probability"});
    Line(section,
         "Root of sum of deviation squared : ", F(10, 5, SquareRoot(sumOfSquares)).Named("RootSumOfSquares"));
    WriteLimits(section, "Assuming no mean bias            : ", "NoBias", noBias);
    WriteLimits(section, "Assuming constant mean bias      : ", "ConstantBias", constantBias);
    WriteLimits(section, "Assuming proportional bias       : ", "ProportionalBias", proportionalBias);
    NormalityTest(section, D, "Deviation.");
    OpenIntervalWindow(run, line, confidence);
}

} // namespace corvane
