#include "cli/compare_command.h"

#include "app/comparison_action.h"
#include "app/json_report.h"
#include "app/run_folder.h"
#include "app/saved_windows.h"
#include "app/shown_progress.h"
#include "cli/command_support.h"
#include "cli/report_clock.h"
#include "core/format/numbers.h"
#include "core/format/text_lists.h"
#include "platform/native/interruption.h"
#include "platform/native/native_file_store.h"

#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

bool IsComparisonFile(const std::string& path) {
    return KindOfFile(path) == FileKind::Comparison;
}

/// Fills the list from the files that were named and ticks what was selected. Returns why that cannot be
/// done, or "".
std::string FillList(const CompareRequest& request, ComparisonList& list, KeptMessages& messages,
                     const FileStore& files) {
    const OpenOutcome filled = FillComparison(request.files, list, files);
    for (const std::string& warning : filled.warnings)
        messages.Warn("", warning);
    if (!filled.Whole())
        return filled.Error();
    if (request.select.empty())
        return {};
    const std::string fault = TickOnly(request.select, list);
    return fault.empty() ? "" : "--select " + fault;
}

/// Saves what --out asks for and says what else is there.
ExitCode SaveInFolder(const std::string& outFolder, const Report& report, KeptMessages& messages,
                      FileStore& files) {
    OutputFolder folder;
    if (const std::string fault = folder.Make(outFolder); !fault.empty())
        return Fail(fault);
    folder.Keep();
    std::vector<std::string> written;
    if (const FileResult saved = SaveReport(outFolder, "results.txt", report, files, written); !saved.done)
        return Fail(saved.reason);
    TellOldFiles(outFolder, written, messages);
    return ExitDone;
}

} // namespace

std::optional<std::array<std::string, 3>> ReadDecimals(const std::string& text) {
    std::vector<std::string> parts;
    if (SplitText(text, ",", parts) != 3)
        return std::nullopt;
    std::array<std::string, 3> decimals;
    for (std::size_t i = 0; i < decimals.size(); ++i) {
        decimals[i] = parts[i + 1];
        const auto number = ReadNumber(decimals[i]);
        if (!number || *number != std::floor(*number))
            return std::nullopt;
    }
    return decimals;
}

ExitCode RunCompare(const CompareRequest& request) {
    if (request.files.size() > 1)
        if (const auto found = std::ranges::find_if(request.files, IsComparisonFile);
            found != request.files.end()) {
            Fail(*found + ": a comparison file must be the only file");
            return ExitUsage;
        }
    const auto clock = ReportClock();
    if (!clock)
        return Fail(WrongEpochMessage);
    NativeFileStore files;
    KeptMessages messages("corvane: ");
    TerminalFeedback feedback;
    ComparisonList list;
    if (const std::string fault = FillList(request, list, messages, files); !fault.empty())
        return Fail(fault);
    ChangeSettings(request.settings, list.settings);
    OutputGuard guard;
    guard.Read(request.files.front(), "a file of the comparison");
    for (const ListedFile& row : list.Rows())
        guard.Read(row.path, "a file of the comparison");
    if (const std::string fault = ClaimOutputs(request.outFolder, request.jsonFile, guard); !fault.empty())
        return Fail(fault);

    ShownProgress progress(feedback, messages);
    std::optional<Interruption> interruption(std::in_place);
    const ComparisonResult result =
        CompareModels(TakeSnapshot(list, request.references, *clock), files, progress, interruption->Token());
    feedback.HideProgress();
    if (Interruption::Requested())
        return ExitInterrupted;
    interruption.reset();
    list.settings = result.settings;
    for (const std::string& warning : result.warnings)
        messages.Warn("", warning);
    if (!result.finished)
        return result.fault.empty() ? ExitFailed : Fail(result.fault);
    if (!request.outFolder.empty())
        if (const ExitCode saved = SaveInFolder(request.outFolder, result.report, messages, files);
            saved != ExitDone)
            return saved;
    const std::string koc = IsComparisonFile(request.files.front()) ? request.files.front() : "";
    const std::string json =
        request.jsonFile.empty() ? "" : JsonReport({result, request.references, koc, messages.texts});
    return PrintReport(result.report, request.jsonFile, json, files);
}

} // namespace corvane
