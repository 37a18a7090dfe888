#include "cli/command_line.h"
#include "platform/native/vanishing_name.h"

#include <csignal>
#include <exception>
#include <iostream>

int main(int argumentCount, char** arguments) {
    // A file that would grow beyond the user's limit is a failed write and not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
    corvane::UnlinkVanishingNamesOnSignals();
    try {
        return corvane::RunCommandLine(argumentCount, arguments);
    } catch (const std::exception& error) {
        std::cerr << "corvane: " << error.what() << '\n';
        return corvane::ExitFailed;
    }
}
