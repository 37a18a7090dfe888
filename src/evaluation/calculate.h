#pragma once

#include "core/data_matrix.h"
#include "platform/progress.h"
#include "report/report.h"
#include "run/run_state.h"
#include "run/snapshot.h"

#include <list>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace corvane {

/// How a run ended.
enum class RunEnd {
    Finished,
    TooFewRows,      ///< Fewer than three analysed rows; the run itself says nothing.
    IdenticalValues, ///< Every X equals its Y.
    NoMethod,        ///< No regression method is set.
    Cancelled,       ///< It was asked to stop; nothing of it is left.
};

/// What a run wants changed in the document. It changes nothing itself.
struct RunChanges {
    bool regularMethod = false;        ///< The regular method is set in place of the weighted one.
    std::optional<DataMatrix> ranks{}; ///< Cells whose rank columns are to be taken.
    std::optional<RunMemory> memory{}; ///< What the next run shall find.
};

struct RunResult {
    RunEnd end = RunEnd::Finished;
    int rows = 0;    ///< The number of analysed rows.
    Report report{}; ///< Complete at RunEnd::Finished, otherwise empty, as are the windows and plots.
    std::list<RunWindow> windows{};
    std::vector<ChartModel> plots{};
    std::string residueText{}; ///< What belongs into the reserved residue file; empty: it is not wanted.
    std::vector<std::string> messages{}; ///< What was told while the run went on, in order.
    std::vector<std::string> warnings{}; ///< What the user should know and the report does not say.
    std::vector<std::string> notSaved{}; ///< Which file that belongs to the run could not be saved, and why.
    RunChanges changes{};                ///< Also of a run that ended early; none of a cancelled one.
};

inline constexpr const char* IdenticalValuesMessage = "X and Y values are identical. Computation halted!";
inline constexpr const char* NoMethodMessage = "No option for regression is selected";

/// The Calculate action as a function: selects the rows, corrects the regression method where the
/// uncertainties do not allow the weighted one, fits, and writes every section whose gate is set. Messages
/// are told when they are raised; warnings are the caller's to show. A stop is noticed within some ten
/// milliseconds at a million pairs.
RunResult Calculate(Snapshot snapshot, Progress& progress, const std::stop_token& stop = {});

/// Applies what a run wants changed.
void ApplyChanges(const RunChanges& changes, Dataset& dataset, SessionState& session);

/// Puts the rank columns of other cells in place of these.
void TakeRanks(const DataMatrix& ranks, DataMatrix& cells);

} // namespace corvane
