#pragma once

#include "plots/chart_model.h"

#include <QSize>

class QCustomPlot;

namespace corvane {

/// Fills an empty plot with a chart: texts, axes, series, legend above the axes, footnote below them. Points
/// are thinned to the dots that there are at `size`, the size in pixels at which the plot will be painted.
void PaintChart(QCustomPlot& plot, const ChartModel& chart, QSize size);

} // namespace corvane
