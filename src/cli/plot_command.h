#pragma once

#include "cli/exit_codes.h"
#include "plots/chart_model.h"

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
    StatisticLineOptions statisticLines;  ///< Their width and colour.
    std::string labelFormat;              ///< A picture for the axis labels; empty: automatic.
    bool noLegend = false, grid = false;
    std::vector<std::string> looks; ///< Of PlotLooks.
    ChartSize size;
};

/// What --look takes.
inline const std::vector<std::string> PlotLooks = {"no-frame", "plot-shadow", "area-shadow", "plot-colour",
                                                   "area-colour"};

/// Paints one of the dataset's own plots into a file; ranks that the dataset has none of are computed.
/// Several histograms go into FILE, FILE-2 and so on.
ExitCode RunPlot(const PlotCommandRequest& request);

} // namespace corvane
