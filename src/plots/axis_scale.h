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

/// The extent of the values that an axis can show: finite ones, above zero on a logarithmic axis. None where
/// there is none.
std::optional<Extent> ExtentOf(const std::vector<SharedColumn>& columns, bool logarithmic);

/// The scale of an axis over this extent. An automatic linear axis begins and ends at multiples of its step,
/// which is 1, 2 or 5 times a power of ten, with some room beyond the outermost values; `withZero` lets it
/// begin at 0. A logarithmic one begins and ends at powers of ten, or where those are far off at 2 or 5 times
/// one.
AxisScale ScaleOf(const ChartAxis& axis, const Extent& extent, bool withZero = false);

/// The text at a tick: through the axis's picture, or with the digits that its steps need.
std::string TickLabel(const AxisScale& scale, double value);

/// One scale for both axes: the smaller minimum, the larger maximum and the larger step of the two automatic
/// scales, from now on fixed.
void ShareScale(ChartModel& chart);

/// The scales of a chart's two axes. Histograms have categories along x, at 1 to their number.
struct ChartScales {
    AxisScale x, y;
};
ChartScales ScalesOf(const ChartModel& chart);

} // namespace corvane
