#pragma once

#include "core/run_state.h"

namespace corvane {

/// Section "PARAMETER PROBABILITIES": tests of r, of each coefficient against its null value, and of both
/// together. A coefficient without an SD has no test.
void WriteParameterTests(RunState& run);

} // namespace corvane
