#pragma once

#include "core/session_state.h"
#include "plots/chart_model.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace corvane {

/// What a chart of points says about itself.
struct PlotTitles {
    std::string title, xAxis, yAxis;
};

/// Points with the dataset row of each. All three have one length; NaN is a gap.
struct PlotPoints {
    SharedColumn x, y;
    SharedRows rows;
};

/// An XY chart without series: caption "Plot - " and the dataset's title, footnote "n = " and the number of
/// points.
ChartModel XYChart(ChartKind kind, PlotTitles titles, std::size_t points, const SessionState& session);

/// Points as a series. Markers are 200 twentieths of a point where the chart has below 50 points, 150 below
/// 100, else 100.
ChartSeries PointSeries(std::string name, PlotPoints points, Marker marker, Colour colour);

/// The chart of the analyses: blue points without a legend, on axes of their own.
ChartModel PointChart(ChartKind kind, PlotTitles titles, PlotPoints points, const SessionState& session);

} // namespace corvane
