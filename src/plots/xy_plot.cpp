#include "plots/xy_plot.h"

#include "core/format/numbers.h"

#include <utility>

namespace corvane {
namespace {

std::int32_t MarkerSize(std::size_t points) {
    return points < 50 ? 200 : points < 100 ? 150 : 100;
}

} // namespace

ChartModel XYChart(ChartKind kind, PlotTitles titles, std::size_t points, const SessionState& session) {
    ChartModel chart;
    chart.kind = kind;
    chart.windowCaption = "Plot - " + DatasetTitle(session);
    chart.title = std::move(titles.title);
    chart.footnote = "n = " + PlainNumber(static_cast<double>(points));
    chart.xAxis.title = std::move(titles.xAxis);
    chart.yAxis.title = std::move(titles.yAxis);
    return chart;
}

ChartSeries PointSeries(std::string name, PlotPoints points, Marker marker, Colour colour) {
    const std::int32_t size = MarkerSize(points.y->size());
    return {.name = std::move(name),
            .x = std::move(points.x),
            .y = std::move(points.y),
            .rows = std::move(points.rows),
            .marker = marker,
            .markerSize = size,
            .colour = colour};
}

ChartModel PointChart(ChartKind kind, PlotTitles titles, PlotPoints points, const SessionState& session) {
    ChartModel chart = XYChart(kind, std::move(titles), points.y->size(), session);
    chart.series.push_back(PointSeries("", std::move(points), Marker::Dot, {0, 0, 255}));
    return chart;
}

} // namespace corvane
