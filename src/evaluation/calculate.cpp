#include "evaluation/calculate.h"

#include "analyses/regression.h"
#include "core/evaluation_arrays.h"
#include "core/format/numbers.h"
#include "core/option_changes.h"
#include "evaluation/report_header.h"
#include "evaluation/section_catalog.h"
#include "stats/cancellation.h"

#include <utility>
#include <vector>

namespace corvane {
namespace {

constexpr std::size_t fewestRows = 3;

/// Whether the weighted fit would divide by an SD of 0.
bool SomeWeightMissing(const EvaluationArrays& arrays, const AnalysisOptions& options) {
    for (std::size_t i = 0; i < arrays.Count(); ++i)
        if ((arrays.SDX[i] == 0 && options.UNCERTAINTY_X == 0) ||
            (arrays.SDY[i] == 0 && options.UNCERTAINTY_Y == 0))
            return true;
    return false;
}

void CorrectMethod(RunState& run) {
    const AnalysisOptions& options = run.Options();
    const auto useRegular = [&](const char* message) {
        run.Tell(MessageStyle::Information, message);
        ChangeOption(run.dataset, run.session, OptionOf(&AnalysisOptions::LSM), true);
        run.regularMethod = true;
    };
    if (IsSet(options.UNCERTAINTY_X) && IsSet(options.UNCERTAINTY_Y) && options.WLSM)
        useRegular("Because both uncertainties are being ignored, the Regular Least-Squares Regression will "
                   "be used");
    if (options.WLSM && SomeWeightMissing(run.arrays, options))
        useRegular(
            "Because at least one SD X or SD Y is zero, the Regular Least-Squares Regression will be used");
}

/// The confidence of the deviation sections: per cent or a fraction; 0 or nothing means 0.95.
void SetDeviationConfidence(RunState& run) {
    const std::string& text = run.Options().DEVIATION_CI_PROB;
    double& probability = run.session.DeviationCIProb;
    if (!text.empty()) {
        probability = LeadingNumber(text);
        if (probability >= 1)
            probability /= 100;
    }
    if (probability == 0)
        probability = 0.95;
}

void WriteSections(RunState& run) {
    std::vector<const SectionDefinition*> open;
    for (const SectionDefinition* section : SectionCatalog())
        if (!section->nested && section->gate.IsOpen(run.Options()))
            open.push_back(section);
    for (std::size_t done = 0; done < open.size(); ++done) {
        stats::ThrowIfCancelled(run.stop);
        run.sectionBegins = static_cast<double>(done + 1) / static_cast<double>(open.size() + 1);
        run.sectionEnds = static_cast<double>(done + 2) / static_cast<double>(open.size() + 1);
        run.ShowSectionShare(0);
        RunSection(run, *open[done]);
    }
}

/// The way from the selected rows to the finished report, or to where it ends early.
RunEnd Evaluate(RunState& run) {
    run.arrays = SelectRows(run.dataset.cells);
    if (run.arrays.Count() < fewestRows)
        return RunEnd::TooFewRows;
    if (!run.arrays.XYDiffer) {
        run.Tell(MessageStyle::Critical, IdenticalValuesMessage);
        return RunEnd::IdenticalValues;
    }
    IgnoreUncertainties(run.arrays, run.Options());
    CorrectMethod(run);

    run.progress.ShowStage("Regression...");
    if (!FitRegression(run)) {
        run.Tell(MessageStyle::Critical, NoMethodMessage);
        return RunEnd::NoMethod;
    }
    WriteReportHeader(run, run.snapshot.time);
    SetDeviationConfidence(run);
    WriteSections(run);
    return RunEnd::Finished;
}

} // namespace

RunResult Calculate(Snapshot snapshot, Progress& progress, const std::stop_token& stop) {
    RunState run{.snapshot = std::move(snapshot), .progress = progress, .stop = stop};
    RunResult result;
    try {
        result.end = Evaluate(run);
    } catch (const stats::Cancelled&) {
        return {.end = RunEnd::Cancelled};
    }
    result.rows = static_cast<int>(run.arrays.Count());
    result.messages = std::move(run.messages);
    result.changes.regularMethod = run.regularMethod;
    if (result.end != RunEnd::Finished)
        return result;
    result.changes.memory = run.session;
    if (run.ranked)
        result.changes.ranks = std::move(run.dataset.cells);
    result.report = std::move(run.report);
    result.windows = std::move(run.windows);
    result.plots = std::move(run.plots);
    result.residueText = std::move(run.residueText);
    result.warnings = std::move(run.warnings);
    return result;
}

void TakeRanks(const DataMatrix& ranks, DataMatrix& cells) {
    for (const int column : {ColumnRankX, ColumnRankY})
        cells.TakeColumn(column, ranks);
}

void ApplyChanges(const RunChanges& changes, Dataset& dataset, SessionState& session) {
    if (changes.regularMethod)
        ChangeOption(dataset, session, OptionOf(&AnalysisOptions::LSM), true);
    if (changes.ranks)
        TakeRanks(*changes.ranks, dataset.cells);
    if (changes.memory)
        static_cast<RunMemory&>(session) = *changes.memory;
}

} // namespace corvane
