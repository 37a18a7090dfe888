#pragma once

#include "plots/chart_model.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// The least and largest number of one direction of a chart.
struct Extent {
    double minimum = 0, maximum = 0;
};

/// An axis that is drawn: its range, the places of its labels, and the ticks between them.
struct AxisScale {
    double minimum = 0, maximum = 1;
    bool logarithmic = false;
    double majorStep = 0; ///< Linear axes only.
    std::vector<double> major, minor;
    std::string labelFormat; ///< As in ChartAxis.
};

/// The extents of the points that are drawn: those with two finite coordinates, above zero where the axis is
/// logarithmic. What has only one coordinate stretches no axis. None where no point is drawn.
struct PointExtents {
    std::optional<Extent> x, y;
};
PointExtents ExtentsOf(const ChartSeries& series, bool logarithmicX, bool logarithmicY);

/// The scale of an axis over this extent. An automatic linear axis begins and ends at multiples of its step,
/// which is 1, 2 or 5 times a power of ten; `withZero` lets it begin at 0. A logarithmic one begins and ends
/// at 1, 2 or 5 times a power of ten, or over less than a decade as a linear one would. A fixed axis keeps
/// its ends.
AxisScale ScaleOf(const ChartAxis& axis, const Extent& extent, bool withZero = false);

/// The text at a tick: through the axis's picture, or with the digits that its steps need; on an axis of very
/// large or small numbers as "2.5E+07" where that is shorter.
std::string TickLabel(const AxisScale& scale, double value);

/// One scale for both axes: the smaller minimum and the larger maximum of the two automatic scales, and the
/// larger step unless that would be too small for both together, from now on fixed. Where a logarithmic axis
/// cannot show the other's zero, each axis keeps its own.
void ShareScale(ChartModel& chart);

/// The scales of a chart's two axes. Histograms have categories along x, at 1 to their number.
struct ChartScales {
    AxisScale x, y;
};
ChartScales ScalesOf(const ChartModel& chart);

} // namespace corvane
