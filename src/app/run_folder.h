#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Whether a window or chart of a run is saved under a name like this: "results.txt", "residue.txt",
/// "deviation.txt", "plot-01-Title.svg".
bool IsSavedName(std::string_view name);

/// Whether a run may write a file of this name at all: a saved one or a numbered "Residue0000.TXT".
bool IsRunName(std::string_view name);

/// The files in a folder whose name is wanted, as by one of the above, in alphabetical order; none where the
/// folder cannot be read.
std::vector<std::string> NamesIn(const std::string& folder, bool (*wanted)(std::string_view));

} // namespace corvane
