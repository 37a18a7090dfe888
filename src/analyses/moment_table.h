#pragma once

#include "run/section_definition.h"

namespace corvane {

/// Moments and order statistics of X and Y side by side. Sets the run's means and variances again.
extern const SectionDefinition MomentsSection;

} // namespace corvane
