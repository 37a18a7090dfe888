#pragma once

#include "comparison/comparison_data.h"
#include "comparison/comparison_steps.h"
#include "report/report.h"
#include "run/section_definition.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The column widths in characters and the counts of decimals of a comparison's report.
struct ReportColumns {
    std::int32_t Long = 12, Short = 9;
    std::int32_t Statistics = 4, Probability = 3, Correlations = 2;
};

/// A text or whole number in the middle of a column, and at its right end.
std::string Centred(std::int32_t width, std::string_view text);
std::string AtRight(std::int32_t width, std::string_view text);

/// What the models' adequacy leaves for the pairwise tables.
struct Adequacy {
    std::vector<double> AICcPrime; ///< For each model.
    std::size_t ValidCount = 0;    ///< The rows in use, as counted for the last model.
};

/// Section "Model Adequacy Indexes": the observations' and each model's moments, the indexes of its agreement
/// with the observations, and which model is best by each index; with equal ones the first.
///
/// Rows without an observed value are not removed. They count as pairs of zeros, and as many rows fall off
/// the end: of the first model, and then again of each further one.
///
/// The information criteria are those of the regression of Y on X. Rows so few that AICc does not exist, 4,
/// are a RunFailure, as is a model whose every value equals its observation (`IdenticalToObservations`). Each
/// model is a step.
Adequacy WriteAdequacy(Report& report, const ComparisonData& data, const ReportColumns& columns,
                       ComparisonSteps& steps);

extern const SectionDefinition AdequacySection;

/// Every value of a model equals its observation.
class IdenticalToObservations : public RunFailure {
public:
    IdenticalToObservations(const std::string& modelPath, std::size_t modelOrdinal)
        : RunFailure(modelPath + ": every X equals its Y"), path(modelPath), ordinal(modelOrdinal) {}

    std::string path;
    std::size_t ordinal; ///< Among the selected files, from 1.
};

} // namespace corvane
