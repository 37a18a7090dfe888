#pragma once

#include "cli/exit_codes.h"

#include <string>
#include <vector>

namespace corvane {

/// What `corvane plot` was asked for.
struct PlotCommandRequest {
    std::string data;                     ///< The dataset file.
    std::string kind;                     ///< "scatter", "ranks" or "histogram".
    std::vector<std::string> assignments; ///< "KEY=VALUE", from left to right.
    std::string outputFile;               ///< Ends in .svg, .png, .pdf or .bmp.
    bool force = false;                   ///< Replaces files that exist.
    std::string logAxes;                  ///< "x", "y", "xy" or empty.
    std::vector<std::string> statistics;  ///< Of "trend", "max", "min", "sd", "mean".
    std::string labelFormat;              ///< A picture for the axis labels; empty: automatic.
    bool noLegend = false, grid = false;
};

/// Paints one of the dataset's own plots into a file. Several histograms go into FILE, FILE-2 and so on.
ExitCode RunPlot(const PlotCommandRequest& request);

} // namespace corvane
