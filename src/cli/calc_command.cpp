#include "cli/calc_command.h"

#include "app/calculation.h"
#include "app/chart_files.h"
#include "app/json_report.h"
#include "app/run_folder.h"
#include "app/saved_windows.h"
#include "app/shown_progress.h"
#include "cli/built_painter.h"
#include "cli/command_support.h"
#include "cli/report_clock.h"
#include "core/format/paths.h"
#include "core/option_changes.h"
#include "evaluation/calculate.h"
#include "platform/native/interruption.h"
#include "platform/native/native_file_store.h"
#include "platform/native/seeds.h"

#include <optional>
#include <utility>
#include <vector>

namespace corvane {
namespace {

/// A run's own message is already on standard error; what it keeps silent about, the command line says.
ExitCode FailedRun(const RunResult& result, const std::string& data) {
    if (result.end == RunEnd::TooFewRows)
        return Fail(data + ": " + std::to_string(result.rows) +
                    (result.rows == 1 ? " row is in use" : " rows are in use") + ", at least 3 are needed");
    return ExitFailed;
}

/// Every chart that the run opened; those that cannot be painted are named.
ExitCode SavePlots(const std::string& folder, const RunResult& result, FileStore& files,
                   std::vector<std::string>& written, KeptMessages& messages) {
    const SavedCharts saved = SaveCharts(result.plots, folder, BuiltPainter().get(), files, written);
    for (const std::string& warning : saved.warnings)
        messages.Warn("", warning);
    for (const std::string& message : saved.messages)
        messages.Tell(message);
    return saved.all ? ExitDone : ExitFailed;
}

/// Saves what --out asks for and says what else is there.
ExitCode SaveInFolder(const CalcRequest& request, const RunResult& result, const std::string& residueFile,
                      KeptMessages& messages, FileStore& files) {
    std::vector<std::string> written;
    if (request.outFolder.empty())
        return ExitDone;
    if (!residueFile.empty())
        written.push_back(FileNameOf(residueFile));
    if (const FileResult saved = SaveWindows(request.outFolder, result, files, written); !saved.done) {
        messages.Tell(saved.reason);
        return ExitFailed;
    }
    const ExitCode charts = SavePlots(request.outFolder, result, files, written, messages);
    TellOldFiles(request.outFolder, written, messages);
    return charts;
}

ExitCode Evaluate(const CalcRequest& request) {
    NativeFileStore files;
    Dataset dataset;
    SessionState session;
    const auto clock = ReportClock();
    if (!clock)
        return Fail(WrongEpochMessage);

    std::vector<std::string> messages;
    if (const std::string fault = OpenData(request.data, dataset, session, files, &messages); !fault.empty())
        return Fail(fault);
    OutputGuard guard;
    guard.Read(request.data, "the dataset");
    if (const std::string fault = ClaimOutputs(request.outFolder, request.jsonFile, guard); !fault.empty())
        return Fail(fault);
    if (request.all)
        TickAllGates(dataset, session);
    if (const std::string fault = ApplyAssignments(request.assignments, dataset, session); !fault.empty())
        return Fail(fault);

    KeptMessages dialogs("corvane: " + request.data + ": ");
    dialogs.texts = std::move(messages);
    TerminalFeedback feedback;
    ClockSeeds clockSeeds;
    FixedSeed userSeed(request.seed.value_or(0));
    Random& random = request.seed ? static_cast<Random&>(userSeed) : clockSeeds;
    // Signals ask for a stop until what the run has on the disk is whole or gone. Painting forks, so that
    // they must end the program again by then.
    std::optional<Interruption> interruption(std::in_place);
    OutputFolder folder;
    if (!request.outFolder.empty()) { // before the run, since a residue file goes there
        if (const std::string fault = folder.Make(request.outFolder); !fault.empty())
            return Fail(fault);
    }
    Calculation calculation(dataset, session, *clock, random, files, request.outFolder);
    ShownProgress progress(feedback, dialogs);
    RunResult result = calculation.Run(progress, interruption->Token());
    feedback.HideProgress();
    if (Interruption::Requested())
        return ExitInterrupted;
    ApplyChanges(result.changes, dataset, session);
    if (result.end != RunEnd::Finished) {
        folder.Keep();
        return FailedRun(result, request.data);
    }
    calculation.SaveResidueFile(result);
    if (Interruption::Requested()) { // while the file was written
        calculation.DiscardResidueFile();
        return ExitInterrupted;
    }
    folder.Keep();
    interruption.reset();
    for (const std::string& warning : result.warnings)
        dialogs.Warn(request.data, warning);
    if (request.outFolder.empty() && request.jsonFile.empty())
        for (const RunWindow& window : result.windows)
            WriteErrorLine("corvane: " + request.data + ": " + window.name +
                           ".txt has a window of its own and is not printed here; --out DIR saves it" +
                           (window.name == "residue" ? ", --set RESIDUE_WINDOW=0 prints it" : ""));
    for (const std::string& failure : result.notSaved)
        dialogs.Fail(request.data, failure);

    // The report comes even where a file of the run could not be written.
    const ExitCode saved = SaveInFolder(request, result, calculation.ResidueFile(), dialogs, files);
    const std::string json =
        request.jsonFile.empty() ? "" : JsonReport({dataset, session, result, request.data, dialogs.texts});
    const ExitCode printed = PrintReport(result.report, request.jsonFile, json, files);
    return !result.notSaved.empty() || saved != ExitDone ? ExitFailed : printed;
}

} // namespace

ExitCode RunCalc(const CalcRequest& request) {
    return WithinMemory(request.data, [&] { return Evaluate(request); });
}

} // namespace corvane
