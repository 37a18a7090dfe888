#pragma once

#include "cli/exit_codes.h"

namespace corvane {

/// Understands the program's arguments and runs what they ask for.
ExitCode RunCommandLine(int argumentCount, const char* const* arguments);

} // namespace corvane
