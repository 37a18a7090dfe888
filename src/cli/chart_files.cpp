#include "cli/chart_files.h"

#if CORVANE_CHARTS
#include "charts/chart_export.h"
#include "cli/report_clock.h"
#include "platform/native/child_work.h"
#endif

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <span>
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

/// Paints charts in a process of their own, since Qt ends the one in which it can go no further.
FileResult Paint(std::span<const ChartModel> charts, ChartFormat format, ChartSize size,
                 std::vector<std::string>& pictures) {
    const auto paint = [&](std::vector<std::string>& painted) -> FileResult {
        if (SourceDate())
            ::setenv("TZ", "UTC0", 1); // the time that Qt puts into a PDF file is longer in other zones
        for (const ChartModel& chart : charts) {
            ChartPicture picture = RenderChart(chart, format, size, SourceDate());
            if (!picture.failure.empty())
                return {false, picture.failure};
            painted.push_back(std::move(picture.bytes));
        }
        return {true, {}};
    };
    FileResult result = DoInChild(paint, pictures);
    if (!result.done)
        result.reason = "the chart could not be painted: " + result.reason;
    return result;
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

enum class ChartFormat { Svg };

std::optional<ChartFormat> ChartFormatOf(std::string_view) {
    return std::nullopt;
}

FileResult Paint(std::span<const ChartModel>, ChartFormat, ChartSize, std::vector<std::string>&) {
    return {false, "this corvane was built without charts"};
}

#endif

FileResult SaveChart(const ChartModel& chart, const std::string& path, const PictureWriter& write,
                     ChartSize size) {
    std::vector<std::string> pictures;
    const FileResult painted =
        Paint({&chart, 1}, ChartFormatOf(path).value_or(ChartFormat::Svg), size, pictures);
    return painted.done ? write(path, pictures.front()) : FileResult{false, path + ": " + painted.reason};
}

bool SaveCharts(const std::vector<ChartModel>& charts, const std::string& folder, FileStore& files,
                std::vector<std::string>& written, KeptMessages& messages) {
    const auto write = [&](const std::string& path, const std::string& bytes) {
        FileResult saved = files.ReplaceEntry(path, [&](const auto& sink) { sink(bytes); });
        if (!saved.done)
            saved.reason = path + ": " + saved.reason;
        return saved;
    };
    std::vector<ChartModel> drawable;
    std::vector<std::string> names, pictures;
    for (std::size_t i = 0; i < charts.size(); ++i) {
        if (const std::string reason = OutOfReach(charts[i]); !reason.empty()) {
            messages.Warn("", "the chart '" + charts[i].title + "' is not saved: " + reason);
            continue;
        }
        drawable.push_back(charts[i]);
        names.push_back((i + 1 < 10 ? "plot-0" : "plot-") + std::to_string(i + 1) + "-" +
                        InFileName(charts[i].title) + ".svg");
    }
    // Together they are painted faster; where that fails, each alone shows which can be painted.
    const bool painted = !drawable.empty() && Paint(drawable, ChartFormat::Svg, {}, pictures).done;
    bool allSaved = true;
    for (std::size_t i = 0; i < drawable.size(); ++i) {
        const std::string path = folder + "/" + names[i];
        const FileResult saved = painted ? write(path, pictures[i]) : SaveChart(drawable[i], path, write, {});
        if (saved.done)
            written.push_back(names[i]);
        else
            messages.Tell(saved.reason);
        allSaved = allSaved && saved.done;
    }
    return allSaved;
}

} // namespace corvane
