#pragma once

#include "core/dataset.h"
#include "core/option_table.h"
#include "core/session_state.h"

namespace corvane {

/// What a change of an option led to beyond the option itself.
enum class ChangeResult {
    Done,
    TooFewRows,  ///< N below 2: the option holds it and the table stays as it was.
    TooManyRows, ///< N that no row number can count: likewise.
};

/// Sets an option as its control does: other buttons of its group are cleared, and the control's handler
/// runs. Ticking HIST_2D clears HIST_3D and the other way round (a pie becomes a bar in three dimensions);
/// SwapXY exchanges the columns; the deviation limits and DEVIATION_CI_PROB set each other to "0"; a limit's
/// text becomes the session's limit; N makes the table as long, also when it already holds the number. A
/// handler does not set off another one, and otherwise a value that the option already holds changes nothing.
ChangeResult ChangeOption(Dataset& dataset, SessionState& session, const OptionRow& row,
                          const OptionValue& value);

/// The same, and then what leaving the control does: fewer than 3 histogram bins become 3.
ChangeResult TypeOption(Dataset& dataset, SessionState& session, const OptionRow& row,
                        const OptionValue& value);

/// Ticks the gates of all report sections and plots and leaves the other options alone.
void TickAllGates(Dataset& dataset, SessionState& session);

} // namespace corvane
