#pragma once

#include "run/run_state.h"

namespace corvane {

/// Section "DIVERSE MEASURE ANALYSES": mean bias and mean absolute error, also in per cent of both means,
/// tests of equal variances and of no bias, MAPE, MEF, CD and the largest error.
void WriteDiverseMeasures(RunState& run);

} // namespace corvane
