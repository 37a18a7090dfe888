#include "cli/table_commands.h"

#include "cli/command_support.h"
#include "cli/output_guard.h"
#include "core/format/code_page.h"
#include "files/csv_import.h"
#include "files/csv_writer.h"
#include "files/dataset_writer.h"
#include "platform/native/native_file_store.h"

#include <cstdint>
#include <string>

namespace corvane {
namespace {

/// Writes a file that must not be the one that was read.
ExitCode WriteResult(const std::string& read, const std::string& path, const std::string& bytes, bool force,
                     FileStore& files) {
    OutputGuard guard;
    guard.Read(read, "the file that is read");
    if (const std::string fault = guard.Claim("-o", path); !fault.empty())
        return Fail(fault);
    const FileResult written = WriteOutputFile(path, bytes, force, files);
    return written.done ? ExitDone : Fail(written.reason);
}

ExitCode Import(const ImportRequest& request) {
    NativeFileStore files;
    Dataset dataset;
    SessionState session;
    CsvOptions options = request.options;
    options.everyRemark = true;
    const CsvOutcome outcome = ImportCsv(request.table, options, dataset, session, files);
    if (!outcome.done)
        return Fail(outcome.Located(outcome.fault));
    for (const CsvRemark& warning : outcome.warnings)
        Warn(outcome.Located(warning));
    const ExitCode exit = WriteResult(request.table, request.outputFile, EncodeText(DatasetFileText(dataset)),
                                      request.force, files);
    if (exit != ExitDone)
        return exit;
    WriteOutput(request.table + ": " + outcome.summary + '\n');
    if (!EndOutput())
        return Fail(request.outputFile + " is written, but standard output could not be");
    return ExitDone;
}

ExitCode Export(const ExportRequest& request) {
    NativeFileStore files;
    Dataset dataset;
    SessionState session;
    std::int32_t rowsRead = 0;
    if (const std::string fault = OpenDataset(request.data, dataset, session, files, nullptr, &rowsRead);
        !fault.empty())
        return Fail(fault);
    // A file of 20 bytes may announce two thousand million rows.
    const std::int32_t announced = dataset.cells.RowCount(), leftOut = announced - rowsRead;
    if (leftOut > 0)
        dataset.cells.SetRowCount(rowsRead);
    const ExitCode exit =
        WriteResult(request.data, request.outputFile, CsvText(dataset.cells), request.force, files);
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
