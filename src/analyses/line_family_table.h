#pragma once

#include "run/run_state.h"

namespace corvane {

/// Section "ORDINARY (OLS) AND SYMMETRICAL LEAST-SQUARE REGRESSIONS": six lines through the same pairs, each
/// with the tests of a = 0 and b = 1. The lines are computed under regular least squares only; under the
/// other methods every row divides 0 by 0 and is left out, and header and rules stand alone.
void WriteLineFamily(RunState& run);

} // namespace corvane
