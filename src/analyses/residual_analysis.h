#pragma once

#include "run/section_definition.h"

namespace corvane {

/// In a window of its own where the user wants one: the residual listing (or, in its place, the name of the
/// file that holds it), the points of influence, the normality of the residuals and the deviations outside
/// their limits; then, where it is ticked, the residue regression.
///
/// A residue file that cannot be written leaves its name in the text and the listing nowhere; a warning says
/// why. Without a folder for the file the listing stays in the text, and a warning says that, too.
extern const SectionDefinition ResidualAnalysisSection;

} // namespace corvane
