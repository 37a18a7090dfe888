#pragma once

#include "app/output_guard.h"
#include "cli/exit_codes.h"
#include "core/dataset.h"
#include "core/session_state.h"
#include "platform/file_store.h"
#include "platform/native/terminal.h"
#include "report/report.h"

#include <cstdint>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

/// In the place of a file's name: standard output.
inline constexpr const char* StandardOutput = "-";

/// Messages on standard error that are kept besides, for the JSON.
class KeptMessages : public TerminalDialogs {
public:
    using TerminalDialogs::TerminalDialogs;

    void ShowMessage(MessageStyle style, const std::string& text, const std::string& title) override;

    /// Writes "corvane: warning: " and the warning, of a file where one is given.
    void Warn(const std::string& file, const std::string& warning);

    /// Writes "corvane: ", the file and what failed although the run goes on.
    void Fail(const std::string& file, const std::string& failure);

    /// Writes "corvane: " and the text.
    void Tell(const std::string& text);

    std::vector<std::string> texts;
};

/// Writes "corvane: " and the text on standard error.
ExitCode Fail(const std::string& what);

/// Writes "corvane: warning: " and the text on standard error.
void Warn(const std::string& what);

/// A message, or what it quotes, that may be of any length: cut in its middle to some 300 characters.
std::string CutMessage(std::string_view message);

/// Opens a dataset file, or a table (.csv), of which standard error tells what was taken from where; the
/// lines also go to `messages`, and to `rowsRead` how many rows the file holds, where N may announce more.
/// Returns why it cannot be used, or "".
std::string OpenData(const std::string& data, Dataset& dataset, SessionState& session, FileStore& files,
                     std::vector<std::string>* messages = nullptr, std::int32_t* rowsRead = nullptr);

/// Applies "KEY=VALUE" texts from left to right. Returns the first fault, or "".
std::string ApplyAssignments(const std::vector<std::string>& assignments, Dataset& dataset,
                             SessionState& session);

/// Runs a command's work; where memory does not suffice for it, the message names this file.
template<class Work>
ExitCode WithinMemory(const std::string& file, Work&& work) {
    try {
        return std::forward<Work>(work)();
    } catch (const std::bad_alloc&) {
        return Fail(file + ": " + NotEnoughMemory);
    }
}

/// Writes the file of -o, which must be free unless `force` replaces it. On failure the reason is the
/// message.
FileResult WriteOutputFile(const std::string& path, const std::string& bytes, bool force, FileStore& files);

/// Says what became of the file of -o.
ExitCode EndOfSaving(const std::string& path, const FileResult& saved);

/// What is said of a file of -o that is there already.
std::string ExistsMessage(const std::string& path);

/// Says which files in the folder of --out an earlier run left there: those that would bear a name of this
/// one's and were not written.
void TellOldFiles(const std::string& folder, const std::vector<std::string>& written, KeptMessages& messages);

/// Claims the outputs of --out and --json, each "" if it is not given. Why they cannot be had, or "".
std::string ClaimOutputs(const std::string& outFolder, const std::string& jsonFile, OutputGuard& guard);

/// Writes the JSON, if there is one, to its file, and the report to standard output, where the JSON takes its
/// place if its file is "-".
ExitCode PrintReport(const Report& report, const std::string& jsonFile, const std::string& json,
                     FileStore& files);

} // namespace corvane
