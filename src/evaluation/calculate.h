#pragma once

#include "core/dataset.h"
#include "core/report.h"
#include "core/run_state.h"
#include "core/session_state.h"

namespace corvane {

/// How a run ended.
enum class RunEnd {
    Finished,
    TooFewRows,      ///< Fewer than three analysed rows; the run itself says nothing.
    IdenticalValues, ///< Every X equals its Y.
    NoMethod,        ///< No regression method is set.
};

struct RunResult {
    RunEnd end = RunEnd::Finished;
    int rows = 0;    ///< The number of analysed rows.
    Report report{}; ///< Complete at RunEnd::Finished, otherwise empty, as are the following.
    std::list<RunWindow> windows{};
    std::vector<ChartRequest> plots{};
    std::string residueFile{};           ///< The residue file that was written; empty: none.
    std::vector<std::string> warnings{}; ///< What the user should know and the report does not say.
    std::vector<std::string> notSaved{}; ///< Which file that the run should write could not be, and why.
};

inline constexpr const char* IdenticalValuesMessage = "X and Y values are identical. Computation halted!";
inline constexpr const char* NoMethodMessage = "No option for regression is selected";

/// The Calculate action: selects the rows, corrects the regression method where the uncertainties do not
/// allow the weighted one (which changes the option itself), fits, and writes every section whose gate is
/// set. Messages go to the dialogs, all before there is a report; warnings, and what was not
/// saved, are the caller's to show.
RunResult Calculate(Dataset& dataset, SessionState& session, const RunServices& services);

} // namespace corvane
