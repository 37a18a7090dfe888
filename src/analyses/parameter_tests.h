#pragma once

#include "run/section_definition.h"

namespace corvane {

/// Tests of r, of each coefficient against its null value, and of both together. A coefficient without an SD
/// has no test.
extern const SectionDefinition ParameterTestsSection;

} // namespace corvane
