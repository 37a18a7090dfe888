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

/// Whether a path that the line carries names a file. One that is no valid UTF-8 could not stand in a report.
bool NamesAFile(const std::string& path) {
    return IsValidUtf8(path) && FileExists(path);
}

/// The native path of a line's path; the report's header takes the name behind the last separator, so it must
/// have one.
std::string AbsolutePath(const std::string& path) {
    std::error_code error;
    const std::string absolute = std::filesystem::absolute(NativePath(path), error).string();
    return error ? std::string() : absolute;
}

} // namespace

std::string Session::Caption() const {
    const std::string name = FileNameOf(state.CurrentDatasetName);
    return "Corvane v. " + VersionText() + (name.empty() ? "" : " - " + name);
}

ResultsServices Session::ForResults() const {
    return {services.files, services.folders, services.dialogs, services.printer, services.editor};
}

bool Session::Start(std::string_view commandLine) {
    if (const std::string fault = ReadUserSettings(dataset.options, services.settings); !fault.empty())
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
        dataset.cells.Clear();
        state.CurrentDatasetName.clear();
        Open(batch.BatchFile);
        const auto tick = [&](std::int16_t AnalysisOptions::*box, bool on) {
            ChangeOption(dataset, state, OptionOf(box), static_cast<std::int16_t>(on ? 1 : 0));
        };
        tick(&AnalysisOptions::SHOW_RESIDUAL_PLOT, line.plots);
        tick(&AnalysisOptions::RESIDUAL_ANALYSIS, line.residuals);
        CalculateAction();
    }
    if (NamesAFile(batch.BatchCompareFile))
        comparison.Open(batch.BatchCompareFile, services.files);
    batch.BatchRun = false;
    return line.quit;
}

void Session::Open(const std::string& path) {
    if (!state.CurrentDatasetName.empty())
        state.rememberedFolder = FolderOf(state.CurrentDatasetName);
    const LoadOutcome outcome = LoadFile(path, dataset, state, services.files);
    if (outcome.state == LoadState::OldVersion)
        services.dialogs.ShowMessage(MessageStyle::Critical, OldVersionMessage, "Load");
    if (outcome.tooFewRowsLine > 0)
        services.dialogs.ShowMessage(MessageStyle::Information, TooFewRowsMessage, "");
    if (!outcome.Complete())
        return;
    if (!IsSet(dataset.options.NoSound))
        services.feedback.Beep();
    services.feedback.ShowProgress("File loaded ...");
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
    EmptyDataset(dataset, state);
}

void Session::CalculateAction() {
    Calculation calculation(dataset, state, services.clock, services.random, services.files,
                            WorkingFolder(services.folders));
    ShownProgress progress(services.feedback, services.dialogs);
    RunResult result = calculation.Run(progress);
    services.feedback.HideProgress();
    ApplyChanges(result.changes, dataset, state);
    if (result.end != RunEnd::Finished)
        return;
    calculation.SaveResidueFile(result);
    for (const RunWindow& opened : result.windows)
        windows.push_back({opened.caption + DatasetTitle(state), opened.content.Text()});
    if (!calculation.ResidueFile().empty())
        services.editor.Open(calculation.ResidueFile());
    ResultsWindow& window =
        windows.emplace_back(ResultsWindow{"Results - " + Caption(), result.report.Text()});
    if (batch.BatchRun)
        ActInBatch(window);
    plots.insert(plots.end(), result.plots.begin(), result.plots.end());
    for (const auto* messages : {&result.warnings, &result.notSaved})
        for (const std::string& message : *messages)
            services.dialogs.ShowMessage(MessageStyle::Information, message, "");
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
