#pragma once

#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// Other programs.
class Processes {
public:
    virtual ~Processes() = default;

    /// Starts a program, the first word, with the others as its arguments, in the program's own terminal or
    /// none, and waits for its end without a time limit. Interrupts from the keyboard are the other program's
    /// meanwhile. The exit code, or nothing where the program could not be started.
    virtual std::optional<int> RunAndWait(const std::vector<std::string>& words) = 0;

    /// The same for a command line, in which double quotes hold words with blanks together.
    virtual std::optional<int> RunAndWait(const std::string& commandLine) = 0;

    /// The same, and `console` takes what the program wrote to its console.
    virtual std::optional<int> RunAndWait(const std::string& commandLine, std::string& console) = 0;
};

} // namespace corvane
