#include "cli/command_line.h"
#include "cli/command_support.h"
#include "platform/native/vanishing_name.h"

#include <csignal>
#include <exception>
#include <new>

int main(int argumentCount, char** arguments) {
    // A file that would grow beyond the user's limit is a failed write and not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
    corvane::OpenStandardStreams();
    corvane::UnlinkVanishingNamesOnSignals();
    try {
        return corvane::RunCommandLine(argumentCount, arguments);
    } catch (const std::bad_alloc&) {
        return corvane::Fail("there is not enough memory");
    } catch (const std::exception& error) {
        return corvane::Fail(error.what());
    }
}
