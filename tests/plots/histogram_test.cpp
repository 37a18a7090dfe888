#include "plots/histogram.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using Values = std::vector<double>;

Dataset With(const Values& xs, const Values& ys) {
    Dataset dataset;
    for (std::size_t i = 0; i < xs.size(); ++i) {
        dataset.cells.Set(ColumnX, static_cast<std::int32_t>(i + 1), xs[i]);
        dataset.cells.Set(ColumnY, static_cast<std::int32_t>(i + 1), ys[i]);
    }
    dataset.options.HIST_BINS = "4";
    return dataset;
}

const Values xs = {0, 1, 2, 2, 3, 8}, ys = {4, 4, 5, 6, 7, 7.5};

TEST(Histogram, CountsIntoBinsThatHoldTheirLowerBound) {
    EXPECT_EQ(CountBins(Values{0, 1, 2, 2, 4, 7.999, 8}, 0, 2, 4), (Values{2, 2, 1, 2}));
    EXPECT_EQ(CountBins(Values{3, 3, 3}, 3, 0, 4), (Values{0, 0, 0, 3}));
    // 0.1 + 2 * 0.1 is above 0.3: as rounded, 0.3 lies in the second bin.
    EXPECT_EQ(CountBins(Values{0.1, 0.2, 0.3, 0.4}, 0.1, 0.1, 3), (Values{1, 2, 1}));
}

TEST(Histogram, OfXAndYTogether) {
    const ChartOutcome outcome = HistogramPlots(With(xs, ys));
    ASSERT_EQ(outcome.charts.size(), 1u);
    const ChartModel& chart = outcome.charts[0];
    EXPECT_EQ(chart.kind, ChartKind::Histogram);
    EXPECT_EQ(chart.title, "Histogram of X and Y");
    EXPECT_EQ(chart.windowCaption, "Plot - Histogram");
    EXPECT_EQ(*chart.series[0].y, (Values{2, 3, 0, 1}));
    EXPECT_EQ(*chart.series[1].y, (Values{0, 0, 3, 3}));
    EXPECT_EQ(chart.series[1].colour, (Colour{0, 128, 192}));
    // Shapiro-Wilk's P of both samples: shapiro.test in R 4.2.2.
    EXPECT_EQ(chart.footnote, "P(X ~ Normal) =    0.10241 and P(Y ~ Normal) =    0.38995");
    EXPECT_EQ(chart.rangesText, "Histogram Range:R01 = [0.00, 2.00[;     R02 = [2.00, 4.00[;     "
                                "R03 = [4.00, 6.00[;     R04 = [6.00, 8.00]");
    EXPECT_EQ(chart.yAxis.title, "Frequency, #");
}

TEST(Histogram, SeparateAccumulatedPercentagesAndDifferences) {
    Dataset dataset = With(xs, ys);
    dataset.options.HIST_PLOT_TOGETHER = false;
    dataset.options.HIST_PLOT_SEPARATE = true;
    dataset.options.HIST_PLOT_DIFFERENCE = dataset.options.HIST_PLOT_ABSDIFF = 1;
    dataset.options.HIST_ACCUMULATED = dataset.options.HIST_PERCENTAGE = 1;
    dataset.cells.Set(ColumnExclude, 6, std::string_view("y"));
    dataset.cells.Set(ColumnY, 5, std::string_view("n/a"));
    const std::vector<ChartModel> charts = HistogramPlots(dataset).charts;
    ASSERT_EQ(charts.size(), 3u);
    EXPECT_EQ(*charts[0].series[0].y, (Values{25, 25, 50, 100})); // 0 1 2 2
    EXPECT_EQ(charts[0].yAxis.title, "Accumulated Frequency, %");
    EXPECT_EQ(charts[1].footnote.substr(0, 14), "P(Y ~ Normal)=");
    EXPECT_EQ(charts[2].title, "Histogram of X - Y");
    EXPECT_EQ(*charts[2].series[0].y, (Values{50, 50, 50, 100})); // 3 3 4 4
}

TEST(Histogram, TheOptionsChooseTheStyle) {
    using Options = AnalysisOptions;
    for (const auto& [button, style] : {std::pair{&Options::HIST_LINE, ChartStyle::Line},
                                        {&Options::HIST_AREA, ChartStyle::Area},
                                        {&Options::HIST_STEP, ChartStyle::Step},
                                        {&Options::HIST_Pie, ChartStyle::Pie},
                                        {&Options::HIST_BAR, ChartStyle::Bar}}) {
        Dataset dataset = With(xs, ys);
        dataset.options.HIST_BAR = false;
        dataset.options.*button = true;
        EXPECT_EQ(HistogramPlots(dataset).charts.at(0).style, style);
    }
}

TEST(Histogram, RefusesTooFewRowsAndTooManyBins) {
    EXPECT_EQ(HistogramPlots(With({1, 2}, {1, 2})).message, "Not enough data points to generate a plot");
    Dataset dataset = With(xs, ys);
    dataset.options.HIST_BINS = "1001";
    EXPECT_NE(HistogramPlots(dataset).message.find("1001"), std::string::npos);
    dataset.options.HIST_BINS = "-5";
    EXPECT_EQ(HistogramPlots(dataset).charts.at(0).categories,
              (std::vector<std::string>{"R01", "R02", "R03"}));
    dataset.options.HIST_BINS = "100";
    EXPECT_EQ(HistogramPlots(dataset).charts.at(0).categories.front(), "R1");
}

} // namespace
} // namespace corvane
