#include "plots/axis_scale.h"

#include "plots/chart_operations.h"

#include <cmath>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using Values = std::vector<double>;

ChartModel Points(Values x, Values y) {
    ChartModel chart;
    chart.footnote = "n";
    chart.series.push_back(
        {.name = "", .x = ShareColumn(std::move(x)), .y = ShareColumn(std::move(y)), .marker = Marker::Dot});
    return chart;
}

std::string Labels(const AxisScale& scale) {
    std::string labels;
    for (const double place : scale.major)
        labels += TickLabel(scale, place) + " ";
    return labels;
}

TEST(AxisScale, EndsAtRoundNumbersAroundTheData) {
    EXPECT_EQ(Labels(ScaleOf({}, {3.1, 48.2})), "0 10 20 30 40 50 ");
    EXPECT_EQ(Labels(ScaleOf({}, {-0.26, 0.31})), "-0.3 -0.2 -0.1 0.0 0.1 0.2 0.3 0.4 ");
    EXPECT_EQ(Labels(ScaleOf({}, {0, 7}, true)), "0 1 2 3 4 5 6 7 8 ");
    EXPECT_EQ(Labels(ScaleOf({}, {1e12, 1e12 + 10})),
              "1000000000000 1000000000002 1000000000004 1000000000006 1000000000008 1000000000010 ");
    ChartAxis quarters;
    quarters.automatic = false;
    quarters.majorStep = 0.25;
    EXPECT_EQ(Labels(ScaleOf(quarters, {0, 1})), "0.00 0.25 0.50 0.75 1.00 ");
    EXPECT_EQ(Labels(ScaleOf({}, {2.1e7, 2.9e7})), "2E+07 2.2E+07 2.4E+07 2.6E+07 2.8E+07 3E+07 ");
    EXPECT_EQ(Labels(ScaleOf({}, {1e-6, 9e-6})), "0 2E-06 4E-06 6E-06 8E-06 1E-05 ");
    ChartAxis pictured;
    pictured.labelFormat = "0.00";
    EXPECT_EQ(Labels(ScaleOf(pictured, {1, 3})).substr(0, 10), "1.00 1.50 ");
}

TEST(AxisScale, HoldsAnyData) {
    const Extent extents[] = {{5, 5},         {0, 0},           {-1e307, 1e307},
                              {1e300, 1e300}, {1e-308, 2e-308}, {1e9, 1e9 + 1e-6}};
    for (const Extent& extent : extents)
        for (const bool logarithmic : {false, true}) {
            ChartAxis axis;
            axis.logarithmic = logarithmic;
            const AxisScale scale = ScaleOf(axis, extent);
            EXPECT_TRUE(std::isfinite(scale.minimum) && std::isfinite(scale.maximum)) << extent.minimum;
            EXPECT_LT(scale.minimum, scale.maximum) << extent.minimum;
            EXPECT_LE(scale.minimum, extent.minimum);
            EXPECT_GE(scale.maximum, extent.maximum);
            EXPECT_LT(scale.major.size() + scale.minor.size(), 500u);
        }
}

TEST(AxisScale, IsSharedByTheSmallerMinimumAndTheLargerMaximum) {
    ChartModel chart = Points({1, 9}, {-40, 30});
    ShareScale(chart);
    const ChartScales scales = ScalesOf(chart);
    EXPECT_EQ(scales.x.minimum, scales.y.minimum);
    EXPECT_EQ(Labels(scales.x), Labels(scales.y));
    EXPECT_EQ(Labels(scales.x), "-40 -30 -20 -10 0 10 20 30 ");
    // What has no Y stretches no axis; and the steps fit both ranges together.
    ChartModel apart = Points({10, 50, 9000}, {1001, 1005, std::nan("")});
    ShareScale(apart);
    EXPECT_EQ(Labels(ScalesOf(apart).x), "200 400 600 800 1000 ");
    // Counts have no tick between whole numbers, percentages none beyond 100.
    ChartAxis counts, percentages;
    counts.wholeNumbers = true;
    percentages.end = 100;
    EXPECT_EQ(Labels(ScaleOf(counts, {0, 2}, true)), "0 1 2 3 ");
    EXPECT_TRUE(ScaleOf(counts, {0, 2}, true).minor.empty());
    EXPECT_EQ(Labels(ScaleOf(percentages, {0, 100}, true)), "0 20 40 60 80 100 ");
}

TEST(ChartOperations, LogarithmicAxesLeaveOutWhatTheyCannotShow) {
    ChartModel chart = Points({-1, 0, 1, 1000, std::nan("")}, {1, 2, 3, 4, 5});
    ASSERT_TRUE(SetLogarithmic(chart, Direction::X, true));
    EXPECT_EQ(FootnoteText(chart), "n, 2 not shown");
    EXPECT_EQ(Labels(ScalesOf(chart).x), "1 10 100 1000 ");
    EXPECT_DOUBLE_EQ(Position(ScalesOf(chart).x, 10), 1.0 / 3);
    ChartModel negative = Points({-1, -2}, {1, 2});
    EXPECT_FALSE(SetLogarithmic(negative, Direction::X, true));
    EXPECT_FALSE(negative.xAxis.logarithmic);
    // Shared axes stay so in every state; where one would have to show a zero on a logarithmic axis, each has
    // its own range until then.
    ChartModel shared = Points({9, 34}, {12, 30});
    ShareScale(shared);
    for (const auto& [direction, on] :
         {std::pair{Direction::X, true}, {Direction::Y, true}, {Direction::X, false}}) {
        ASSERT_TRUE(SetLogarithmic(shared, direction, on));
        EXPECT_EQ(ScalesOf(shared).x.minimum, 5);
        EXPECT_EQ(ScalesOf(shared).x.maximum, ScalesOf(shared).y.maximum);
        EXPECT_EQ(ScalesOf(shared).x.minimum, ScalesOf(shared).y.minimum);
    }
    ChartModel mixed = Points({1, 10}, {-5, 5});
    ShareScale(mixed);
    ASSERT_TRUE(SetLogarithmic(mixed, Direction::X, true));
    EXPECT_GT(ScalesOf(mixed).x.minimum, 0);
    EXPECT_LT(ScalesOf(mixed).y.minimum, -5);
    ASSERT_TRUE(SetLogarithmic(mixed, Direction::X, false));
    EXPECT_EQ(ScalesOf(mixed).x.minimum, ScalesOf(mixed).y.minimum);
}

TEST(ChartOperations, StatisticLinesComeFromAllPoints) {
    const ChartModel chart = Points({1, 2, 3, 4, std::nan("")}, {2, 4, 6, 8, 100});
    const auto lines = StatisticLines(chart.series[0], {true, true, true, true, true, {}, 1});
    ASSERT_EQ(lines.size(), 6u);
    const double sd = std::sqrt(20.0 / 3);
    const double levels[] = {2, 8, 5, 5 - sd, 5 + sd, 0};
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_NEAR(lines[i].intercept, levels[i], 1e-12);
    EXPECT_NEAR(lines[5].slope, 2, 1e-12);
}

TEST(ChartOperations, PicksTheNearestPoint) {
    const ChartModel chart = Points({1, 2, std::nan("")}, {10, 20, 15});
    const ChartScales scales = ScalesOf(chart);
    const auto near = NearestPoint(chart, scales, Position(scales.x, 1.95), Position(scales.y, 19.9), 0.1);
    ASSERT_TRUE(near);
    EXPECT_EQ(PointMessage(chart, *near), "Datapoint 2\r\nPred (X) = 2\r\nObs (Y) = 20");
    EXPECT_FALSE(NearestPoint(chart, scales, Position(scales.x, 1.5), Position(scales.y, 15), 0.1));
}

} // namespace
} // namespace corvane
