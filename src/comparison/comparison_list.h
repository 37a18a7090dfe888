#pragma once

#include "comparison/koc_file.h"
#include "platform/dialogs.h"
#include "platform/file_store.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace corvane {

/// The dataset files that form a comparison, in the user's order, with the operations of the list's window.
class ComparisonList {
public:
    const std::vector<ListedFile>& Rows() const { return rows; }
    /// The row that the operations work on; none at first, and after the list was emptied or loaded.
    std::optional<std::size_t> Current() const { return current; }
    void SetCurrent(std::size_t row) { current = row; }
    void Select(std::size_t row, bool selected) { rows[row].selected = selected; }

    /// "File names", with their number after it where there are any.
    std::string ListCaption() const;
    /// The window's caption: program, version, and the comparison file's name if there is one.
    std::string WindowCaption() const;

    /// Adds the files that the list does not hold yet, not ticked.
    void Add(std::span<const std::string> paths);

    /// Removes the current row, whatever is ticked. The row that takes its place becomes current, or else the
    /// last one.
    void RemoveCurrent();
    void RemoveAll();

    /// Moves the current row's path up or down, over the ends of the list to its other end, and the current
    /// row with it. Ticks stay in their places.
    void MoveUp();
    void MoveDown();

    /// Adds dropped files as `Add` does, up to one that has ".KOC" in its path: that is opened instead, the
    /// rest of the drop is ignored, and the result tells what its reading met.
    std::optional<KocOutcome> Drop(std::span<const std::string> paths, const FileStore& files);

    /// Opens a comparison file in place of the list and of those settings that it holds. One that cannot
    /// be read at all changes nothing.
    KocOutcome Open(const std::string& path, const FileStore& files);

    /// Asks before a file is overwritten; then the path becomes that of the comparison, and the file is
    /// written. Nothing where the answer was no.
    std::optional<FileResult> Save(const std::string& path, FileStore& files, Dialogs& dialogs);

    ComparisonSettings settings;
    std::string comparisonPath; ///< Of the comparison file; empty until one was opened or saved.

private:
    bool Holds(const std::string& path) const;

    std::vector<ListedFile> rows;
    std::optional<std::size_t> current;
};

} // namespace corvane
