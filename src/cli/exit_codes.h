#pragma once

namespace corvane {

enum ExitCode : int {
    ExitDone = 0,
    ExitFailed = 1, ///< A file, option or dataset that cannot be used; one line on standard error says which.
    ExitUsage = 2,  ///< A command line that cannot be understood.
    ExitInterrupted =
        130, ///< SIGINT or SIGTERM came while it computed: 128 and the number of SIGINT, as in a shell.
};

} // namespace corvane
