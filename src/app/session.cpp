#include "app/session.h"

#include "app/calculation.h"
#include "app/grid_actions.h"
#include "app/parameters.h"
#include "app/shown_progress.h"
#include "app/user_settings.h"
#include "core/format/code_page.h"
#include "core/format/paths.h"
#include "core/format/text_lists.h"
#include "core/grid_operations.h"
#include "core/option_changes.h"
#include "core/version.h"
#include "files/dataset_reader.h"

#include <filesystem>
#include <optional>
#include <system_error>

namespace corvane {
namespace {

/// Whether a path that the line carries names a file. One that is no valid UTF-8 could not be shown in a
/// report.
bool NamesAFile(const std::string& path) {
    return IsValidUtf8(path) && FileExists(path);
}

/// The native path of a line's path; the report's header takes the name after the last separator, so it must
/// have one.
std::string AbsolutePath(const std::string& path) {
    std::error_code error;
    const std::string absolute = std::filesystem::absolute(NativePath(path), error).string();
    return error ? std::string() : absolute;
}

} // namespace

std::string Session::Caption() const {
    const std::string name = FileNameOf(document.Path());
    return "Corvane v. " + VersionText() + (name.empty() ? "" : " - " + name);
}

ResultsServices Session::ForResults() const {
    return {services.files, services.folders, services.dialogs, services.printer, services.editor};
}

bool Session::Start(std::string_view commandLine) {
    std::string fault;
    document.ChangeSilently([&](Dataset& dataset, SessionState&) {
        fault = ReadUserSettings(dataset.options, services.settings);
    });
    if (!fault.empty())
        services.dialogs.ShowMessage(MessageStyle::Information, fault, "");
    WorkingFolder(services.folders);
    return !commandLine.empty() && Dispatch(commandLine);
}

bool Session::Dispatch(std::string_view commandLine) {
    const SwitchLine line = ReadSwitches(commandLine);
    const auto take = [](std::string& path, const std::optional<std::string>& given) {
        if (given)
            path = AbsolutePath(*given);
    };
    take(batch.BatchFile, line.file);
    take(batch.BatchPath, line.folder);
    take(batch.BatchCompareFile, line.compareFile);
    batch.BatchPrint = batch.BatchPrint || line.print;
    batch.BatchSave = batch.BatchSave || line.save;
    batch.BatchShow = batch.BatchShow || line.show;

    batch.BatchRun = true;
    if (NamesAFile(batch.BatchFile)) {
        // The name goes with the cells: a file that is then refused must not leave an empty dataset under the
        // old one.
        document.Load([](Dataset& dataset, SessionState& state) {
            dataset.cells.Clear();
            state.CurrentDatasetName.clear();
        });
        Open(batch.BatchFile);
        document.ChangeSilently([&](Dataset& dataset, SessionState& state) {
            const auto tick = [&](std::int16_t AnalysisOptions::*box, bool on) {
                ChangeOption(dataset, state, OptionOf(box), static_cast<std::int16_t>(on ? 1 : 0));
            };
            tick(&AnalysisOptions::SHOW_RESIDUAL_PLOT, line.plots);
            tick(&AnalysisOptions::RESIDUAL_ANALYSIS, line.residuals);
        });
        CalculateAction();
    }
    if (NamesAFile(batch.BatchCompareFile))
        comparison.Open(batch.BatchCompareFile, services.files);
    batch.BatchRun = false;
    return line.quit;
}

LoadOutcome Session::Open(const std::string& path) {
    // Into a copy, so that a refused file leaves the document as it is.
    Dataset dataset = document.Data();
    SessionState state = document.Session();
    if (!state.CurrentDatasetName.empty())
        state.rememberedFolder = FolderOf(state.CurrentDatasetName);
    LoadOutcome outcome = LoadFile(path, dataset, state, services.files);
    if (outcome.state == LoadState::OldVersion)
        services.dialogs.ShowMessage(MessageStyle::Critical, OldVersionMessage, "Load");
    if (outcome.tooFewRowsLine > 0)
        services.dialogs.ShowMessage(MessageStyle::Information, TooFewRowsMessage, "");
    const std::string folder = state.rememberedFolder;
    if (outcome.state == LoadState::Loaded || outcome.state == LoadState::Partial)
        document.Load(
            [&](Dataset& loaded, SessionState& session) {
                loaded = std::move(dataset);
                session = std::move(state);
            },
            outcome.Complete());
    else
        document.ChangeSilently([&](Dataset&, SessionState& session) { session.rememberedFolder = folder; });
    if (!outcome.Complete())
        return outcome;
    if (!IsSet(document.Data().options.NoSound))
        services.feedback.Beep();
    services.feedback.ShowProgress("File loaded ...");
    return outcome;
}

void Session::Drop(std::span<const std::string> paths) {
    batch.BatchRun = true;
    for (const std::string& path : paths) {
        batch.BatchFile = path;
        Open(path);
    }
    batch.BatchRun = false;
}

void Session::Clear() {
    if (!services.dialogs.AskYesNo(ClearQuestion, "", false))
        return;
    ClearDataset(document);
}

PendingRun Session::BeginCalculation() {
    PendingRun pending;
    pending.calculation =
        std::make_unique<Calculation>(document.Data(), document.Session(), services.clock, services.random,
                                      services.files, WorkingFolder(services.folders));
    pending.stamp = {++runs, services.clock.Now(), 0, document.DataRevision(), document.Identity()};
    return pending;
}

FinishedRun Session::FinishCalculation(PendingRun& pending, RunResult result) {
    FinishedRun finished{.end = result.end, .stamp = pending.stamp, .warnings = std::move(result.warnings)};
    finished.stamp.rows = result.rows;
    if (document.Identity() != pending.stamp.identity) {
        finished.changesLeftOut = true;
    } else {
        const bool edited = document.DataRevision() != pending.stamp.revision;
        if (edited && result.changes.ranks) {
            result.changes.ranks.reset();
            finished.ranksLeftOut = true;
        }
        const auto apply = [&](Dataset& dataset, SessionState& state) {
            ApplyChanges(result.changes, dataset, state);
        };
        if (batch.BatchRun)
            document.ChangeSilently(apply);
        else
            document.Change({"Calculate"}, apply);
        if (!edited) // the ranks are the run's own doing, and no edit of the data that it saw
            finished.stamp.revision = document.DataRevision();
    }
    if (result.end != RunEnd::Finished)
        return finished;
    pending.calculation->SaveResidueFile(result);
    notSaved.insert(notSaved.end(), result.notSaved.begin(), result.notSaved.end());
    const auto open = [&](std::string caption, Report&& report) {
        finished.windows.push_back(&windows.emplace_back(ResultsWindow{
            std::move(caption), std::make_shared<const Report>(std::move(report)), finished.stamp}));
    };
    for (RunWindow& opened : result.windows)
        open(opened.caption + document.Title(), std::move(opened.content));
    if (const std::string& residueFile = pending.calculation->ResidueFile(); !residueFile.empty())
        services.editor.Open(residueFile);
    open("Results - " + Caption(), std::move(result.report));
    plots.insert(plots.end(), result.plots.begin(), result.plots.end());
    return finished;
}

void Session::CalculateAction() {
    PendingRun pending = BeginCalculation();
    ShownProgress progress(services.feedback, services.dialogs);
    RunResult result = pending.calculation->Run(progress);
    services.feedback.HideProgress();
    const FinishedRun finished = FinishCalculation(pending, std::move(result));
    if (finished.windows.empty())
        return;
    if (batch.BatchRun)
        ActInBatch(*finished.windows.back());
    for (const std::string& warning : finished.warnings)
        services.dialogs.ShowMessage(MessageStyle::Information, warning, "");
}

void Session::ActInBatch(ResultsWindow& window) {
    if (batch.BatchSave) {
        std::string path;
        const FileResult saved = SaveUnderNumber(window, batch.BatchPath, ForResults(), path);
        if (!saved.done)
            notSaved.push_back(path + ": the results are not saved: " + saved.reason);
        else if (batch.BatchShow)
            services.editor.Open(path);
    }
    if (batch.BatchPrint)
        PrintResults(window, ForResults());
    if (batch.BatchShow)
        window.open = false;
}

} // namespace corvane
