#pragma once

#include <string>
#include <vector>

namespace corvane {

/// The files that an action reads and writes: no output may replace an input or another output, under
/// whatever name. Files are compared by identity, through links, hard links and other spellings.
class OutputGuard {
public:
    /// Notes a file that is read, and what it is in words for the user, as "the dataset".
    void Read(const std::string& path, const std::string& what);

    /// Why what asks for this folder, as "--out", may not have it, or "": what a run saves there replaces
    /// what has its names. A symbolic link of such a name may be there, since it is replaced itself.
    std::string ClaimFolder(const std::string& asker, const std::string& folder);

    /// Why what asks for this file, as "-o", may not have it for its output, or "".
    std::string Claim(const std::string& asker, const std::string& path);

private:
    struct Known {
        std::string path, what;
    };
    std::vector<Known> known;
    std::string runFolder, folderAsker;
};

} // namespace corvane
