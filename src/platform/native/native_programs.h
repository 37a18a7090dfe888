#pragma once

#include "platform/programs.h"

namespace corvane {

/// Programs of the operating system, each in a process group of its own, so that its children end with it.
class NativePrograms : public Programs {
public:
    std::unique_ptr<RunningProgram> Start(const ProgramStart& start, std::string& reason) override;
};

} // namespace corvane
