#pragma once

#include "run/section_definition.h"

namespace corvane {

// Two least-squares regressions of the differences X - Y, each with a plot. Both take the run's a, b, their
// SDs, Chi2 and Q for themselves.

/// Differences on sums, the joint F test of intercept and slope, and whether the model meets the stringent
/// validation requirement, which presumes equal means, equal variances and a positive correlation. Means and
/// variances are tested only where Diverse measures is not ticked; where it is, both count as failed.
extern const SectionDefinition KleijnenSection;

/// Half-sums on differences, although the printed equation has it the other way round, and with the first Y
/// in the half-sums of all pairs.
extern const SectionDefinition BlandAltmanSection;

} // namespace corvane
