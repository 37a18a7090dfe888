#pragma once

#include "comparison/comparison_list.h"
#include "core/dataset.h"
#include "core/session_state.h"
#include "files/csv_layout.h"
#include "platform/file_store.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

enum class FileKind {
    Dataset,    ///< A dataset file (.KOV), and every other name.
    Comparison, ///< A comparison file (.KOC).
    Table,      ///< A table in text form (.csv).
};

/// The kind of file that a name stands for, by its ending in any case.
FileKind KindOfFile(std::string_view path);

/// The path with all its folders, or "" where the system gives none, with the reason. A report's header takes
/// the name after the last separator, so that a path must have one.
std::string AbsolutePath(const std::string& path, std::string& reason);

enum class OpenEnd {
    Opened,
    Partial,    ///< Reading ended early; what was read before that is in the target.
    OldVersion, ///< Written by a version before 2; the target is untouched.
    Refused,    ///< Unreadable, or not of this kind; the target is untouched.
};

/// What became of opening one file.
struct OpenOutcome {
    OpenEnd end = OpenEnd::Opened;
    std::string file{};   ///< As it was named.
    std::size_t line = 0; ///< Where reading ended, from 1; 0: at no line.
    std::string reason{}; ///< Why, in words for the user; empty where all was read.
    std::size_t fewRowsLine =
        0; ///< Of a dataset: the first line with an N below 2, which was passed over; or 0.
    std::int32_t rowsRead = 0;           ///< Rows that the file holds; N may announce more.
    std::vector<std::string> warnings{}; ///< What was read otherwise than it may be meant: "file:line: text".
    std::string summary{};               ///< Of a table: "file: what was taken from where".

    bool Whole() const { return end == OpenEnd::Opened; }
    /// "file:line: reason".
    std::string Error() const;
};

/// Opens a dataset file, or a table as `OpenTable` does without options. A table changes the cells and N
/// only.
OpenOutcome OpenDataset(const std::string& path, Dataset& dataset, SessionState& session,
                        const FileStore& files);

/// Opens a table in text form; its name becomes the dataset's.
OpenOutcome OpenTable(const std::string& path, const CsvOptions& options, Dataset& dataset,
                      SessionState& session, const FileStore& files);

/// Opens a comparison file in place of the list. Rows whose file is gone are left out, with a warning.
OpenOutcome OpenComparison(const std::string& path, ComparisonList& list, const FileStore& files);

} // namespace corvane
