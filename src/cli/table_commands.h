#pragma once

#include "cli/exit_codes.h"
#include "files/csv_layout.h"

#include <string>

namespace corvane {

/// What `corvane import` was asked for.
struct ImportRequest {
    std::string table;
    CsvOptions options;
    std::string outputFile; ///< The dataset file.
    bool force = false;     ///< Replaces it if it exists.
};

/// Makes a dataset file of a table and says on standard output what was taken from where.
ExitCode RunImport(const ImportRequest& request);

/// What `corvane export` was asked for.
struct ExportRequest {
    std::string data, outputFile;
    bool force = false;
};

/// Writes the cells of a dataset as a table.
ExitCode RunExport(const ExportRequest& request);

} // namespace corvane
