#pragma once

#include "run/run_state.h"

namespace corvane {

/// Plots of the residuals that a run asks for at its end. The axis of the studentized residuals is stretched
/// where they lie close together: k = round(50 / range) 10, halves to even, or 1 where that is below 10.
void RequestResidualPlot(RunState& run);
void RequestDeviationPlot(RunState& run);
void RequestNormalPlot(RunState& run);

/// Residuals on fitted values, and deviations on X.
void RequestResidueRegressionPlots(RunState& run);

} // namespace corvane
