#pragma once

#include "run/run_state.h"

namespace corvane {

/// Section "WEIGHED DEVIANCE ANALYSIS": each pair with its signed share of the total squared deviation, and
/// the plot of these shares on X.
void WriteWeighedDeviance(RunState& run);

} // namespace corvane
