#pragma once

#include "app/comparison_action.h"
#include "cli/exit_codes.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// What `corvane compare` was asked for.
struct CompareRequest {
    std::vector<std::string> files; ///< A comparison file, or dataset files.
    std::vector<std::size_t>
        select;              ///< Positions in the list, from 1; empty: the ticks, or all dataset files.
    SettingsChange settings; ///< In the place of those that the comparison file has.
    bool references = false;
    std::string outFolder; ///< Where the report is saved; empty: nowhere.
    std::string jsonFile;  ///< Where the JSON goes; empty: nowhere, "-": instead of the report.
};

/// Takes "S,P,C" apart, three whole numbers; nothing for other text.
std::optional<std::array<std::string, 3>> ReadDecimals(const std::string& text);

/// Compares the models and prints the report to standard output with LF; messages go to standard error.
ExitCode RunCompare(const CompareRequest& request);

} // namespace corvane
