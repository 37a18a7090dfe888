#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// A program to be started.
struct ProgramStart {
    std::vector<std::string> words; ///< The program, found in the search path, and its arguments.
    std::string folder{};           ///< Where it works; empty: where this program does.
};

/// Where a piece of a program's output was written.
enum class OutputStream { Output, Error };

/// Takes a program's output piece by piece, cut anywhere.
using OutputSink = std::function<void(OutputStream stream, std::string_view piece)>;

/// A program that was started; what still runs of it and its children ends with this object.
class RunningProgram {
public:
    virtual ~RunningProgram() = default;

    /// Waits for the end, at most as long as the limit, and hands the output over on this thread as it comes.
    /// The exit code (a signal counts from 128, as in a shell), or nothing where the program still runs.
    virtual std::optional<int> Wait(std::chrono::milliseconds limit, const OutputSink& sink) = 0;

    /// Ends it with its children. They are asked first; what still runs when it has ended, or after `grace`,
    /// is killed.
    virtual void End(std::chrono::milliseconds grace) = 0;
};

/// Other programs that run beside this one, without a terminal and with nothing on their standard input.
class Programs {
public:
    virtual ~Programs() = default;

    /// Starts a program. None where that cannot be done, with the reason in words for the user.
    virtual std::unique_ptr<RunningProgram> Start(const ProgramStart& start, std::string& reason) = 0;
};

} // namespace corvane
