#pragma once

#include "run/run_state.h"

namespace corvane {

/// Section "MOMENT ANALYSES": moments and order statistics of X and Y side by side. Sets the run's means and
/// variances again.
void WriteMoments(RunState& run);

} // namespace corvane
