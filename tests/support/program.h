#pragma once

#include "support/golden.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace corvane::testing {

/// What a run of the program left.
struct Ran {
    int exit = -1;
    std::string out, err;
};

/// A folder of its own in which a shell runs the program as a user would; removed at the end.
class ProgramFolder {
public:
    ProgramFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "corvane-cli-XXXXXX").string();
        folder = ::mkdtemp(pattern.data());
    }
    ~ProgramFolder() { std::filesystem::remove_all(folder); }
    ProgramFolder(const ProgramFolder&) = delete;
    ProgramFolder& operator=(const ProgramFolder&) = delete;

    /// Runs a shell command in the folder, in which $corvane is the program and $examples the examples.
    Ran Run(const std::string& command) const {
        const std::string script = "cd '" + folder.string() + "' && corvane='" + CORVANE_PROGRAM +
                                   "' examples='" + CORVANE_EXAMPLES +
                                   "' && export SOURCE_DATE_EPOCH=0 && { " + command + "\n} >.out 2>.err";
        const int status = std::system(script.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Read(".out"), Read(".err")};
    }

    std::string Read(const std::string& name) const { return ReadBytes((folder / name).string()); }
    void Write(const std::string& name, const std::string& bytes) const {
        WriteBytes((folder / name).string(), bytes);
    }
    bool Exists(const std::string& name) const { return std::filesystem::exists(folder / name); }

private:
    std::filesystem::path folder;
};

} // namespace corvane::testing
