#pragma once

#include <string>
#include <vector>

namespace corvane {

/// The files that a command reads and writes: no output may replace an input or another output, under
/// whatever name. Files are compared by identity, through links, hard links and other spellings.
class OutputGuard {
public:
    /// Notes a file that is read, and what it is in words for the user, as "the dataset".
    void Read(const std::string& path, const std::string& what);

    /// Why --out may not have this folder, or "": what a run saves there replaces what has its names. A
    /// symbolic link of such a name may be there, since it is replaced itself.
    std::string ClaimFolder(const std::string& folder);

    /// Why an option may not have this file for its output, or "".
    std::string Claim(const std::string& option, const std::string& path);

private:
    struct Known {
        std::string path, what;
    };
    std::vector<Known> known;
    std::string runFolder;
};

/// Claims the outputs of --out and --json, each "" if it is not given. Why they cannot be had, or "".
std::string ClaimOutputs(const std::string& outFolder, const std::string& jsonFile, OutputGuard& guard);

} // namespace corvane
