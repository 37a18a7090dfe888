#pragma once

#include "platform/file_store.h"
#include "plots/picture_painter.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace corvane {

/// What writes a picture under a path; on failure the reason names the file.
using PictureWriter = std::function<FileResult(const std::string& path, const std::string& bytes)>;

/// Paints a chart into a file in the format of its name, SVG where that is none. On failure the reason names
/// the file.
FileResult SaveChart(const ChartModel& chart, const std::string& path, PicturePainter& painter,
                     const PictureWriter& write, ChartSize size = {});

/// What became of the charts of a run.
struct SavedCharts {
    bool all = true;                   ///< Every chart that this program can draw was saved.
    std::vector<std::string> warnings; ///< Of charts whose values cannot be drawn.
    std::vector<std::string> messages; ///< Why others were not saved; of a file, it is named.
};

/// Paints the charts of a run into "plot-01-Title.svg" and so on in a folder, and adds these names to
/// `written`; a symbolic link of such a name is replaced itself. `painter` is null in a program without
/// charts, which is told, but is no failure.
SavedCharts SaveCharts(std::span<const ChartModel> charts, const std::string& folder, PicturePainter* painter,
                       FileStore& files, std::vector<std::string>& written);

} // namespace corvane
