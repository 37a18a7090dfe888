#include "plots/dataset_plots.h"

#include "plots/axis_scale.h"
#include "plots/xy_plot.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>

namespace corvane {
namespace {

constexpr double blank = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t fewestPoints = 3;

bool HasValues(const SharedColumn& column) {
    return std::ranges::any_of(*column, [](double value) { return std::isfinite(value); });
}

ChartModel DatasetPlot(ChartKind kind, PlotTitles titles, const Dataset& dataset, const SessionState& session,
                       int columnX, int columnY, std::int32_t rows) {
    const bool showExcluded = IsSet(dataset.options.SHOW_EXCLUDED);
    std::vector<double> xs, observed, excludedX, excludedY;
    std::vector<std::int32_t> rowNumbers;
    bool anyExcluded = false;
    for (std::int32_t row = 1; row <= rows; ++row) {
        const bool excluded = ExcludedFromPlots(dataset.cells, row);
        if (excluded && !showExcluded)
            continue;
        const double x = CellNumber(dataset.cells.At(columnX, row)).value_or(blank);
        const double y = CellNumber(dataset.cells.At(columnY, row)).value_or(blank);
        if (kind == ChartKind::Ranks && std::isnan(x))
            continue;
        anyExcluded = anyExcluded || excluded;
        rowNumbers.push_back(row);
        xs.push_back(x);
        observed.push_back(excluded ? blank : y);
        if (showExcluded) {
            excludedX.push_back(excluded ? x : blank);
            excludedY.push_back(excluded ? y : blank);
        }
    }

    constexpr Colour black{}, red{255, 0, 0};
    const SharedColumn x = ShareColumn(std::move(xs));
    const auto numbers = std::make_shared<const std::vector<std::int32_t>>(std::move(rowNumbers));
    ChartModel chart = XYChart(kind, std::move(titles), x->size(), session);
    chart.legend = true;
    chart.series.push_back(
        PointSeries("Obs", {x, ShareColumn(std::move(observed)), numbers}, Marker::Dot, black));
    if (IsSet(dataset.options.PLOT_YX) && HasValues(x))
        chart.series.push_back({.name = "Y=X", .x = x, .y = x, .line = true, .colour = red});
    if (anyExcluded)
        chart.series.push_back(PointSeries(
            "Excluded", {ShareColumn(std::move(excludedX)), ShareColumn(std::move(excludedY)), numbers},
            Marker::Cross, black));
    if (IsSet(dataset.options.SAME_SCALE_XY))
        ShareScale(chart);
    return chart;
}

} // namespace

std::int32_t RowsBeforeEmpty(const DataMatrix& cells, int column) {
    std::int32_t rows = 0;
    while (rows < cells.RowCount() && !IsEmpty(cells.At(column, rows + 1)))
        ++rows;
    return rows;
}

bool ExcludedFromPlots(const DataMatrix& cells, std::int32_t row) {
    const std::string mark = CellText(cells.At(ColumnExclude, row));
    return !mark.empty() && (mark.front() == 'Y' || mark.front() == 'y');
}

ChartOutcome ScatterPlot(const Dataset& dataset, const SessionState& session) {
    const std::int32_t rows = RowsBeforeEmpty(dataset.cells, ColumnX);
    if (rows < fewestPoints)
        return {{}, "Not enough data points to generate a plot"};
    const PlotTitles titles =
        IsSet(dataset.options.SwapXY)
            ? PlotTitles{"Model-Predicted vs Observed", "Observed (X)", "Model-Predicted (Y)"}
            : PlotTitles{"Observed vs Model-Predicted", "Model-Predicted (X)", "Observed (Y)"};
    return {{DatasetPlot(ChartKind::Scatter, titles, dataset, session, ColumnX, ColumnY, rows)}, {}};
}

ChartOutcome RankPlot(const Dataset& dataset, const SessionState& session) {
    const std::int32_t rows = RowsBeforeEmpty(dataset.cells, ColumnRankX);
    std::int32_t ranked = 0; // a row that Calculate left out has "." for a rank
    for (std::int32_t row = 1; row <= rows; ++row)
        ranked += CellNumber(dataset.cells.At(ColumnRankX, row)).has_value();
    if (ranked < fewestPoints)
        return {{}, "Not enough rank points to generate a plot"};
    const PlotTitles titles{"Rank of Observed vs Rank of Model-Predicted", "Rank of X", "Rank of Y"};
    return {{DatasetPlot(ChartKind::Ranks, titles, dataset, session, ColumnRankX, ColumnRankY, rows)}, {}};
}

} // namespace corvane
