#include "plots/histogram.h"

#include "core/format/format_field.h"
#include "core/format/format_picture.h"
#include "core/format/numbers.h"
#include "plots/dataset_plots.h"
#include "stats/normality.h"
#include "stats/order.h"

#include <algorithm>
#include <cmath>

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

std::string Normality(const char* label, std::span<const double> sample) {
    Field P{stats::ShapiroWilk(sample).P, 10, 5, AlignRight, true};
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

ChartModel CreateHistogramPlot(const HistogramRequest& request) {
    std::vector<double> sorted[2];
    double lo = 0, hi = 0;
    bool first = true;
    for (const std::size_t i : {0u, 1u})
        if (const SharedColumn& column = i == 0 ? request.x : request.y) {
            sorted[i] = *column;
            stats::SortRange(sorted[i], 1, sorted[i].size());
            lo = first ? sorted[i].front() : stats::MinOfTwo(lo, sorted[i].front());
            hi = first ? sorted[i].back() : stats::MaxOfTwo(hi, sorted[i].back());
            first = false;
        }
    const double W = (hi - lo) / request.bins;

    ChartModel chart;
    chart.windowCaption = "Plot - " + request.windowTitle;
    chart.title = request.title;
    chart.style = request.style;
    chart.threeDimensional = !request.twoDimensional;
    if (chart.style == ChartStyle::Pie && chart.threeDimensional) {
        chart.style = ChartStyle::Bar;
        chart.threeDimensional = false;
    }
    if (request.x)
        chart.footnote = Normality("P(X ~ Normal) = ", sorted[0]);
    if (request.y)
        chart.footnote += request.x ? " and " + Normality("P(Y ~ Normal) = ", sorted[1])
                                    : Normality("P(Y ~ Normal)=", sorted[1]);
    for (std::int32_t k = 1; k <= request.bins; ++k)
        chart.categories.push_back(BinLabel(k, request.bins));
    chart.rangesText = RangesText(lo, W, request.bins);
    chart.xAxis.title = "Bins";
    chart.yAxis.wholeNumbers = !request.percentage;
    if (request.percentage)
        chart.yAxis.end = 100;
    chart.yAxis.title = std::string(request.accumulated ? "Accumulated " : "") + "Frequency" +
                        (request.percentage ? ", %" : ", #");
    chart.legend = true;

    for (const std::size_t i : {0u, 1u}) {
        if (sorted[i].empty())
            continue;
        std::vector<double> counts = CountBins(sorted[i], lo, W, request.bins);
        if (request.accumulated)
            for (std::size_t k = 1; k < counts.size(); ++k)
                counts[k] += counts[k - 1];
        if (request.percentage)
            for (double& count : counts)
                count = count * 100 / static_cast<double>(sorted[i].size());
        chart.series.push_back({.name = i == 0 ? "X" : "Y",
                                .y = ShareColumn(std::move(counts)),
                                .line = chart.style != ChartStyle::Bar && chart.style != ChartStyle::Pie,
                                .colour = request.colours[i]});
    }
    return chart;
}

HistogramOutcome HistogramPlots(const Dataset& dataset) {
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

    HistogramRequest common;
    common.bins = static_cast<std::int32_t>(std::max(bins, static_cast<double>(fewestBins)));
    common.accumulated = IsSet(options.HIST_ACCUMULATED);
    common.percentage = IsSet(options.HIST_PERCENTAGE);
    common.twoDimensional = IsSet(options.HIST_2D);
    common.style = StyleOf(options);
    HistogramOutcome outcome;
    const auto add = [&](const char* title, SharedColumn x, SharedColumn y) {
        HistogramRequest request = common;
        request.title = title;
        request.x = std::move(x);
        request.y = std::move(y);
        outcome.requests.push_back(std::move(request));
    };
    if (IsSet(options.HIST_PLOT_XY)) {
        const SharedColumn x = ShareColumn(std::move(xs)), y = ShareColumn(std::move(ys));
        if (options.HIST_PLOT_TOGETHER) {
            add("Histogram of X and Y", x, y);
        } else {
            add("Histogram of X", x, nullptr);
            add("Histogram of Y", nullptr, y);
        }
    }
    if (IsSet(options.HIST_PLOT_DIFFERENCE))
        add("Histogram of X - Y", ShareColumn(std::move(differences)), nullptr);
    return outcome;
}

} // namespace corvane
