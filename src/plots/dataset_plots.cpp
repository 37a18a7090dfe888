#include "plots/dataset_plots.h"

#include "core/format/numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace corvane {
namespace {

constexpr double blank = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t fewestPoints = 3;

PlotRequest DatasetPlot(const Dataset& dataset, const SessionState& session, int columnX, int columnY,
                        std::int32_t rows, bool rankedOnly) {
    const bool showExcluded = IsSet(dataset.options.SHOW_EXCLUDED);
    const bool showEquality = IsSet(dataset.options.PLOT_YX);
    constexpr std::size_t columns = 7;
    std::array<std::vector<double>, columns> table;
    bool anyExcluded = false;
    for (std::int32_t row = 1; row <= rows; ++row) {
        const bool excluded = ExcludedFromPlots(dataset.cells, row);
        if (excluded && !showExcluded)
            continue;
        const double x = CellNumber(dataset.cells.At(columnX, row)).value_or(blank);
        const double y = CellNumber(dataset.cells.At(columnY, row)).value_or(blank);
        if (rankedOnly && std::isnan(x))
            continue;
        anyExcluded = anyExcluded || excluded;
        const double values[columns] = {x,
                                        x,
                                        excluded ? blank : y,
                                        showEquality ? x : blank,
                                        x,
                                        excluded ? x : blank,
                                        excluded ? y : blank};
        for (std::size_t column = 0; column < columns; ++column)
            table[column].push_back(values[column]);
    }

    PlotRequest request;
    request.PointCount = static_cast<std::int32_t>(table[0].size());
    request.ColumnCount = anyExcluded ? 7 : 5;
    request.SameScale = IsSet(dataset.options.SAME_SCALE_XY);
    request.Footnote = "n = " + PlainNumber(static_cast<double>(request.PointCount));
    request.MarkerStyle[3] = 1;
    request.MarkerStyle[7] = 12;
    request.Red[5] = 255;
    request.WindowName = DatasetTitle(session);
    for (std::size_t column = 0; column < static_cast<std::size_t>(request.ColumnCount); ++column)
        request.ChartData.push_back(ShareColumn(std::move(table[column])));
    return request;
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

PlotOutcome ScatterPlot(const Dataset& dataset, const SessionState& session) {
    const std::int32_t rows = RowsBeforeEmpty(dataset.cells, ColumnX);
    if (rows < fewestPoints)
        return {{}, "Not enough data points to generate a plot"};
    PlotRequest request = DatasetPlot(dataset, session, ColumnX, ColumnY, rows, false);
    const bool swapped = IsSet(dataset.options.SwapXY);
    request.YAxisTitle = swapped ? "Model-Predicted (Y)" : "Observed (Y)";
    request.XAxisTitle = swapped ? "Observed (X)" : "Model-Predicted (X)";
    request.Title = swapped ? "Model-Predicted vs Observed" : "Observed vs Model-Predicted";
    return {std::move(request), {}};
}

PlotOutcome RankPlot(const Dataset& dataset, const SessionState& session) {
    const std::int32_t rows = RowsBeforeEmpty(dataset.cells, ColumnRankX);
    std::int32_t ranked = 0; // a row that Calculate left out has "." for a rank
    for (std::int32_t row = 1; row <= rows; ++row)
        ranked += CellNumber(dataset.cells.At(ColumnRankX, row)).has_value();
    if (ranked < fewestPoints)
        return {{}, "Not enough rank points to generate a plot"};
    PlotRequest request = DatasetPlot(dataset, session, ColumnRankX, ColumnRankY, rows, true);
    request.YAxisTitle = "Rank of Y";
    request.XAxisTitle = "Rank of X";
    request.Title = "Rank of Observed vs Rank of Model-Predicted";
    return {std::move(request), {}};
}

} // namespace corvane
