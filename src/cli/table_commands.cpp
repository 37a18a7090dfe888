#include "cli/table_commands.h"

#include "app/open_file.h"
#include "app/save_file.h"
#include "cli/command_support.h"
#include "platform/native/native_file_store.h"

#include <cstdint>
#include <string>

namespace corvane {
namespace {

/// Why the result may not have this file, or "".
std::string ClaimResult(const std::string& read, const std::string& path) {
    OutputGuard guard;
    guard.Read(read, "the file that is read");
    return guard.Claim("-o", path);
}

Existing IfExisting(bool force) {
    return force ? Existing::Replace : Existing::Keep;
}

ExitCode Import(const ImportRequest& request) {
    NativeFileStore files;
    Dataset dataset;
    SessionState session;
    CsvOptions options = request.options;
    options.everyRemark = true;
    const OpenOutcome table = OpenTable(request.table, options, dataset, session, files);
    if (!table.Whole())
        return Fail(table.Error());
    for (const std::string& warning : table.warnings)
        Warn(warning);
    if (const std::string fault = ClaimResult(request.table, request.outputFile); !fault.empty())
        return Fail(fault);
    const FileResult saved = SaveDataset(request.outputFile, dataset, IfExisting(request.force), files);
    if (const ExitCode exit = EndOfSaving(request.outputFile, saved); exit != ExitDone)
        return exit;
    WriteOutput(table.summary + '\n');
    if (!EndOutput())
        return Fail(request.outputFile + " is written, but standard output could not be");
    return ExitDone;
}

ExitCode Export(const ExportRequest& request) {
    NativeFileStore files;
    Dataset dataset;
    SessionState session;
    std::int32_t rowsRead = 0;
    if (const std::string fault = OpenData(request.data, dataset, session, files, nullptr, &rowsRead);
        !fault.empty())
        return Fail(fault);
    if (const std::string fault = ClaimResult(request.data, request.outputFile); !fault.empty())
        return Fail(fault);
    // A file of 20 bytes may announce two thousand million rows.
    const std::int32_t announced = dataset.cells.RowCount(), leftOut = announced - rowsRead;
    if (leftOut > 0)
        dataset.cells.SetRowCount(rowsRead);
    const ExitCode exit = EndOfSaving(
        request.outputFile, ExportTable(request.outputFile, dataset, IfExisting(request.force), files));
    if (exit == ExitDone && leftOut > 0)
        WriteErrorLine("corvane: " + request.data + ": of the " + std::to_string(announced) +
                       " rows that N announces, " + std::to_string(leftOut) +
                       " are not in the file and are left out");
    return exit;
}

} // namespace

ExitCode RunImport(const ImportRequest& request) {
    return WithinMemory(request.table, [&] { return Import(request); });
}

ExitCode RunExport(const ExportRequest& request) {
    return WithinMemory(request.data, [&] { return Export(request); });
}

} // namespace corvane
