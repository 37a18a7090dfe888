#pragma once

#include "core/dataset.h"
#include "core/evaluation_arrays.h"
#include "core/failure.h"
#include "core/plot_request.h"
#include "core/report.h"
#include "core/run_services.h"
#include "core/session_state.h"
#include "stats/correlation.h"
#include "stats/error_measures.h"
#include "stats/line_family.h"
#include "stats/line_fits.h"
#include "stats/median_fit.h"
#include "stats/order.h"
#include "stats/pair_statistics.h"
#include "stats/residual_statistics.h"

#include <array>
#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace corvane {

/// A results window that a run opens beside its report.
struct RunWindow {
    std::string name;    ///< Of the file that a saved window becomes.
    std::string caption; ///< Less the dataset's name.
    Report content;
};

/// The arrays of a run that outlive it in long tables and plots.
struct RunColumns {
    EvaluationArrays arrays;
    stats::Residuals residuals;
};

/// Counts of pairs: first index over- or underprediction, second below or above.
using AllocationTable = std::array<std::array<std::int32_t, 2>, 2>;

/// What one Calculate carries from section to section. The values keep the names that the report's text uses;
/// those that the chosen method does not compute stay 0.
struct RunState {
    Dataset& dataset;
    SessionState& session;
    const RunServices& services;
    Report report{};
    std::vector<ReportLine> header{}; ///< The first lines of the report, which its windows may repeat.
    std::list<RunWindow> windows{};
    std::vector<ChartRequest> plots{};   ///< In the order in which they open.
    std::string residueFile{};           ///< Path of the residue file that the run wrote; empty: none.
    std::vector<std::string> warnings{}; ///< What the user should know and the report does not say.
    std::vector<std::string> notSaved{}; ///< Which file that the run should write could not be, and why.

    std::shared_ptr<RunColumns> columns = std::make_shared<RunColumns>();
    EvaluationArrays& arrays = columns->arrays;
    stats::Residuals& residuals = columns->residuals;

    double a = 0, b = 0, SDa = 0, SDb = 0, Chi2 = 0, Q = 0; ///< The line Y = a + b X of the chosen method.
    double AbsDev = 0;                                      ///< Least absolute deviations only.
    stats::LineFamily family{};                             ///< Regular least squares only.

    stats::PairSummary pairs{};
    stats::ResistantFit resistant{};
    stats::ErrorMeasures errors{};
    stats::Pearson pearson{};

    /// The tables of Balance analysis; Orthogonal balance counts in them again.
    AllocationTable BalanceTableX{}, BalanceTableY{};

    const AnalysisOptions& Options() const { return dataset.options; }
    double N() const { return static_cast<double>(arrays.Count()); }
    bool Comments() const { return IsSet(dataset.options.ADD_COMMENT); }

    /// X and Y in ascending order, sorted once, for the routines to which pairs mean nothing.
    const std::vector<double>& SortedX() { return Sorted(sortedX, arrays.X); }
    const std::vector<double>& SortedY() { return Sorted(sortedY, arrays.Y); }

    /// One of the run's own arrays, for a table or a plot.
    SharedColumn Share(const std::vector<double>& array) const { return SharedColumn(columns, &array); }

    /// Runs one statement; a failure in it is noted with the section that is being written.
    template<class Work>
    void Statement(Work&& work) {
        report.Current().Statement(std::forward<Work>(work));
    }

    std::vector<double> sortedX{}, sortedY{}; ///< Empty until they are asked for.

private:
    static const std::vector<double>& Sorted(std::vector<double>& sorted, const std::vector<double>& sample) {
        if (sorted.empty())
            sorted = stats::SortedFinite(sample);
        return sorted;
    }
};

} // namespace corvane
