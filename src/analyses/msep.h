#pragma once

#include "run/run_state.h"

namespace corvane {

/// Section "MEAN SQUARE ERROR OF PREDICTION": MSEP with its variance, its root also in per cent of both
/// means, and two decompositions. An MSEP of 0 has no more than its own line.
void WriteMsep(RunState& run);

} // namespace corvane
