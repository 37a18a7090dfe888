#pragma once

#include "run/section_definition.h"

namespace corvane {

/// Six lines through the same pairs, each with the tests of a = 0 and b = 1. The lines are computed under
/// regular least squares only; under the other methods every row divides 0 by 0 and is left out, and head and
/// rules are all that remains.
extern const SectionDefinition LineFamilySection;

} // namespace corvane
