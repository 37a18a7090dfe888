#pragma once

#include "run/section_definition.h"

namespace corvane {

/// Whether X and Y are normally distributed. Its last line is open.
extern const SectionDefinition DistributionSection;

} // namespace corvane
