#pragma once

#include "plots/histogram.h"
#include "plots/xy_plot.h"

namespace corvane {

/// The chart of any request.
inline ChartModel CreateChart(const ChartRequest& request) {
    struct Creator {
        ChartModel operator()(const PlotRequest& plot) const { return CreateXYPlot(plot); }
        ChartModel operator()(const HistogramRequest& histogram) const {
            return CreateHistogramPlot(histogram);
        }
    };
    return std::visit(Creator(), request);
}

} // namespace corvane
