#pragma once

#include "run/section_definition.h"

namespace corvane {

/// The spread of MSEP over sub-samples. An expected size below three pairs is refused; one beyond 16 bits
/// draws nothing: the results are 0, the size has no line, and the run warns.
extern const SectionDefinition MsepBootstrapSection;

} // namespace corvane
