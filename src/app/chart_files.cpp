#include "app/chart_files.h"

#include <algorithm>
#include <new>
#include <string_view>

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

std::string PlotFileName(std::size_t number, const std::string& title) {
    return (number < 10 ? "plot-0" : "plot-") + std::to_string(number) + "-" + InFileName(title) + ".svg";
}

void PaintAndWrite(std::span<const ChartModel> charts, const std::string& folder, PicturePainter& painter,
                   FileStore& files, std::vector<std::string>& written, SavedCharts& result) {
    const auto write = [&](const std::string& path, const std::string& bytes) {
        FileResult saved = files.ReplaceEntry(path, [&](const auto& sink) { sink(bytes); });
        if (!saved.done)
            saved.reason = path + ": " + saved.reason;
        return saved;
    };
    std::vector<ChartModel> drawable;
    std::vector<std::string> names;
    for (std::size_t i = 0; i < charts.size(); ++i) {
        if (const std::string reason = painter.OutOfReach(charts[i]); !reason.empty()) {
            result.warnings.push_back("the chart '" + charts[i].title + "' is not saved: " + reason);
            continue;
        }
        drawable.push_back(charts[i]);
        names.push_back(PlotFileName(i + 1, charts[i].title));
    }
    if (drawable.empty())
        return;
    // Together they are painted faster; where that fails, each alone shows which can be painted.
    const Pictures pictures = painter.Paint(drawable, ChartFormat::Svg, {});
    for (std::size_t i = 0; i < drawable.size(); ++i) {
        const std::string path = folder + "/" + names[i];
        const FileResult saved = pictures.failure.empty() ? write(path, pictures.bytes[i])
                                                          : SaveChart(drawable[i], path, painter, write);
        if (saved.done) {
            written.push_back(names[i]);
        } else {
            result.messages.push_back(saved.reason);
            result.all = false;
        }
    }
}

} // namespace

FileResult SaveChart(const ChartModel& chart, const std::string& path, PicturePainter& painter,
                     const PictureWriter& write, ChartSize size) {
    const Pictures painted = painter.Paint({&chart, 1}, ChartFormatOf(path).value_or(ChartFormat::Svg), size);
    return painted.failure.empty() ? write(path, painted.bytes.front())
                                   : FileResult{false, path + ": " + painted.failure};
}

SavedCharts SaveCharts(std::span<const ChartModel> charts, const std::string& folder, PicturePainter* painter,
                       FileStore& files, std::vector<std::string>& written) {
    SavedCharts result;
    if (!painter) {
        if (!charts.empty())
            result.messages.push_back(std::to_string(charts.size()) +
                                      " charts are not saved: this corvane was built without");
        return result;
    }
    try {
        PaintAndWrite(charts, folder, *painter, files, written, result);
    } catch (const std::bad_alloc&) {
        result.messages.emplace_back("there is not enough memory for the charts");
        result.all = false;
    }
    return result;
}

} // namespace corvane
