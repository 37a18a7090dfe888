#pragma once

#include "run/run_state.h"

namespace corvane {

/// Section "RESIDUE REGRESSION ANALYSIS" of the report that the residual analysis writes to: the line of the
/// residuals on the fitted values. A coefficient without an SD has no test.
void WriteResidueRegression(const RunState& run, Report& report);

} // namespace corvane
