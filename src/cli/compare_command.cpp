#include "cli/compare_command.h"

#include "app/json_report.h"
#include "app/saved_windows.h"
#include "cli/command_support.h"
#include "cli/output_guard.h"
#include "cli/report_clock.h"
#include "comparison/comparison_report.h"
#include "core/format/numbers.h"
#include "core/format/text_lists.h"
#include "platform/native/native_file_store.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace corvane {
namespace {

bool IsComparisonFile(const std::string& path) {
    constexpr std::string_view ending = ".KOC";
    return path.size() >= ending.size() && EqualInAnyCase(path.substr(path.size() - ending.size()), ending);
}

/// Fills the list from the files that were named. Returns why that cannot be done, or "".
std::string FillList(const CompareRequest& request, ComparisonList& list, KeptMessages& messages,
                     const FileStore& files) {
    if (IsComparisonFile(request.files.front())) {
        const KocOutcome outcome = list.Open(request.files.front(), files);
        for (const std::string& leftOut : outcome.leftOut)
            messages.Warn("", leftOut);
        if (!outcome.Complete())
            return outcome.Error();
    } else {
        std::vector<std::string> paths;
        for (const std::string& file : request.files) {
            std::error_code error;
            paths.push_back(std::filesystem::absolute(file, error).lexically_normal().string());
            if (error)
                return QuotedForMessage(file) + ": " + error.message();
        }
        list.Add(paths);
        for (std::size_t row = 0; row < list.Rows().size(); ++row)
            list.Select(row, true);
    }
    const std::size_t count = list.Rows().size();
    for (const std::size_t position : request.select)
        if (position > count)
            return "--select " + std::to_string(position) + ": the list has " + std::to_string(count) +
                   (count == 1 ? " file" : " files");
    if (!request.select.empty())
        for (std::size_t row = 0; row < count; ++row)
            list.Select(row, std::ranges::count(request.select, row + 1) > 0);
    return {};
}

void ChangeSettings(const CompareRequest& request, ComparisonSettings& settings) {
    if (request.longDigits)
        settings.DigitsLong = std::to_string(*request.longDigits);
    if (request.shortDigits)
        settings.DigitsShort = std::to_string(*request.shortDigits);
    if (request.decimals) {
        settings.DecimalsStatistics = request.decimals->at(0);
        settings.DecimalsProbability = request.decimals->at(1);
        settings.DecimalsCorrelations = request.decimals->at(2);
    }
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
            Fail(*found + ": a comparison file stands alone");
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
    ChangeSettings(request, list.settings);
    OutputGuard guard;
    guard.Read(request.files.front(), "a file of the comparison");
    for (const ListedFile& row : list.Rows())
        guard.Read(row.path, "a file of the comparison");
    if (const std::string fault = ClaimOutputs(request.outFolder, request.jsonFile, guard); !fault.empty())
        return Fail(fault);

    const ComparisonResult result =
        CompareModels(list, request.references, {messages, feedback, *clock, files});
    for (const std::string& warning : result.warnings)
        messages.Warn("", warning);
    if (!result.finished)
        return result.fault.empty() ? ExitFailed : Fail(result.fault);
    if (!request.outFolder.empty()) {
        if (const std::string fault = MakeFolder(request.outFolder); !fault.empty())
            return Fail(fault);
        std::vector<std::string> written;
        if (const FileResult saved =
                SaveReport(request.outFolder, "results.txt", result.report, files, written);
            !saved.done)
            return Fail(saved.reason);
        TellOldFiles(request.outFolder, written, messages);
    }
    const std::string koc = IsComparisonFile(request.files.front()) ? request.files.front() : "";
    const std::string json =
        request.jsonFile.empty() ? "" : JsonReport({result, request.references, koc, messages.texts});
    return PrintReport(result.report, request.jsonFile, json, files);
}

} // namespace corvane
