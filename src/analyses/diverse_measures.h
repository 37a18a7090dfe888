#pragma once

#include "run/section_definition.h"

namespace corvane {

/// Mean bias and mean absolute error, also in per cent of both means, tests of equal variances and of no
/// bias, MAPE, MEF, CD and the largest error.
extern const SectionDefinition DiverseMeasuresSection;

} // namespace corvane
