#pragma once

#include "plots/axis_scale.h"
#include "plots/chart_model.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

enum class Direction { X, Y };

/// Makes an axis logarithmic or linear again. Points at or below zero are left out then, and the footnote
/// says ", k not shown". False, and nothing changed, where no point would be left, and for bins and pies,
/// which have no such axis. Axes that share one scale go on sharing it, by the smaller minimum and the larger
/// maximum, as far as they can.
bool SetLogarithmic(ChartModel& chart, Direction direction, bool on);

/// The footnote as it is, with the number of points that a logarithmic axis cannot show.
std::string FootnoteText(const ChartModel& chart);

/// A statistic line of a series over its points: level, or the least-squares line.
struct StatisticLine {
    double intercept = 0, slope = 0;
    bool dashed = false; ///< The two lines at one SD from the mean.
};

/// The lines of a series that the options ask for, from all of its points: minimum, maximum, mean, mean ± SD
/// (divisor N - 1) and trend, all of y.
std::vector<StatisticLine> StatisticLines(const ChartSeries& series, const StatisticLineOptions& options);

/// A point of a chart: its series and its place there, both from 0.
struct ChartPoint {
    std::size_t series = 0, index = 0;
};

/// The point nearest to a place, both axes in shares of their range, that lies within `reach` of it; of a
/// histogram, the bin below whose height the place is.
std::optional<ChartPoint> NearestPoint(const ChartModel& chart, const ChartScales& scales, double x, double y,
                                       double reach);

/// The dataset row that a point is of; none for bins and lines.
std::optional<std::int32_t> RowOf(const ChartModel& chart, ChartPoint point);

/// What a click on a point says.
std::string PointMessage(const ChartModel& chart, ChartPoint point);

/// Where a value lies on an axis, 0 at its minimum and 1 at its maximum; NaN where it cannot lie.
double Position(const AxisScale& scale, double value);

} // namespace corvane
