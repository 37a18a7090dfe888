#pragma once

#include "plots/xy_plot.h"
#include "run/run_state.h"

#include <utility>

namespace corvane {

/// Opens a plot of one point for each analysed row.
inline void OpenPlot(RunState& run, ChartKind kind, PlotTitles titles, SharedColumn x, SharedColumn y) {
    run.plots.push_back(
        PointChart(kind, std::move(titles), {std::move(x), std::move(y), run.ShareRows()}, run.session));
}

} // namespace corvane
