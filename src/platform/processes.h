#pragma once

#include <optional>
#include <string>

namespace corvane {

/// Other programs.
class Processes {
public:
    virtual ~Processes() = default;

    /// Starts a command line (double quotes hold words with blanks together) without a window of its own and
    /// waits for its end without a time limit. The exit code, or nothing where the program could not be
    /// started.
    virtual std::optional<int> RunAndWait(const std::string& commandLine) = 0;

    /// The same, and `console` takes what the program wrote to its console.
    virtual std::optional<int> RunAndWait(const std::string& commandLine, std::string& console) = 0;
};

} // namespace corvane
