#include "cli/command_support.h"

#include "app/open_file.h"
#include "app/option_assignments.h"
#include "app/run_folder.h"
#include "app/save_file.h"
#include "core/format/text_lists.h"
#include "core/grid_operations.h"

namespace corvane {

void KeptMessages::ShowMessage(MessageStyle style, const std::string& text, const std::string& title) {
    texts.push_back(text);
    TerminalDialogs::ShowMessage(style, text, title);
}

void KeptMessages::Fail(const std::string& file, const std::string& failure) {
    WriteErrorLine("corvane: " + file + ": " + failure);
    texts.push_back(failure);
}

void KeptMessages::Tell(const std::string& text) {
    WriteErrorLine("corvane: " + text);
    texts.push_back(text);
}

void KeptMessages::Warn(const std::string& file, const std::string& warning) {
    corvane::Warn(file + (file.empty() ? "" : ": ") + warning);
    texts.push_back(warning);
}

ExitCode Fail(const std::string& what) {
    WriteErrorLine("corvane: " + what);
    return ExitFailed;
}

void Warn(const std::string& what) {
    WriteErrorLine("corvane: warning: " + what);
}

std::string CutMessage(std::string_view message) {
    constexpr std::size_t first = 200, last = 100;
    if (CharacterCount(message) <= first + last)
        return std::string(message);
    return std::string(FirstCharacters(message, first)) + "…" + std::string(LastCharacters(message, last));
}

std::string OpenData(const std::string& data, Dataset& dataset, SessionState& session, FileStore& files,
                     std::vector<std::string>* messages, std::int32_t* rowsRead) {
    const OpenOutcome opened = OpenDataset(data, dataset, session, files);
    if (!opened.Whole())
        return opened.Error();
    if (opened.fewRowsLine > 0)
        return data + ":" + std::to_string(opened.fewRowsLine) + ": " + TooFewRowsMessage;
    for (const std::string& warning : opened.warnings)
        Warn(warning);
    if (!opened.summary.empty())
        WriteErrorLine("corvane: " + opened.summary);
    if (messages) {
        *messages = opened.warnings;
        if (!opened.summary.empty())
            messages->push_back(opened.summary);
    }
    if (rowsRead)
        *rowsRead = opened.rowsRead;
    return {};
}

std::string ApplyAssignments(const std::vector<std::string>& assignments, Dataset& dataset,
                             SessionState& session) {
    for (const std::string& assignment : assignments)
        if (const auto wrong = AssignOption(dataset, session, assignment))
            return "--set " + CutMessage(assignment.substr(0, assignment.find('='))) + ": " + *wrong;
    return {};
}

std::string ExistsMessage(const std::string& path) {
    return path + " exists; --force replaces it";
}

FileResult WriteOutputFile(const std::string& path, const std::string& bytes, bool force, FileStore& files) {
    FileResult written = SaveBytes(path, bytes, force ? Existing::Replace : Existing::Keep, files);
    if (written.taken)
        written.reason = ExistsMessage(path);
    return written;
}

ExitCode EndOfSaving(const std::string& path, const FileResult& saved) {
    return saved.done ? ExitDone : Fail(saved.taken ? ExistsMessage(path) : saved.reason);
}

void TellOldFiles(const std::string& folder, const std::vector<std::string>& written,
                  KeptMessages& messages) {
    if (const std::string old = OldFiles(folder, written); !old.empty())
        messages.Tell(folder + ": left from an earlier run: " + old);
}

std::string ClaimOutputs(const std::string& outFolder, const std::string& jsonFile, OutputGuard& guard) {
    if (!outFolder.empty())
        if (std::string fault = guard.ClaimFolder("--out", outFolder); !fault.empty())
            return fault;
    const bool toFile = !jsonFile.empty() && jsonFile != StandardOutput;
    return toFile ? guard.Claim("--json", jsonFile) : "";
}

ExitCode PrintReport(const Report& report, const std::string& jsonFile, const std::string& json,
                     FileStore& files) {
    if (jsonFile == StandardOutput) {
        WriteOutput(json);
    } else {
        if (!jsonFile.empty())
            if (const FileResult written = files.Replace(jsonFile, json); !written.done)
                return Fail(jsonFile + ": " + written.reason);
        report.Write(WriteOutput, "\n");
    }
    return EndOutput() ? ExitDone : Fail("the report could not be written to standard output");
}

} // namespace corvane
