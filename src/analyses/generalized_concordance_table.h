#pragma once

#include "run/section_definition.h"

namespace corvane {

/// A row for each of seven distances.
extern const SectionDefinition GeneralizedConcordanceSection;

} // namespace corvane
