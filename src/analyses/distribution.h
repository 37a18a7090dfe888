#pragma once

#include "run/run_state.h"

namespace corvane {

/// Section "DISTRIBUTION ANALYSES": whether X and Y are normally distributed. Its last line is open.
void WriteDistribution(RunState& run);

} // namespace corvane
