#pragma once

#include "run/section_definition.h"

namespace corvane {

/// Two robust estimates of scale for each of X and Y.
extern const SectionDefinition RobustStatisticsSection;

} // namespace corvane
