#include "cli/switch_run.h"

#include "app/session.h"
#include "cli/command_support.h"
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
#include <utility>

namespace corvane {
namespace {

/// "C:\..." or "\\server\...": no path of this system, but the line carries it.
bool IsWindowsPath(std::string_view path) {
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const std::string drive = UpperCase(path.substr(0, 3));
    return path.starts_with("\\\\") || (drive.ends_with(":\\") && letters.find(drive[0]) != letters.npos);
}

/// A path as the line carries it.
std::string ForLine(const std::string& path) {
    std::error_code error;
    std::string absolute = IsWindowsPath(path) ? path : std::filesystem::absolute(path, error).string();
    std::replace(absolute.begin(), absolute.end(), '/', '\\');
    return "\"" + absolute + "\"";
}

/// A switch whose letter is followed by a path.
bool IsPathSwitch(const std::string& argument) {
    constexpr std::string_view letters = "FLC";
    return argument.size() > 2 && argument.front() == '/' &&
           letters.find(UpperCase(argument.substr(1, 1))) != std::string_view::npos;
}

/// Takes the path of a path switch: without its double quotes, and in a line of several switches up to the
/// blank outside of them that ends the line's token. `argument` keeps what follows. Nothing where a quote has
/// no partner.
std::optional<std::string> TakePath(std::string& argument, bool several) {
    std::string path;
    bool inQuote = false;
    std::size_t at = 2;
    for (; at < argument.size() && !(several && !inQuote && argument[at] == ' '); ++at)
        if (argument[at] == '"')
            inQuote = !inQuote;
        else
            path += argument[at];
    argument.erase(0, std::min(argument.find_first_not_of(' ', at), argument.size()));
    return inQuote ? std::nullopt : std::optional(path);
}

/// Takes what comes before a further switch, a blank and "/" outside of double quotes. Nothing where a quote
/// has no partner.
std::optional<std::string> TakeText(std::string& argument) {
    bool inQuote = false;
    std::size_t at = 0;
    for (; at < argument.size() && (inQuote || argument.compare(at, 2, " /") != 0); ++at)
        if (argument[at] == '"')
            inQuote = !inQuote;
    std::string text = argument.substr(0, at);
    argument.erase(0, std::min(at + 1, argument.size()));
    return inQuote ? std::nullopt : std::optional(std::move(text));
}

/// Appends one argument to the line. False where the line cannot carry it.
bool AppendToLine(std::string& line, std::string argument) {
    constexpr std::size_t longestPath = 4096; // PATH_MAX; to ask for more would take long for many switches
    // A path switch without quotes may have blanks in its path.
    const bool several = !IsPathSwitch(argument) || argument.find('"') != std::string::npos;
    while (!argument.empty()) {
        line += line.empty() ? "" : " ";
        if (argument.size() < longestPath && FileExists(argument)) {
            line += ForLine(argument);
            return argument.find_first_of("\\\"") == std::string::npos;
        }
        if (!IsPathSwitch(argument)) {
            const auto text = TakeText(argument);
            if (!text)
                return false;
            line += *text;
            continue;
        }
        const std::string letter = argument.substr(0, 2);
        const auto path = TakePath(argument, several);
        if (!path || (path->find('\\') != std::string::npos && !IsWindowsPath(*path)))
            return false;
        line += letter + (path->empty() ? "" : ForLine(*path));
    }
    return true;
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
    for (const std::string& argument : arguments)
        if (!AppendToLine(line, argument)) {
            refused = argument;
            return std::nullopt;
        }
    return line;
}

ExitCode RunSwitchLine(const std::vector<std::string>& arguments) {
    std::string refused;
    const auto line = MakeSwitchLine(arguments, refused);
    if (!line)
        return Fail(QuotedForMessage(refused) +
                    ": a switch cannot carry a path with a backslash or an unpaired double quote in it");
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
    for (const std::string& text : session.NotSaved())
        WriteErrorLine("corvane: " + text);
    return ExitDone;
}

} // namespace corvane
