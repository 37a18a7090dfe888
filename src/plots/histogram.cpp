#include "plots/histogram.h"

#include "core/format/format_field.h"
#include "core/format/format_picture.h"
#include "core/format/numbers.h"
#include "stats/normality.h"
#include "stats/order.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace corvane {
namespace {

constexpr std::int32_t fewestBins = 3, mostBins = 1000, fewestPoints = 3;

std::string Picture(double value, const char* picture) {
    return FormatPicture(CellValue(value), picture).value_or("");
}

std::string BinLabel(std::int32_t bin, std::int32_t bins) {
    return "R" + Picture(bin, bins >= 100 ? "##" : "00");
}

std::string RangesText(double lo, double W, std::int32_t bins) {
    std::string text = "Histogram Range:";
    for (std::int32_t k = 1; k <= bins; ++k)
        text += BinLabel(k, bins) + " = [" + Picture(lo + (k - 1) * W, "#0.00") + ", " +
                Picture(lo + k * W, "#0.00") + (k < bins ? "[;" + std::string(rangeGap) : "]");
    return text;
}

std::string Normality(const char* label, double probability) {
    Field P{probability, 10, 5, AlignRight, true};
    return label + FormatField(P).value_or("");
}

ChartStyle StyleOf(const AnalysisOptions& options) {
    if (options.HIST_LINE)
        return ChartStyle::Line;
    if (options.HIST_AREA)
        return ChartStyle::Area;
    if (options.HIST_STEP)
        return ChartStyle::Step;
    return options.HIST_Pie ? ChartStyle::Pie : ChartStyle::Bar;
}

/// The chart of one or two samples, a null one not shown.
ChartModel HistogramChart(std::string title, const HistogramSample* x, const HistogramSample* y,
                          std::int32_t bins, const AnalysisOptions& options) {
    const bool accumulated = IsSet(options.HIST_ACCUMULATED), percentage = IsSet(options.HIST_PERCENTAGE);
    const std::vector<double>&first = (x ? x : y)->sorted, &last = (y ? y : x)->sorted;
    const double lo = stats::MinOfTwo(first.front(), last.front());
    const double W = (stats::MaxOfTwo(first.back(), last.back()) - lo) / bins;

    ChartModel chart;
    chart.kind = ChartKind::Histogram;
    chart.windowCaption = "Plot - Histogram";
    chart.title = std::move(title);
    chart.style = StyleOf(options);
    chart.threeDimensional = !IsSet(options.HIST_2D);
    if (chart.style == ChartStyle::Pie && chart.threeDimensional) {
        chart.style = ChartStyle::Bar;
        chart.threeDimensional = false;
    }
    if (x)
        chart.footnote = Normality("P(X ~ Normal) = ", x->normality);
    if (y)
        chart.footnote += x ? " and " + Normality("P(Y ~ Normal) = ", y->normality)
                            : Normality("P(Y ~ Normal)=", y->normality);
    for (std::int32_t k = 1; k <= bins; ++k)
        chart.categories.push_back(BinLabel(k, bins));
    chart.rangesText = RangesText(lo, W, bins);
    chart.xAxis.title = "Bins";
    chart.yAxis.wholeNumbers = !percentage;
    if (percentage)
        chart.yAxis.end = 100;
    chart.yAxis.title =
        std::string(accumulated ? "Accumulated " : "") + "Frequency" + (percentage ? ", %" : ", #");
    chart.legend = true;

    const auto add = [&](const char* name, const std::vector<double>& sorted, Colour colour) {
        std::vector<double> counts = CountBins(sorted, lo, W, bins);
        if (accumulated)
            for (std::size_t k = 1; k < counts.size(); ++k)
                counts[k] += counts[k - 1];
        if (percentage)
            for (double& count : counts)
                count = count * 100 / static_cast<double>(sorted.size());
        chart.series.push_back({.name = name,
                                .y = ShareColumn(std::move(counts)),
                                .line = chart.style != ChartStyle::Bar && chart.style != ChartStyle::Pie,
                                .colour = colour});
    };
    if (x)
        add("X", x->sorted, {255, 128, 0});
    if (y)
        add("Y", y->sorted, {0, 128, 192});
    return chart;
}

} // namespace

std::vector<double> CountBins(std::span<const double> sorted, double lo, double W, std::int32_t bins) {
    std::vector<double> counts(static_cast<std::size_t>(bins));
    std::int32_t k = 1;
    for (const double v : sorted) {
        while (k < bins && !(lo + (k - 1) * W <= v && v < lo + k * W))
            ++k;
        ++counts[static_cast<std::size_t>(k - 1)];
    }
    return counts;
}

HistogramSample SampleOf(std::vector<double> values) {
    stats::SortRange(values, 1, values.size());
    const double normality = stats::ShapiroWilk(values).P;
    return {std::move(values), normality};
}

ChartOutcome HistogramPlots(const Dataset& dataset, const SampleSource& sampleOf) {
    const AnalysisOptions& options = dataset.options;
    const std::int32_t rows = RowsBeforeEmpty(dataset.cells, ColumnX);
    if (rows < fewestPoints)
        return {{}, "Not enough data points to generate a plot"};
    std::vector<double> xs, ys, differences;
    for (std::int32_t row = 1; row <= rows; ++row) {
        const auto x = CellNumber(dataset.cells.At(ColumnX, row)),
                   y = CellNumber(dataset.cells.At(ColumnY, row));
        if (!x || !y || (ExcludedFromPlots(dataset.cells, row) && !IsSet(options.SHOW_EXCLUDED)))
            continue;
        xs.push_back(*x);
        ys.push_back(*y);
        differences.push_back(IsSet(options.HIST_PLOT_ABSDIFF) ? std::fabs(*x - *y) : *x - *y);
    }
    if (xs.empty())
        return {{}, "Not enough data points to generate a plot"};
    const double bins = std::trunc(LeadingNumber(options.HIST_BINS));
    if (bins > mostBins)
        return {{},
                "# of Bins is " + options.HIST_BINS + ", at most " + std::to_string(mostBins) +
                    " can be drawn"};

    const auto binCount = static_cast<std::int32_t>(std::max(bins, static_cast<double>(fewestBins)));
    ChartOutcome outcome;
    const auto add = [&](const char* title, const HistogramSample* x, const HistogramSample* y) {
        outcome.charts.push_back(HistogramChart(title, x, y, binCount, options));
    };
    if (IsSet(options.HIST_PLOT_XY)) {
        const HistogramSample x = sampleOf(std::move(xs)), y = sampleOf(std::move(ys));
        if (options.HIST_PLOT_TOGETHER) {
            add("Histogram of X and Y", &x, &y);
        } else {
            add("Histogram of X", &x, nullptr);
            add("Histogram of Y", nullptr, &y);
        }
    }
    if (IsSet(options.HIST_PLOT_DIFFERENCE)) {
        const HistogramSample sample = sampleOf(std::move(differences));
        add("Histogram of X - Y", &sample, nullptr);
    }
    return outcome;
}

} // namespace corvane
