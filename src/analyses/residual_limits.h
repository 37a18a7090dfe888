#pragma once

#include "run/run_state.h"

namespace corvane {

/// Gives every session limit that is not set its value for this run. It then holds for later runs, also of
/// other data: the deviations within stats::AcceptableDeviation of SDY at DeviationCIProb; the residuals
/// within a tenth of the mean of Y; RStdtRes within 2.5.
void SetMissingLimits(RunState& run);

} // namespace corvane
