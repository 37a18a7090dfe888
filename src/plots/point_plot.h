#pragma once

#include "core/session_state.h"
#include "plots/plot_request.h"

#include <string>

namespace corvane {

/// What a plot of points says about itself.
struct PlotTitles {
    std::string title;
    std::string xAxis;
    std::string yAxis;
};

/// The request of the analyses: n points (x, y) in three chart columns, x twice, with axes of their own and
/// no legend, blue; the footnote has their number.
PlotRequest PointPlot(PlotTitles titles, const SharedColumn& x, SharedColumn y, const SessionState& session);

} // namespace corvane
