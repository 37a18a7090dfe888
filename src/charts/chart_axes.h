#pragma once

#include "plots/axis_scale.h"

#include <qcustomplot.h>

namespace corvane {

/// Gives a plot the axes of a chart: ranges, ticks, labels, titles and the frame.
void SetUpAxes(QCustomPlot& plot, const ChartModel& chart, const ChartScales& scales);

} // namespace corvane
