#pragma once

#include "core/analysis_options.h"
#include "core/data_matrix.h"

#include <cstdint>
#include <vector>

namespace corvane {

/// The pairs of one run, an element for each analysed row, in the units of the data.
struct EvaluationArrays {
    std::vector<double> X, SDX, Y, SDY;
    std::vector<std::int32_t> rows; ///< The dataset row of each pair.
    bool XYDiffer = false;          ///< Whether some pair has X different from Y.

    std::size_t Count() const { return X.size(); }
};

/// The SD of an ignored side: negligible, but not zero, since the weighted fit divides by it.
inline constexpr double IgnoredSD = 1e-30;

/// Whether the row's Exclude cell begins with "Y" (in any case) or "0".
bool RowIsExcluded(const DataMatrix& cells, std::int32_t row);

/// Whether a row takes part: its X is not empty and it is not excluded.
bool RowIsAnalysed(const DataMatrix& cells, std::int32_t row);

/// Takes the analysed rows in their order. A cell that is no number, an empty Y among them, counts as 0.
EvaluationArrays SelectRows(const DataMatrix& cells);

/// Puts IgnoredSD in place of the SDs of each side that the options ignore.
void IgnoreUncertainties(EvaluationArrays& arrays, const AnalysisOptions& options);

} // namespace corvane
