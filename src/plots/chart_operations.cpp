#include "plots/chart_operations.h"

#include "core/format/numbers.h"
#include "stats/line_fits.h"
#include "stats/moments.h"
#include "stats/order.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace corvane {
namespace {

constexpr double nowhere = std::numeric_limits<double>::quiet_NaN();

/// Calls action(x, y) for every point that is drawn with a marker; the line of equality has none.
template<class Action>
void ForPoints(const ChartModel& chart, Action action) {
    for (const ChartSeries& series : chart.series)
        if (series.x && series.marker != Marker::None)
            for (std::size_t i = 0; i < series.y->size(); ++i)
                if (std::isfinite((*series.x)[i]) && std::isfinite((*series.y)[i]))
                    action((*series.x)[i], (*series.y)[i]);
}

bool CanStand(const ChartAxis& axis, double value) {
    return !axis.logarithmic || value > 0;
}

std::size_t HiddenPoints(const ChartModel& chart) {
    std::size_t hidden = 0;
    ForPoints(chart,
              [&](double x, double y) { hidden += !CanStand(chart.xAxis, x) || !CanStand(chart.yAxis, y); });
    return hidden;
}

std::size_t AllPoints(const ChartModel& chart) {
    std::size_t points = 0;
    ForPoints(chart, [&](double, double) { ++points; });
    return points;
}

} // namespace

bool SetLogarithmic(ChartModel& chart, Direction direction, bool on) {
    const bool scatter = chart.style == ChartStyle::Scatter;
    if (on && !scatter && (direction == Direction::X || chart.style == ChartStyle::Pie))
        return false;
    ChartAxis& axis = direction == Direction::X ? chart.xAxis : chart.yAxis;
    const bool before = axis.logarithmic;
    axis.logarithmic = on;
    if (on && scatter && HiddenPoints(chart) == AllPoints(chart)) {
        axis.logarithmic = before;
        return false;
    }
    if (chart.sharedScale)
        ShareScale(chart);
    return true;
}

std::string FootnoteText(const ChartModel& chart) {
    const std::size_t hidden = HiddenPoints(chart);
    return hidden == 0 ? chart.footnote : chart.footnote + ", " + std::to_string(hidden) + " not shown";
}

std::vector<StatisticLine> StatisticLines(const ChartSeries& series, const StatisticLineOptions& options) {
    std::vector<double> xs, ys;
    for (std::size_t i = 0; i < series.y->size(); ++i) {
        const double x = series.x ? (*series.x)[i] : static_cast<double>(i + 1), y = (*series.y)[i];
        if (std::isfinite(x) && std::isfinite(y)) {
            xs.push_back(x);
            ys.push_back(y);
        }
    }
    std::vector<StatisticLine> lines;
    if (ys.empty())
        return lines;
    const auto level = [&](bool wanted, double y, bool dashed) {
        if (wanted)
            lines.push_back({y, 0, dashed});
    };
    const stats::MeanVarianceResult moments = stats::MeanVariance(ys);
    const double sd = std::sqrt(moments.Variance);
    level(options.showMin, stats::ArrayMin(ys), false);
    level(options.showMax, stats::ArrayMax(ys), false);
    level(options.showMean, moments.Mean, false);
    level(options.showSD, moments.Mean - sd, true);
    level(options.showSD, moments.Mean + sd, true);
    if (options.showTrend && ys.size() > 1) {
        const stats::LineFit fit = stats::FitLine(xs, ys);
        lines.push_back({fit.a, fit.b, false});
    }
    return lines;
}

double Position(const AxisScale& scale, double value) {
    if (!scale.logarithmic)
        return (value - scale.minimum) / (scale.maximum - scale.minimum);
    return value > 0 ? std::log(value / scale.minimum) / std::log(scale.maximum / scale.minimum) : nowhere;
}

std::optional<ChartPoint> NearestPoint(const ChartModel& chart, const ChartScales& scales, double x, double y,
                                       double reach) {
    std::optional<ChartPoint> nearest;
    double least = reach * reach;
    for (std::size_t s = 0; s < chart.series.size(); ++s) {
        const ChartSeries& series = chart.series[s];
        if (!series.x) { // a bin, from its left end to its right one and up to its height
            const double place = scales.x.minimum + x * (scales.x.maximum - scales.x.minimum);
            const double middle = std::round(place);
            constexpr double halfBar = 0.4;
            if (chart.style == ChartStyle::Pie || x < 0 || x > 1 || middle < 1 ||
                (chart.style == ChartStyle::Bar && std::fabs(place - middle) > halfBar))
                continue;
            const auto bin = static_cast<std::size_t>(middle - 1);
            // Of two series, the bars are left and right of the bin's middle.
            if (chart.style == ChartStyle::Bar && chart.series.size() == 2 && (place > middle) != (s == 1))
                continue;
            if (bin < series.y->size() && y > 0 && y <= Position(scales.y, (*series.y)[bin]))
                return ChartPoint{s, bin};
            continue;
        }
        if (series.marker == Marker::None)
            continue;
        for (std::size_t i = 0; i < series.y->size(); ++i) {
            const double across = Position(scales.x, (*series.x)[i]) - x;
            const double up = Position(scales.y, (*series.y)[i]) - y;
            const double distance = across * across + up * up;
            if (distance <= least) { // false for gaps
                least = distance;
                nearest = ChartPoint{s, i};
            }
        }
    }
    return nearest;
}

std::optional<std::int32_t> RowOf(const ChartModel& chart, ChartPoint point) {
    const SharedRows& rows = chart.series[point.series].rows;
    return rows ? std::optional((*rows)[point.index]) : std::nullopt;
}

std::string PointMessage(const ChartModel& chart, ChartPoint point) {
    const ChartSeries& series = chart.series[point.series];
    return "Datapoint" + PlainNumber(static_cast<double>(point.index + 1)) + "\r\nPred (X) = " +
           (series.x ? NumberText((*series.x)[point.index]) : chart.categories[point.index]) +
           "\r\nObs (Y) = " + NumberText((*series.y)[point.index]);
}

} // namespace corvane
