#pragma once

#include "run/run_state.h"

namespace corvane {

/// Section "DISTANCE ANALYSIS (???)": distances between the vectors of X and Y, Minkowski's for the orders 1
/// to 7.
void WriteDistanceAnalysis(RunState& run);

} // namespace corvane
