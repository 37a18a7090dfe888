#include "plots/dataset_plots.h"

#include "plots/axis_scale.h"
#include "plots/chart_operations.h"
#include "plots/xy_plot.h"

#include <cmath>
#include <gtest/gtest.h>

namespace corvane {
namespace {

struct Row {
    const char *x, *y, *exclude;
};

Dataset With(const std::vector<Row>& rows, int columnX = ColumnX, int columnY = ColumnY) {
    Dataset dataset;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto row = static_cast<std::int32_t>(i + 1);
        dataset.cells.Set(columnX, row, std::string_view(rows[i].x));
        dataset.cells.Set(columnY, row, std::string_view(rows[i].y));
        dataset.cells.Set(ColumnExclude, row, std::string_view(rows[i].exclude));
    }
    return dataset;
}

const std::vector<Row> mixed = {{"1", "2", ""},  {"2", "1", "yes"}, {"3", "", "0"},
                                {"4", "9", "n"}, {"", "5", ""},     {"6", "6", ""}};

ChartModel Only(const ChartOutcome& outcome) {
    EXPECT_EQ(outcome.message, "");
    return outcome.charts.at(0);
}

TEST(ScatterPlot, LeavesOutTheExcludedOnly) {
    const ChartModel chart = Only(ScatterPlot(With(mixed), {}));
    EXPECT_EQ(NameOf(chart.kind), "scatter");
    EXPECT_EQ(chart.windowCaption + "|" + chart.title + "|" + chart.footnote,
              "Plot - Untitled|Observed vs Model-Predicted|n =  3");
    ASSERT_EQ(chart.series.size(), 2u);
    EXPECT_EQ(chart.series[0].name, "Obs");
    EXPECT_EQ((*chart.series[0].x)[1], 3);
    EXPECT_TRUE(std::isnan((*chart.series[0].y)[1])); // an empty Y is a gap
    EXPECT_EQ(*chart.series[0].rows, (std::vector<std::int32_t>{1, 3, 4}));
    EXPECT_EQ(RowOf(chart, {0, 2}), 4);
    EXPECT_EQ(RowOf(chart, {1, 0}), std::nullopt); // of a line
    EXPECT_EQ(chart.series[1].name, "Y=X");
    EXPECT_EQ(chart.series[1].colour, (Colour{255, 0, 0}));
    EXPECT_TRUE(chart.series[1].line);
    EXPECT_EQ(ScalesOf(chart).x.minimum, ScalesOf(chart).y.minimum);
}

TEST(ScatterPlot, ShowsTheExcludedApartAndFollowsTheOptions) {
    Dataset dataset = With(mixed);
    dataset.options.SHOW_EXCLUDED = 1;
    dataset.options.PLOT_YX = 0;
    dataset.options.SAME_SCALE_XY = 0;
    dataset.options.SwapXY = 1;
    const ChartModel chart = Only(ScatterPlot(dataset, {}));
    EXPECT_EQ(chart.footnote, "n =  4");
    EXPECT_EQ(chart.title + chart.xAxis.title + chart.yAxis.title,
              "Model-Predicted vs ObservedObserved (X)Model-Predicted (Y)");
    ASSERT_EQ(chart.series.size(), 2u);
    EXPECT_EQ(chart.series[1].name, "Excluded");
    EXPECT_EQ(chart.series[1].marker, Marker::Cross);
    EXPECT_EQ((*chart.series[1].y)[1], 1);
    EXPECT_EQ(RowOf(chart, {1, 1}), 2);
    EXPECT_TRUE(std::isnan((*chart.series[0].y)[1]));
    EXPECT_TRUE(chart.xAxis.automatic);
    EXPECT_EQ(ScatterPlot(With({{"1", "1", ""}, {"2", "2", ""}}), {}).message,
              "Not enough data points to generate a plot");
}

TEST(RankPlot, TakesRankedRows) {
    const ChartModel chart = Only(RankPlot(
        With({{"1", "2", ""}, {".", ".", "Y"}, {"2", "1", ""}, {"3.5", "3", ""}}, ColumnRankX, ColumnRankY),
        {}));
    EXPECT_EQ(std::string(NameOf(chart.kind)) + "|" + chart.footnote + "|" + chart.title,
              "ranks|n =  3|Rank of Observed vs Rank of Model-Predicted");
    EXPECT_EQ(*chart.series[0].rows, (std::vector<std::int32_t>{1, 3, 4}));
    EXPECT_EQ(RankPlot(With(mixed), {}).message, "Not enough rank points to generate a plot");
}

TEST(PointChart, SizesMarkersByTheNumberOfPoints) {
    for (const auto& [points, size] : {std::pair{49, 200}, {50, 150}, {99, 150}, {100, 100}}) {
        const SharedColumn column = ShareColumn(std::vector<double>(static_cast<std::size_t>(points), 1));
        const ChartModel chart = PointChart(ChartKind::Residue, {"T", "X", "Y"}, {column, column, {}}, {});
        EXPECT_EQ(chart.series.at(0).markerSize, size);
        EXPECT_EQ(RowOf(chart, {0, 0}), std::nullopt);
    }
}

TEST(ChartKind, HasANameOfItsOwn) {
    for (const auto& [kind, name] : ChartKinds) {
        EXPECT_EQ(ChartKindOf(name), kind);
        EXPECT_EQ(NameOf(kind), name);
    }
    EXPECT_EQ(ChartKindOf("pie"), std::nullopt);
}

} // namespace
} // namespace corvane
