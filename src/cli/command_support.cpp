#include "cli/command_support.h"

#include "app/option_assignments.h"
#include "app/run_folder.h"
#include "core/format/text_lists.h"
#include "core/grid_operations.h"
#include "files/csv_import.h"
#include "files/dataset_reader.h"

#include <algorithm>
#include <filesystem>

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

std::string OpenDataset(const std::string& data, Dataset& dataset, SessionState& session, FileStore& files,
                        std::vector<std::string>* messages, std::int32_t* rowsRead) {
    // The header takes the name behind the last separator, so the path must have one.
    std::error_code error;
    const std::string path = std::filesystem::absolute(data, error).string();
    if (error)
        return QuotedForMessage(data) + ": " + error.message();
    if (EqualInAnyCase(std::filesystem::path(data).extension().string(), ".csv")) {
        CsvOutcome table = ImportCsv(path, {}, dataset, session, files);
        table.file = data;
        if (!table.done)
            return table.Located(table.fault);
        for (const CsvRemark& warning : table.warnings) {
            Warn(table.Located(warning));
            if (messages)
                messages->push_back(table.Located(warning));
        }
        WriteErrorLine("corvane: " + table.Located({0, table.summary}));
        if (messages)
            messages->push_back(table.Located({0, table.summary}));
        if (rowsRead)
            *rowsRead = dataset.cells.RowCount();
        return {};
    }
    LoadOutcome loaded = LoadFile(path, dataset, session, files);
    if (!loaded.Complete()) {
        loaded.file = data;
        return loaded.Error();
    }
    if (loaded.tooFewRowsLine > 0)
        return data + ":" + std::to_string(loaded.tooFewRowsLine) + ": " + TooFewRowsMessage;
    if (rowsRead)
        *rowsRead = loaded.rowsRead;
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
    FileResult written = force ? files.Replace(path, bytes) : files.Create(path, bytes);
    if (!written.done)
        written.reason = written.taken ? ExistsMessage(path) : path + ": " + written.reason;
    return written;
}

void TellOldFiles(const std::string& folder, const std::vector<std::string>& written,
                  KeptMessages& messages) {
    std::string old;
    for (const std::string& name : NamesIn(folder, IsRunName))
        if (std::ranges::find(written, name) == written.end())
            old += (old.empty() ? "" : ", ") + name;
    if (!old.empty())
        messages.Tell(folder + ": left from an earlier run: " + old);
}

std::string MakeFolder(const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    return error ? folder + ": " + error.message() : "";
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
