#pragma once

#include "run/run_state.h"

namespace corvane {

/// Section "GENERALIZED CONCORDANCE CORRELATION COEFFICIENT": a row for each of seven distances.
void WriteGeneralizedConcordance(RunState& run);

} // namespace corvane
