#pragma once

#include "platform/file_store.h"

#include <cstddef>
#include <string>
#include <vector>

namespace corvane {

/// The five settings of a comparison's report, as typed: two column widths in characters and three counts of
/// decimals.
struct ComparisonSettings {
    std::string DigitsLong = "12", DigitsShort = "9";
    std::string DecimalsStatistics = "4", DecimalsProbability = "3", DecimalsCorrelations = "2";
};

/// A row of the comparison's list: the full path of a dataset file, and whether it is ticked.
struct ListedFile {
    std::string path;
    bool selected = false;
};

/// What the reading of a comparison file met.
struct KocOutcome {
    std::string file;
    std::size_t line = 0; ///< Where reading ended early, from 1; 0 where the file could not be read at all.
    std::string reason;   ///< Why, in words for the user; empty when all was read.
    std::vector<std::string>
        leftOut; ///< "file:line: why" of each row that was left out, as its file is gone.

    bool Complete() const { return reason.empty(); }
    /// "file:line: reason".
    std::string Error() const;
};

/// The text of a comparison file (.KOC), line ends CR LF: the settings between "<Options>" and "</Options>",
/// an item a line, then a line for each row with its tick and its path.
std::string KocFileText(const ComparisonSettings& settings, const std::vector<ListedFile>& rows);

/// Reads a comparison file. Its settings may be fewer than five or missing, and those keep their values; rows
/// whose file is gone are left out. `rows` is replaced unless the file cannot be read at all; where a file
/// ends inside a record or a tick is no truth value, reading ends, and what was read stays.
KocOutcome ReadKocFile(const std::string& path, const FileStore& files, ComparisonSettings& settings,
                       std::vector<ListedFile>& rows);

} // namespace corvane
