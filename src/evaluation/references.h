#pragma once

#include "report/papers.h"
#include "report/report.h"
#include "run/section_definition.h"

namespace corvane {

/// Writes the papers that have a place in a list of references, in the order of their places. Some entries
/// run straight on into the next.
void WriteReferences(ReportSection& section, int Paper::*place);

/// Section "REFERENCES": the literature that the report cites.
extern const SectionDefinition ReferencesSection;

} // namespace corvane
