#pragma once

#include "core/dataset.h"
#include "core/session_state.h"
#include "files/csv_layout.h"
#include "platform/file_store.h"

#include <string>
#include <vector>

namespace corvane {

struct CsvOutcome {
    bool done = false;
    std::string file;
    CsvRemark fault; ///< Why it was not done.
    std::vector<CsvRemark> warnings;
    std::string summary; ///< What was taken from where, in one line.

    /// "file:line: text".
    std::string Located(const CsvRemark& remark) const;
};

/// Reads a table in text form (docs/csv.md) into the cells of a dataset and N; its other options and its
/// notes stay. Bytes that are no valid UTF-8 are read as Windows-1252. What may be read in two ways is
/// refused, and then nothing is changed; a cell that is no number is kept as text and reported.
CsvOutcome ImportCsv(const std::string& path, const CsvOptions& options, Dataset& dataset,
                     SessionState& session, const FileStore& files);

} // namespace corvane
