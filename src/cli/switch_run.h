#pragma once

#include "cli/exit_codes.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// Whether the arguments are a switch line: one of them is "/" and a switch's letter, is no path except after
/// /F, /L or /C, and names no file.
bool IsSwitchLine(const std::vector<std::string>& arguments);

/// The line that the dispatcher reads, in which "/" only marks switches: the path after /F, /L or /C, and an
/// argument that is a file, become absolute, with "\" between folders and in double quotes; other arguments
/// stay. Double quotes in the path of a switch are dropped. An argument that has such, or does not begin with
/// /F, /L or /C, may hold several switches; there a blank outside of quotes ends a path, as in the line
/// itself. Nothing where the line cannot carry an argument: for an unpaired quote anywhere, for a "\" in a
/// path that does not begin as one of Windows does, or for either in the name of a file; `refused` then takes
/// it.
std::optional<std::string> MakeSwitchLine(const std::vector<std::string>& arguments, std::string& refused);

/// Runs a session without a window: carries the line out and ends.
ExitCode RunSwitchLine(const std::vector<std::string>& arguments);

} // namespace corvane
