#pragma once

#include "cli/command_support.h"
#include "platform/file_store.h"
#include "plots/chart_model.h"

#include <functional>
#include <string>
#include <vector>

namespace corvane {

/// Whether this build can paint charts.
bool HasCharts();

/// Whether a picture file's name ends in .svg, .png, .pdf or .bmp.
bool IsPictureName(const std::string& path);

/// What writes a picture under a path; on failure the reason names the file.
using PictureWriter = std::function<FileResult(const std::string& path, const std::string& bytes)>;

/// Paints a chart into a file in the format of its name. On failure the reason names the file.
FileResult SaveChart(const ChartModel& chart, const std::string& path, const PictureWriter& write,
                     ChartSize size = {});

/// Paints the charts into "plot-01-Title.svg" and so on in a folder, and adds these names to `written`; a
/// symbolic link of such a name is replaced itself. Of a chart whose values cannot be drawn, a warning tells.
/// Whether the others were saved; of each that was not, a message tells why.
bool SaveCharts(const std::vector<ChartModel>& charts, const std::string& folder, FileStore& files,
                std::vector<std::string>& written, KeptMessages& messages);

} // namespace corvane
