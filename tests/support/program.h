#pragma once

#include "support/golden.h"
#include "support/temporary_folder.h"

#include <cstdlib>
#include <string>
#include <sys/wait.h>

namespace corvane::testing {

/// What a run of the program left.
struct Ran {
    int exit = -1;
    std::string out, err;
};

/// A folder in which a shell runs the program as a user would.
class ProgramFolder : public TemporaryFolder {
public:
    /// Runs a shell command in the folder, in which $corvane is the program and $examples the examples. The
    /// user's documents and settings lie in the folder, too.
    Ran Run(const std::string& command) const {
        const std::string script = "cd '" + Path() + "' && corvane='" + CORVANE_PROGRAM + "' examples='" +
                                   CORVANE_EXAMPLES +
                                   "' && export SOURCE_DATE_EPOCH=0 CORVANE_DOCUMENTS=\"$PWD/documents\" " +
                                   "XDG_CONFIG_HOME=\"$PWD/settings\" && { " + command + "\n} >.out 2>.err";
        const int status = std::system(script.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Read(".out"), Read(".err")};
    }

    /// Runs a command six times at once; standard output gets the exit code of each, a line each.
    Ran RunSix(const std::string& command) const {
        return Run("for i in 1 2 3 4 5 6; do { " + command + "; echo $?; } & done; wait");
    }

    std::string Read(const std::string& name) const { return ReadBytes(*this / name); }
    void Write(const std::string& name, const std::string& bytes) const { WriteBytes(*this / name, bytes); }
    bool Exists(const std::string& name) const { return std::filesystem::exists(*this / name); }
};

} // namespace corvane::testing
