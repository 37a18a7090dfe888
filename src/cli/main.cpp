#include "cli/command_line.h"

#include <exception>
#include <iostream>

int main(int argumentCount, char** arguments) {
    try {
        return corvane::RunCommandLine(argumentCount, arguments);
    } catch (const std::exception& error) {
        std::cerr << "corvane: " << error.what() << '\n';
        return corvane::ExitFailed;
    }
}
