#pragma once

#include "run/run_state.h"

namespace corvane {

/// Section "CONCORDANCE CORRELATION COEFFICIENT": the estimators of Lin and of Liao, each as it stands and
/// transformed, and between them the intraclass correlation, which goes by the label of the first.
void WriteConcordance(RunState& run);

} // namespace corvane
