#include "cli/switch_run.h"

#include "app/session.h"
#include "cli/report_clock.h"
#include "core/format/paths.h"
#include "core/format/text_lists.h"
#include "platform/native/desktop_programs.h"
#include "platform/native/native_file_store.h"
#include "platform/native/native_folders.h"
#include "platform/native/native_processes.h"
#include "platform/native/seeds.h"
#include "platform/native/settings_file.h"
#include "platform/native/terminal.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

namespace corvane {
namespace {

/// A path as the line carries it.
std::string ForLine(const std::string& path) {
    std::error_code error;
    std::string absolute = std::filesystem::absolute(path, error).string();
    std::replace(absolute.begin(), absolute.end(), '/', '\\');
    return "\"" + absolute + "\"";
}

/// A switch whose letter is followed by a path.
bool IsPathSwitch(const std::string& argument) {
    constexpr std::string_view letters = "FLC";
    return argument.size() > 2 && argument.front() == '/' &&
           letters.find(UpperCase(argument.substr(1, 1))) != std::string_view::npos;
}

} // namespace

bool IsSwitchLine(const std::vector<std::string>& arguments) {
    return std::ranges::any_of(arguments, [](const std::string& argument) {
        constexpr std::string_view letters = "FGRPSOLXYC";
        if (argument.size() < 2 || argument.front() != '/' ||
            letters.find(UpperCase(argument.substr(1, 1))) == std::string_view::npos || FileExists(argument))
            return false;
        // A further "/" must begin another switch; otherwise this is a path.
        const std::size_t next = argument.find('/', 1);
        return next == std::string::npos || IsPathSwitch(argument) || next == 2 || argument[next - 1] == ' ';
    });
}

std::optional<std::string> MakeSwitchLine(const std::vector<std::string>& arguments, std::string& refused) {
    std::string line;
    for (const std::string& argument : arguments) {
        const bool isFile = FileExists(argument);
        const bool isSwitch = !isFile && IsPathSwitch(argument);
        if ((isFile || isSwitch) && argument.find_first_of("\\\"") != std::string::npos) {
            refused = argument;
            return std::nullopt;
        }
        line += line.empty() ? "" : " ";
        if (isFile)
            line += ForLine(argument);
        else if (isSwitch)
            line += argument.substr(0, 2) + ForLine(argument.substr(2));
        else
            line += argument;
    }
    return line;
}

ExitCode RunSwitchLine(const std::vector<std::string>& arguments) {
    std::string refused;
    const auto line = MakeSwitchLine(arguments, refused);
    if (!line) {
        std::cerr << "corvane: " << QuotedForMessage(refused)
                  << ": a switch cannot carry a path with a backslash or a double quote in it\n";
        return ExitFailed;
    }
    NativeFileStore files;
    NativeFolders folders;
    SettingsFile settings(files, folders.Configuration());
    TerminalDialogs dialogs("corvane: ");
    TerminalFeedback feedback;
    const SystemClock clock = ReportClock().value_or(SystemClock());
    ClockSeeds random;
    SpoolPrinter printer;
    NativeProcesses processes;
    UserTextEditor editor(processes);
    Session session({files, folders, settings, dialogs, feedback, clock, random, printer, editor});
    session.Start(*line);
    feedback.HideProgress();
    return ExitDone;
}

} // namespace corvane
