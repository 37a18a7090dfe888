#include "cli/chart_files.h"

#include "cli/command_support.h"

#if CORVANE_CHARTS
#include "charts/chart_export.h"
#include "cli/report_clock.h"
#include "platform/native/child_work.h"
#endif

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace corvane {
namespace {

/// A title as part of a file's name on any system.
std::string InFileName(std::string title) {
    std::ranges::replace_if(
        title,
        [](char character) {
            return std::string_view("\\/:*?\"<>|").find(character) != std::string_view::npos;
        },
        '_');
    return title;
}

} // namespace

#if CORVANE_CHARTS

bool HasCharts() {
    return true;
}

bool IsPictureName(const std::string& path) {
    return ChartFormatOf(path).has_value();
}

FileResult SaveChart(const ChartModel& chart, const std::string& path, FileStore& files, ChartSize size) {
    const ChartFormat format = ChartFormatOf(path).value_or(ChartFormat::Svg);
    const auto paint = [&](std::string& bytes) -> FileResult {
        if (SourceDate())
            ::setenv("TZ", "UTC0", 1); // the time that Qt puts into a PDF file is longer in other zones
        ChartPicture picture = RenderChart(chart, format, size, SourceDate());
        bytes = std::move(picture.bytes);
        return {picture.failure.empty(), picture.failure};
    };
    std::string bytes;
    FileResult saved = DoInChild(paint, bytes); // Qt knows failures by which it ends the process
    if (!saved.done)
        saved.reason = "the chart could not be painted: " + saved.reason;
    else
        saved = files.Replace(path, bytes);
    if (!saved.done)
        saved.reason = path + ": " + saved.reason;
    return saved;
}

#else

bool HasCharts() {
    return false;
}

bool IsPictureName(const std::string&) {
    return true;
}

std::string OutOfReach(const ChartModel&) {
    return {};
}

FileResult SaveChart(const ChartModel&, const std::string& path, FileStore&, ChartSize) {
    return {false, path + ": this corvane was built without charts"};
}

#endif

bool SaveCharts(const std::vector<ChartModel>& charts, const std::string& folder, FileStore& files) {
    bool allSaved = true;
    for (std::size_t i = 0; i < charts.size(); ++i) {
        if (const std::string reason = OutOfReach(charts[i]); !reason.empty()) {
            Warn("the chart '" + charts[i].title + "' is not saved: " + reason);
            continue;
        }
        std::string path = folder + (i + 1 < 10 ? "/plot-0" : "/plot-");
        path += std::to_string(i + 1) + "-" + InFileName(charts[i].title) + ".svg";
        if (const FileResult saved = SaveChart(charts[i], path, files); !saved.done) {
            Fail(saved.reason);
            allSaved = false;
        }
    }
    return allSaved;
}

} // namespace corvane
