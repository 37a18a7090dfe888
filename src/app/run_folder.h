#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Whether a window or chart of a run is saved under a name like this: "results.txt", "residue.txt",
/// "deviation.txt", "plot-01-Title.svg".
bool IsSavedName(std::string_view name);

/// Whether a run may write a file of this name at all: a saved one or a numbered "Residue0000.TXT".
bool IsRunName(std::string_view name);

/// The files in a folder whose name is wanted, as by one of the above, in alphabetical order; none where the
/// folder cannot be read.
std::vector<std::string> NamesIn(const std::string& folder, bool (*wanted)(std::string_view));

/// The files of an earlier run in a folder, separated by ", ": those that a run may write
/// and that are not among the written ones.
std::string OldFiles(const std::string& folder, const std::vector<std::string>& written);

/// The folder that a run saves into, made with those above it before the run. Those that were not there
/// before go again, as far as they are empty, unless they are kept.
class OutputFolder {
public:
    OutputFolder() = default;
    ~OutputFolder();
    OutputFolder(const OutputFolder&) = delete;
    OutputFolder& operator=(const OutputFolder&) = delete;

    /// Why it cannot be made, naming it, or "".
    std::string Make(const std::string& folder);
    void Keep() { made.clear(); }

private:
    std::vector<std::filesystem::path> made; ///< The innermost last.
};

} // namespace corvane
