#pragma once

#include "core/dataset.h"
#include "core/session_state.h"
#include "plots/chart_model.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

/// The charts of an action, or the critical message in their place.
struct ChartOutcome {
    std::vector<ChartModel> charts;
    std::string message;
};

/// The Scatter action: Y on X of the rows up to the first without an X. Rows whose Exclude cell begins with
/// "Y" are left out, or shown as excluded points with SHOW_EXCLUDED; a "0" there leaves a row in. A cell that
/// is no number is a gap.
///
/// The series are the points ("Obs"), the line of equality with PLOT_YX ("Y=X"), and the excluded points
/// where there are some ("Excluded"); of every row, "Obs" and "Excluded" have a point, of which one is a gap.
ChartOutcome ScatterPlot(const Dataset& dataset, const SessionState& session);

/// The Rank action: the same on the rank columns, of the rows that have a rank.
ChartOutcome RankPlot(const Dataset& dataset, const SessionState& session);

/// The rows before the first one whose cell in this column is empty.
std::int32_t RowsBeforeEmpty(const DataMatrix& cells, int column);

/// Whether plots leave a row out: its Exclude cell begins with "Y", in any case.
bool ExcludedFromPlots(const DataMatrix& cells, std::int32_t row);

} // namespace corvane
