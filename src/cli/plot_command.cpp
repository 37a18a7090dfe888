#include "cli/plot_command.h"

#include "analyses/rank_analysis.h"
#include "app/chart_files.h"
#include "cli/built_painter.h"
#include "cli/command_support.h"
#include "cli/report_clock.h"
#include "platform/native/native_file_store.h"
#include "plots/chart_operations.h"
#include "plots/dataset_plots.h"
#include "plots/histogram.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace corvane {
namespace {

/// The charts of the request, or the message in their place.
ChartOutcome Charts(ChartKind kind, Dataset& dataset, const SessionState& session) {
    if (kind == ChartKind::Histogram) {
        ChartOutcome outcome = HistogramPlots(dataset);
        if (outcome.charts.empty() && outcome.message.empty())
            outcome.message = "no histogram is ticked";
        return outcome;
    }
    if (kind == ChartKind::Scatter)
        return ScatterPlot(dataset, session);
    if (RowsBeforeEmpty(dataset.cells, ColumnRankX) == 0)
        FillRanks(dataset);
    return RankPlot(dataset, session);
}

/// Does to a chart what the boxes of its window would. Returns why it cannot be done, or "".
std::string Adjust(ChartModel& chart, const PlotCommandRequest& request) {
    for (const auto& [letter, direction] : {std::pair{'x', Direction::X}, {'y', Direction::Y}})
        if (request.logAxes.find(letter) != std::string::npos && !SetLogarithmic(chart, direction, true))
            return std::string(chart.style == ChartStyle::Scatter ? "no point is above zero"
                                                                  : "its axis has bins") +
                   ", so axis " + letter + " cannot be logarithmic";
    const auto asked = [&](const char* name) { return std::ranges::count(request.statistics, name) > 0; };
    chart.statistics = !request.statistics.empty();
    chart.statisticLines = request.statisticLines;
    chart.statisticLines.showTrend = asked("trend");
    chart.statisticLines.showMax = asked("max");
    chart.statisticLines.showMin = asked("min");
    chart.statisticLines.showSD = asked("sd");
    chart.statisticLines.showMean = asked("mean");
    chart.xAxis.labelFormat = chart.yAxis.labelFormat = request.labelFormat;
    chart.xAxis.gridlines = chart.yAxis.gridlines = request.grid;
    chart.legend = chart.legend && !request.noLegend;
    const auto look = [&](const char* name) { return std::ranges::count(request.looks, name) > 0; };
    chart.wallFrame = !look("no-frame");
    chart.plotShadow = look("plot-shadow");
    chart.areaShadow = look("area-shadow");
    chart.plotColour = look("plot-colour");
    chart.areaColour = look("area-colour");
    return {};
}

/// FILE for the first chart, FILE-2 and so on for the others, before its ending.
std::string Numbered(const std::string& path, std::size_t index) {
    const std::size_t dot = path.rfind('.');
    return index == 0 ? path : path.substr(0, dot) + "-" + std::to_string(index + 1) + path.substr(dot);
}

ExitCode Plot(const PlotCommandRequest& request) {
    const auto painter = BuiltPainter();
    if (!painter)
        return Fail("this corvane was built without charts (CORVANE_DESKTOP=OFF)");
    if (!ReportClock()) // a PDF file holds the moment that it was made
        return Fail(WrongEpochMessage);
    NativeFileStore files;
    Dataset dataset;
    SessionState session;
    if (const std::string fault = OpenData(request.data, dataset, session, files); !fault.empty())
        return Fail(fault);
    if (const std::string fault = ApplyAssignments(request.assignments, dataset, session); !fault.empty())
        return Fail(fault);
    auto [charts, message] = Charts(ChartKindOf(request.kind).value_or(ChartKind::Scatter), dataset, session);
    if (charts.empty())
        return Fail(request.data + ": " + message);
    OutputGuard guard;
    guard.Read(request.data, "the dataset");
    for (std::size_t i = 0; i < charts.size(); ++i) {
        if (const std::string fault = Adjust(charts[i], request); !fault.empty())
            return Fail(request.data + ": " + fault);
        std::error_code error;
        const std::string path = Numbered(request.outputFile, i);
        if (const std::string fault = guard.Claim("-o", path); !fault.empty())
            return Fail(fault);
        if (!request.force && std::filesystem::exists(path, error))
            return Fail(ExistsMessage(path));
    }
    ExitCode exit = ExitDone;
    const auto write = [&](const std::string& path, const std::string& bytes) {
        return WriteOutputFile(path, bytes, request.force, files);
    };
    for (std::size_t i = 0; i < charts.size(); ++i)
        if (const FileResult saved =
                SaveChart(charts[i], Numbered(request.outputFile, i), *painter, write, request.size);
            !saved.done)
            exit = Fail(saved.reason);
    return exit;
}

} // namespace

ExitCode RunPlot(const PlotCommandRequest& request) {
    return WithinMemory(request.data, [&] { return Plot(request); });
}

} // namespace corvane
