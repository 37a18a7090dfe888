#pragma once

#include "comparison/adequacy_table.h"
#include "comparison/comparison_data.h"
#include "comparison/comparison_steps.h"
#include "report/report.h"
#include "run/section_definition.h"

namespace corvane {

/// Four sections that set every model against every later one. The first `adequacy.ValidCount` rows take
/// part, and each must have an observed value; a RunFailure names the row that has none. Each pair in each
/// section is a step.
void WritePairwiseTables(Report& report, const ComparisonData& data, const Adequacy& adequacy,
                         const ReportColumns& columns, ComparisonSteps& steps);

/// Correlation and concordance of two models' predictions.
extern const SectionDefinition CorrelationsSection;

/// The difference of two models' squared errors: Wallach and Goffinet (1989).
extern const SectionDefinition PairwiseMsepSection;

/// The correlation of two models' deviations.
extern const SectionDefinition DeviationCorrelationsSection;

/// The difference of two models' AICc': Burnham and Anderson (2002).
extern const SectionDefinition DeltaAicSection;

} // namespace corvane
