#pragma once

#include "run/run_state.h"

namespace corvane {

/// Section "ROBUST STATISTICS": two robust estimates of scale for each of X and Y.
void WriteRobustStatistics(RunState& run);

} // namespace corvane
