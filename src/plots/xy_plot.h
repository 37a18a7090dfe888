#pragma once

#include "plots/chart_model.h"
#include "plots/plot_request.h"

namespace corvane {

/// The chart of a plot request, caption "Plot - " and the request's window name.
///
/// A table of three columns has points alone: column 3 over column 1. A dataset's table of five or seven has
/// points of column 3 ("Obs"), the line of equality of column 4 where that is not all blank ("Y=X"), and with
/// seven the excluded points of column 7 over column 6, all other abscissas being column 1. Markers are 200
/// twentieths of a point below 50 points, 150 below 100, else 100.
ChartModel CreateXYPlot(const PlotRequest& request);

} // namespace corvane
