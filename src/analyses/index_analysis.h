#pragma once

#include "run/section_definition.h"

namespace corvane {

/// The ratio X / Y pair by pair, its mean with two confidence intervals and tests. A pair with Y = 0 has the
/// ratio 0.
extern const SectionDefinition IndexAnalysisSection;

} // namespace corvane
