#pragma once

#include "plots/axis_scale.h"

#include <qcustomplot.h>

namespace corvane {

/// Adds the series of a chart to a plot, by their names, and their statistic lines below them. Points are
/// thinned to the dots of `size`, the size in pixels at which the plot will be painted.
void AddSeries(QCustomPlot& plot, const ChartModel& chart, const ChartScales& scales, QSize size);

} // namespace corvane
