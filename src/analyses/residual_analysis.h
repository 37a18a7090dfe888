#pragma once

#include "run/run_state.h"

namespace corvane {

/// Section "RESIDUAL ANALYSES", in a window of its own where the user wants one: the residual listing (or, in
/// its place, the name of the file that holds it), the points of influence, the normality of the residuals
/// and the deviations outside their limits; then, where it is ticked, the residue regression.
///
/// A residue file that cannot be written leaves its name in the text and the listing nowhere; a warning says
/// why. Without a folder for the file the listing stays in the text, and a warning says that, too.
void WriteResidualAnalysis(RunState& run);

} // namespace corvane
