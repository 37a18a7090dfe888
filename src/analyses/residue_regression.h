#pragma once

#include "run/section_definition.h"

namespace corvane {

/// The line of the residuals on the fitted values, in the report that the residual analysis writes to, which
/// runs it. A coefficient without an SD has no test.
extern const SectionDefinition ResidueRegressionSection;

} // namespace corvane
