#pragma once

#include "run/section_definition.h"

namespace corvane {

/// The regression of the deviations Y - X on X, intervals of their mean, the limits of the distribution of
/// their sizes, and their tests of normality. Its last line is open.
///
/// The whole is one statement: with equal deviations it ends where their mean is tested. A confidence that
/// has no quantiles (100 % and above, or negative) leaves no section. Only where it reaches its end it opens
/// the window "deviation" with the intervals about the line, a row a pair.
extern const SectionDefinition DeviationAnalysisSection;

} // namespace corvane
