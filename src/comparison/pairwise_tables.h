#pragma once

#include "comparison/adequacy_table.h"
#include "comparison/comparison_data.h"
#include "platform/feedback.h"
#include "report/report.h"

namespace corvane {

/// Four sections that set every model against every later one: correlation and concordance of their
/// predictions, the difference of their squared errors (Wallach and Goffinet, 1989), the correlation of their
/// deviations, and the difference of their AICc' (Burnham and Anderson, 2002). The first
/// `adequacy.ValidCount` rows take part, and each must have an observed value; a RunFailure names the row
/// that has none.
void WritePairwiseTables(Report& report, const ComparisonData& data, const Adequacy& adequacy,
                         const ReportColumns& columns, Feedback& feedback);

} // namespace corvane
