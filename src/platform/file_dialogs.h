#pragma once

#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// Files that a dialog offers: "Datasets" and "*.KOV".
struct FileFilter {
    std::string name;
    std::vector<std::string> patterns;
};

/// What a file dialog begins with.
struct FileQuestion {
    std::string title;
    std::string folder; ///< Where it begins; empty: wherever it was last.
    std::string name{}; ///< That it offers for a file to be saved.
    std::vector<FileFilter> filters{};
};

/// The dialogs in which the user chooses files. Paths are native; nothing where the user chose none.
class FileDialogs {
public:
    virtual ~FileDialogs() = default;

    /// Files that exist, one or several; none where the user chose none.
    virtual std::vector<std::string> AskFilesToOpen(const FileQuestion& question) = 0;

    /// A file to be saved. The dialog has asked before it returns one that exists.
    virtual std::optional<std::string> AskFileToSave(const FileQuestion& question) = 0;

    virtual std::optional<std::string> AskFolder(const FileQuestion& question) = 0;
};

} // namespace corvane
