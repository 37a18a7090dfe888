#pragma once

#include "core/dataset.h"
#include "core/session_state.h"
#include "plots/plot_request.h"

#include <optional>
#include <string>

namespace corvane {

/// A plot request, or the critical message that stands in its place.
struct PlotOutcome {
    std::optional<PlotRequest> request;
    std::string message;
};

/// The Scatter action: Y on X of the rows up to the first without an X. Rows whose Exclude cell begins with
/// "Y" are left out, or shown as excluded points with SHOW_EXCLUDED; a "0" there leaves a row in. A cell that
/// is no number is a gap.
PlotOutcome ScatterPlot(const Dataset& dataset, const SessionState& session);

/// The Rank action: the same on the rank columns, of the rows that have a rank.
PlotOutcome RankPlot(const Dataset& dataset, const SessionState& session);

/// The rows before the first one whose cell in this column is empty.
std::int32_t RowsBeforeEmpty(const DataMatrix& cells, int column);

/// Whether plots leave a row out: its Exclude cell begins with "Y", in any case.
bool ExcludedFromPlots(const DataMatrix& cells, std::int32_t row);

} // namespace corvane
