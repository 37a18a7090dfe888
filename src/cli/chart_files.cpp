#include "cli/chart_files.h"

#include "cli/command_support.h"

#if CORVANE_CHARTS
#include "charts/chart_export.h"
#endif

#include <algorithm>

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

FileResult SaveChart(const ChartModel& chart, const std::string& path, const PictureWriter& write,
                     ChartSize size) {
    const ChartPicture picture = RenderChart(chart, ChartFormatOf(path).value_or(ChartFormat::Svg), size);
    return picture.failure.empty() ? write(path, picture.bytes)
                                   : FileResult{false, path + ": " + picture.failure};
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

FileResult SaveChart(const ChartModel&, const std::string& path, const PictureWriter&, ChartSize) {
    return {false, path + ": this corvane was built without charts"};
}

#endif

FileResult SaveCharts(const std::vector<ChartModel>& charts, const std::string& folder, FileStore& files,
                      std::vector<std::string>& written) {
    const auto write = [&](const std::string& path, const std::string& bytes) {
        FileResult saved = files.ReplaceEntry(path, [&](const auto& sink) { sink(bytes); });
        if (!saved.done)
            saved.reason = path + ": " + saved.reason;
        return saved;
    };
    FileResult saved{true, {}};
    for (std::size_t i = 0; i < charts.size() && saved.done; ++i) {
        if (const std::string reason = OutOfReach(charts[i]); !reason.empty()) {
            Warn("the chart '" + charts[i].title + "' is not saved: " + reason);
            continue;
        }
        std::string name = i + 1 < 10 ? "plot-0" : "plot-";
        name += std::to_string(i + 1) + "-" + InFileName(charts[i].title) + ".svg";
        std::string path = folder + "/";
        path += name;
        saved = SaveChart(charts[i], path, write);
        if (saved.done)
            written.push_back(name);
    }
    return saved;
}

} // namespace corvane
