#pragma once

#include "core/evaluation_arrays.h"
#include "core/format/failure.h"
#include "platform/progress.h"
#include "plots/chart_model.h"
#include "report/report.h"
#include "run/snapshot.h"
#include "stats/correlation.h"
#include "stats/error_measures.h"
#include "stats/harlow.h"
#include "stats/line_family.h"
#include "stats/line_fits.h"
#include "stats/median_fit.h"
#include "stats/normality.h"
#include "stats/order.h"
#include "stats/pair_statistics.h"
#include "stats/residual_statistics.h"

#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
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

/// What one Calculate carries from section to section. The values keep the names that the report's text uses;
/// those that the chosen method does not compute stay 0.
struct RunState {
    Snapshot snapshot; ///< The run's own: it reads the ranks and the limits that it wrote.
    Progress& progress;
    std::stop_token stop{};
    Dataset& dataset = snapshot.dataset;
    SessionState& session = snapshot.session;

    Report report{};
    std::vector<ReportLine> header{}; ///< The first lines of the report, which its windows may repeat.
    std::list<RunWindow> windows{};
    std::vector<ChartModel> plots{};       ///< In the order in which they open.
    std::string residueText{};             ///< What the residue file shall hold; empty: it is not wanted.
    std::vector<std::string> messages{};   ///< What was told while the run went on.
    std::vector<std::string> warnings{};   ///< What the user should know and the report does not say.
    bool regularMethod = false;            ///< The run took the regular method in place of the weighted one.
    bool ranked = false;                   ///< The rank columns were written.
    std::string_view sectionId = "header"; ///< Of the section that runs.
    double sectionBegins = 0, sectionEnds = 1; ///< The shares of the whole at which it begins and ends.

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
    stats::AllocationTable BalanceTableX{}, BalanceTableY{};

    const AnalysisOptions& Options() const { return dataset.options; }
    double N() const { return static_cast<double>(arrays.Count()); }
    bool Comments() const { return IsSet(dataset.options.ADD_COMMENT); }

    /// X and Y in ascending order, sorted once, for the routines to which pairs mean nothing.
    const std::vector<double>& SortedX() { return Sorted(sortedX, arrays.X, stop); }
    const std::vector<double>& SortedY() { return Sorted(sortedY, arrays.Y, stop); }

    /// The tests of X and Y, done once for a section and a histogram.
    const stats::ShapiroWilkResult& NormalityX() { return Tested(normalityX, SortedX()); }
    const stats::ShapiroWilkResult& NormalityY() { return Tested(normalityY, SortedY()); }

    /// One of the run's own arrays, for a table or a plot.
    SharedColumn Share(const std::vector<double>& array) const { return SharedColumn(columns, &array); }

    /// The dataset row of each pair.
    SharedRows ShareRows() const { return SharedRows(columns, &arrays.rows); }

    /// Runs one statement; a failure in it is filed with the section that runs.
    template<class Work>
    void Statement(Work&& work) {
        if (auto reason = corvane::Statement(std::forward<Work>(work)))
            FileFailure(std::move(*reason));
    }

    /// Files a failure with the section that runs, wherever its text goes and whether or not it has begun.
    void FileFailure(std::string reason) {
        for (RunWindow& window : windows)
            if (ReportSection* section = window.content.Find(sectionId)) {
                section->failures.push_back(std::move(reason));
                return;
            }
        report.FileFailure(sectionId, std::move(reason));
    }

    /// How much of the section that runs is done, from 0 to 1.
    void ShowSectionShare(double share) {
        progress.ShowShare(sectionBegins + share * (sectionEnds - sectionBegins));
    }

    void Tell(MessageStyle style, const std::string& text) {
        messages.push_back(text);
        progress.Tell(style, text);
    }

    std::vector<double> sortedX{}, sortedY{}; ///< Empty until they are asked for.
    std::optional<stats::ShapiroWilkResult> normalityX{}, normalityY{};

private:
    static const std::vector<double>& Sorted(std::vector<double>& sorted, const std::vector<double>& sample,
                                             const std::stop_token& stop) {
        if (sorted.empty())
            sorted = stats::SortedFinite(sample, stop);
        return sorted;
    }
    static const stats::ShapiroWilkResult& Tested(std::optional<stats::ShapiroWilkResult>& test,
                                                  const std::vector<double>& sorted) {
        if (!test)
            test = stats::ShapiroWilk(sorted);
        return *test;
    }
};

} // namespace corvane
