#pragma once

#include "comparison/comparison_data.h"
#include "core/report.h"

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

/// A text or whole number in the middle of a column.
std::string Centred(std::int32_t width, std::string_view text);

/// A number of a table. A RunFailure that begins with `place`, the model and the column, where the width is
/// too small for the decimals.
ReportField PlacedNumber(ReportField (*format)(std::int32_t, std::int32_t, CellValue), std::int32_t width,
                         std::int32_t decimals, double value, const std::string& place);

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
/// AIC = n (ln(SSE/n) + ln(2 pi) + 1) + 2 k, AICc = AIC + 2 k (k + 1)/(n - k - 1) with k = 3 and SSE of the
/// regression of Y on X: Burnham and Anderson (2002). AICc' leaves out n (ln(2 pi) + 1). Below 4 rows and for
/// SSE = 0 all three are 0; 4 rows, for which AICc does not exist, are a RunFailure, as is a model whose
/// every value equals its observation (`IdenticalToObservations`).
Adequacy WriteAdequacy(Report& report, const ComparisonData& data, const ReportColumns& columns);

/// Every value of a model equals its observation.
class IdenticalToObservations : public RunFailure {
public:
    IdenticalToObservations(const std::string& modelPath, std::size_t modelOrdinal)
        : RunFailure(modelPath + ": every X equals its Y"), path(modelPath), ordinal(modelOrdinal) {}

    std::string path;
    std::size_t ordinal; ///< Among the selected files, from 1.
};

} // namespace corvane
