#pragma once

#include "run/section_definition.h"

namespace corvane {

/// Each pair with its signed share of the total squared deviation, and the plot of these shares on X.
extern const SectionDefinition WeighedDevianceSection;

} // namespace corvane
