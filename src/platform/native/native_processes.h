#pragma once

#include "platform/processes.h"

namespace corvane {

/// Programs of the operating system, found in the search path.
class NativeProcesses : public Processes {
public:
    std::optional<int> RunAndWait(const std::string& commandLine) override;
    std::optional<int> RunAndWait(const std::string& commandLine, std::string& console) override;
};

} // namespace corvane
