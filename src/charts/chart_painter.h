#pragma once

#include "plots/chart_model.h"

#include <QImage>
#include <QSize>

class QCustomPlot;
class QPaintDevice;

namespace corvane {

/// Fills an empty plot with a chart: texts, axes, series, legend above the axes, footnote below them. Points
/// are thinned to the dots that there are at `size`, the size in pixels at which the plot will be painted.
void PaintChart(QCustomPlot& plot, const ChartModel& chart, QSize size);

/// A chart as dots, two a pixel: for picture files and the clipboard.
QImage ChartImage(const ChartModel& chart, QSize size);

/// A chart as lines and texts on any device, a pixel being `scale` of its units: SVG, PDF, a printer's page.
void PaintChartOn(QPaintDevice& device, const ChartModel& chart, QSize size, double scale);

} // namespace corvane
