#pragma once

#include "platform/processes.h"

namespace corvane {

/// The words of a command line: separated by blanks, except inside double quotes, which are dropped.
std::vector<std::string> CommandLineWords(const std::string& commandLine);

/// Programs of the operating system, found in the search path.
class NativeProcesses : public Processes {
public:
    std::optional<int> RunAndWait(const std::vector<std::string>& words) override;
    std::optional<int> RunAndWait(const std::string& commandLine) override;
    std::optional<int> RunAndWait(const std::string& commandLine, std::string& console) override;
};

} // namespace corvane
