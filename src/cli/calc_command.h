#pragma once

#include "cli/exit_codes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// What `corvane calc` was asked for.
struct CalcRequest {
    std::string data;                     ///< The dataset file.
    std::vector<std::string> assignments; ///< "KEY=VALUE", applied from left to right after `all`.
    bool all = false;                     ///< Ticks the gates of every section and plot.
    std::optional<std::uint64_t> seed;    ///< Of the bootstrap; none: from the clock.
    std::string outFolder;                ///< Where the run's windows are saved; empty: nowhere.
    std::string jsonFile; ///< Where the JSON goes; empty: nowhere, "-": instead of the report.
};

/// Loads, calculates and prints the report to standard output with LF; messages go to standard error.
ExitCode RunCalc(const CalcRequest& request);

} // namespace corvane
