#include "analyses/deviation_analysis.h"

#include "analyses/normality_test.h"
#include "core/format/numbers.h"
#include "stats/correlation.h"
#include "stats/deviation_intervals.h"
#include "stats/distributions.h"
#include "stats/moments.h"
#include "stats/residual_limits.h"
#include "stats/sums.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <string>
#include <vector>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"a", "deviation_line.intercept", "Estimate a ± SD                  : "},
    {"SDa", "regression.intercept.sd", " ± "},
    {"b", "deviation_line.slope", "Estimate b ± SD                  : "},
    {"SDb", "regression.slope.sd", " ± "},
    {"T_a", "test.intercept.t", "H0: a = 0; T-value (P-value)     : "},
    {"P_a", "test.intercept.p", " (", 7, 5, Look::Probability},
    {"T_b", "test.slope_zero.t", "H0: b = 0; T-value (P-value)     : "},
    {"P_b", "test.slope_zero.p", " (", 7, 5, Look::Probability},
    {"RSquared", "deviation_line.r_squared", "r²                               : "},
    {"MSE", "deviation_line.mse", "MSE                              : "},
    {"MeanDeviation", "bias.mean", "Mean deviation                   : "},
    {"P_MeanDeviation", "means.paired_difference.p", " (P = ", 7, 5, Look::Probability},
    {"CILower", "deviation.mean.interval"},
    {"CIUpper", "deviation.mean.interval", " to "},
    {"PILower", "deviation.new.interval"},
    {"PIUpper", "deviation.new.interval", " to "},
    {"Variance", "moments.difference.variance", "Variance deviation               : "},
    {"SD", "deviation.sd", "S deviation                      : "},
    {"Confidence", "deviation.confidence", "Assuming "},
    {"RootSumOfSquares", "deviation.root_sum_squares", "Root of sum of deviation squared : "},
    {"NoBiasLower", "deviation.size.no_bias", "Assuming no mean bias            : "},
    {"NoBiasUpper", "deviation.size.no_bias", " to "},
    {"ConstantBiasLower", "deviation.size.constant_bias", "Assuming constant mean bias      : "},
    {"ConstantBiasUpper", "deviation.size.constant_bias", " to "},
    {"ProportionalBiasLower", "deviation.size.proportional_bias", "Assuming proportional bias       : "},
    {"ProportionalBiasUpper", "deviation.size.proportional_bias", " to "},
};

using IntervalRow = stats::DeviationIntervalRow;

/// A number to 15 digits, without those after them that its own subtraction left.
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

stats::SizeLimits SizeLimits(double rootSum, int DF, double tail, double alpha) {
    if (const auto limits = stats::FreeseLimits(rootSum, DF, tail, alpha))
        return *limits;
    throw RunFailure("the limits of the size of a deviation have no value");
}

/// The test of a coefficient, unless its SD is 0.
void WriteTTest(ReportSection& section, const std::string& name, double estimate, double sd, double DF) {
    if (!(sd > 0))
        return;
    const double t = TStatistic(estimate, sd);
    section.Row({{"T_" + name, t}, {"P_" + name, stats::TailT(t, DF)}, ")"});
}

void WriteRegression(const RunState& run, ReportSection& section, const stats::LineFit& line) {
    const double DF = run.N() - 2;
    section.Text("Regression of: Deviation = a + b×'Model-Predicted'");
    section.Row({{"a", line.a}, {"SDa", line.SDa}});
    section.Row({{"b", line.b}, {"SDb", line.SDb}});
    WriteTTest(section, "a", line.a, line.SDa, DF);
    WriteTTest(section, "b", line.b, line.SDb, DF);
    section.Row(
        {{"RSquared", stats::PearsonCorrelation(run.arrays.X, run.residuals.Deviation, run.stop).RSquared}});
    section.Row({{"MSE", stats::Finite(stats::Square(Divide(line.RootChi2, SquareRoot(DF))))}});
}

/// The mean of the deviations with its test, and the intervals of it and of a single further deviation.
void WriteMean(const RunState& run, ReportSection& section, const stats::MeanVarianceResult& deviations,
               double alpha, const std::string& percent) {
    const double n = run.N();
    const auto [mean, variance, sd] = deviations;
    const double t = Divide(mean, sd / SquareRoot(n));
    const auto halfWidth = [&, spread = sd](double factor) {
        return stats::InverseT(1 - alpha / 2, n - 1) * spread * SquareRoot(factor);
    };
    const double ci = halfWidth(1 / n), lower = mean - ci, upper = mean + ci;
    section.Row({RowItem("MeanDeviation", mean).Between(stats::Finite(lower), stats::Finite(upper)),
                 {"P_MeanDeviation", stats::TailT(t, n - 1)},
                 ")"});
    const std::string ending = " interval (" + percent + "%)        : ";
    section.Row(
        {"Confidence" + ending, {"CILower", stats::Finite(lower)}, {"CIUpper", stats::Finite(upper)}});
    const double pi = halfWidth(1 / n + 1);
    section.Row({"Prediction" + ending,
                 {"PILower", stats::Finite(mean - pi)},
                 {"PIUpper", stats::Finite(mean + pi)}});
    section.Row({{"Variance", variance}});
    section.Row({{"SD", sd}});
}

constexpr Place intervalPlaces[] = {
    {"X", "pair.predicted", "X", 12},
    {"Deviation", "deviation", "Deviation", 12},
    {"Fitted", "deviation_line.fitted", "Fitted", 12},
    {"CILower", "deviation_line.interval", "CI Lower", 12},
    {"CIUpper", "deviation_line.interval", "CI Upper", 12},
    {"PILower", "deviation_line.new_interval", "PI Lower", 12},
    {"PIUpper", "deviation_line.new_interval", "PI Upper", 12},
};

constexpr SectionFrame intervalFrame{
    "deviation_intervals", "Deviation Analysis - Confidence and Prediction Interval", {intervalPlaces}};

/// Of the columns, in their order.
constexpr double IntervalRow::*intervalValues[] = {
    &IntervalRow::X,       &IntervalRow::Deviation, &IntervalRow::Fitted,  &IntervalRow::CILower,
    &IntervalRow::CIUpper, &IntervalRow::PILower,   &IntervalRow::PIUpper,
};

/// The intervals of every pair, in a window of their own.
void OpenIntervalWindow(RunState& run, const stats::LineFit& line, double confidence) {
    const std::vector<IntervalRow> rows = stats::DeviationIntervals(
        line.a, line.b, run.arrays.X, run.residuals.Deviation, confidence, run.stop);
    std::string head;
    std::vector<std::string> titles;
    Listing listing{.columns = {}, .rows = rows.size()};
    for (std::size_t i = 0; i < std::size(intervalPlaces); ++i) {
        const Place& place = intervalPlaces[i];
        head += AlignField(place.label, place.width, AlignRight);
        titles.emplace_back(place.label);
        std::vector<double> values;
        values.reserve(rows.size());
        for (const IntervalRow& row : rows)
            values.push_back(row.*intervalValues[i]);
        listing.columns.push_back({std::string(place.name), ShareColumn(std::move(values))});
    }

    RunWindow window{"deviation", "Deviation Analyses - ", Report("deviation_header")};
    window.content.Current().lines = run.header;
    ReportSection& section = window.content.BeginSection(intervalFrame);
    const std::size_t ruleLength = head.size();
    section.BeginTable(std::move(titles));
    section.TableHead(std::move(head));
    section.Rule(ruleLength);
    section.List(std::move(listing));
    section.Rule(ruleLength);
    run.windows.push_back(std::move(window));
}

void Write(RunState& run) {
    const std::vector<double>&X = run.arrays.X, &D = run.residuals.Deviation;
    const int N = static_cast<int>(X.size());
    const double n = run.N();
    const double alpha = OutsideProbability(run), confidence = 100 - 100 * alpha;
    const stats::LineFit line = stats::FitLine(X, D, run.stop);
    stats::MeanVarianceResult deviations = stats::MeanVariance(D, run.stop);
    deviations.Mean = run.errors.MeanBias; // summed from the pairs, so that an exact zero is one
    const double rootSum = SquareRoot(n) * run.errors.RMSEP;
    const stats::SizeLimits noBias = SizeLimits(rootSum, N, alpha, alpha);
    // (n - 1) sd^2 = sum D^2 - n mean^2, which rounding would make negative where the bias is all.
    const stats::SizeLimits constantBias = SizeLimits(SquareRoot(n - 1) * deviations.SD, N - 1, alpha, alpha);
    const stats::SizeLimits proportionalBias = SizeLimits(line.RootChi2, N - 2, alpha / 2, alpha);

    ReportSection& section = run.report.BeginSection(DeviationAnalysisSection.frame);
    WriteRegression(run, section, line);
    const std::string percent = ToFifteenDigits(confidence);
    WriteMean(run, section, deviations, alpha, percent);
    section.Blank();
    section.Heading(
        "Confidence Interval of the Distribution of the |Deviations| (Freese, 1960; Reynolds, 1984)");
    section.Row({RowItem("Confidence", confidence).As(percent), "% of probability"});
    section.Row({{"RootSumOfSquares", stats::Finite(rootSum)}});
    section.Row({{"NoBiasLower", noBias.Lower}, {"NoBiasUpper", noBias.Upper}});
    section.Row({{"ConstantBiasLower", constantBias.Lower}, {"ConstantBiasUpper", constantBias.Upper}});
    section.Row({{"ProportionalBiasLower", proportionalBias.Lower},
                 {"ProportionalBiasUpper", proportionalBias.Upper}});
    NormalityTest(section, D, "Deviation.", run.stop);
    OpenIntervalWindow(run, line, confidence);
}

} // namespace

const SectionDefinition DeviationAnalysisSection{
    .frame = {"deviation_analysis", "DEVIATION ANALYSIS", {places, NormalityPlaces}},
    .gate = {&AnalysisOptions::DEVIATION_ANALYSIS},
    .progress = "Deviation analysis...",
    .meaning = "Whether the errors depend on the prediction, and within which limits they lie.",
    .papers = "neter1996; freese1960; reynolds1984",
    .write = Write,
};

} // namespace corvane
