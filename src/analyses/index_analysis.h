#pragma once

#include "run/run_state.h"

namespace corvane {

/// Section "INDEX ANALYSIS": the ratio X / Y pair by pair, its mean with two confidence intervals and tests.
/// A pair with Y = 0 has the ratio 0.
void WriteIndexAnalysis(RunState& run);

} // namespace corvane
