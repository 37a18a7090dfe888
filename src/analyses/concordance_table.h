#pragma once

#include "run/section_definition.h"

namespace corvane {

/// The estimators of Lin and of Liao, each as it is and transformed, and between them the intraclass
/// correlation, which goes by the label of the first.
extern const SectionDefinition ConcordanceSection;

} // namespace corvane
