#include "evaluation/report_of.h"
#include "stats/deviation_intervals.h"
#include "stats/line_fits.h"
#include "support/golden.h"

#include <cmath>

namespace corvane {
namespace {

using namespace testing;
using Options = AnalysisOptions;

const Gates deviationGates = {&Options::WEIGHED_DEVIANCE, &Options::DEVIATION_ANALYSIS};

RunResult RunOfExample(const std::string& example, Settings settings = {}) {
    return testing::RunOfExample(example, deviationGates, settings);
}

std::pair<OptionRow::Member, OptionValue> Confidence(const char* text) {
    return {&Options::DEVIATION_CI_PROB, std::string(text)};
}

/// The report from the two sections on.
std::string ReportText(const RunResult& run) {
    const std::string text = run.report.Text();
    return text.substr(text.find("WEIGHED DEVIANCE"));
}

std::string WindowText(const RunResult& run) {
    return run.windows.empty() ? "" : run.windows.front().content.Text();
}

TEST(DeviationReports, WithAndWithoutCommentsOrAConfidence) {
    const RunResult run = RunOfExample("mtcars.KOV", {{&Options::ADD_COMMENT, std::int16_t{1}}});
    ExpectGolden("deviation_mtcars.txt", ReportText(run));
    ExpectGolden("deviation_mtcars_window.txt", WindowText(run));
    EXPECT_EQ(run.windows.front().caption, "Deviation Analyses - ");
    EXPECT_TRUE(run.warnings.empty());

    const RunResult plain =
        RunOfExample("mtcars.KOV", {{&Options::ADD_COMMENT, std::int16_t{0}}, Confidence("")});
    EXPECT_EQ(ReportText(plain), ReportText(run));
}

TEST(DeviationReports, NinetyPerCentOrAsMuchAsAFraction) {
    const RunResult run = RunOfExample("cars.KOV", {Confidence("90")});
    ExpectGolden("deviation_cars.txt", ReportText(run));
    ExpectGolden("deviation_cars_window.txt", WindowText(run));
    const RunResult fraction = RunOfExample("cars.KOV", {Confidence("0.9")});
    EXPECT_EQ(ReportText(fraction), ReportText(run));
    EXPECT_EQ(WindowText(fraction), WindowText(run));
}

TEST(DeviationReports, SwappedWithAConfidenceWhoseRestCountsAsAFraction) {
    const RunResult run =
        RunOfExample("pearson.KOV", {{&Options::SwapXY, std::int16_t{1}}, Confidence("0.995")});
    ExpectGolden("deviation_pearson_swapped.txt", ReportText(run));
    ExpectGolden("deviation_pearson_swapped_window.txt", WindowText(run));
    EXPECT_EQ(run.warnings, std::vector<std::string>{
                                "DEVIATION_CI_PROB: a confidence of 99.5 % leaves out 0.5, which counts as a "
                                "fraction since it is not above 1: the deviation analysis has 50 %"});
    EXPECT_TRUE(RunOfExample("pearson.KOV", {Confidence("99")}).warnings.empty());
}

TEST(DeviationReports, EqualDeviationsEndAtTheTestOfTheirMean) {
    const RunResult run =
        RunOfPairs("equal.KOV", {{"1", "3.5"}, {"2", "4.5"}, {"4", "6.5"}, {"8", "10.5"}}, deviationGates);
    ExpectGolden("deviation_equal.txt", ReportText(run));
    EXPECT_TRUE(run.windows.empty());
}

TEST(DeviationReports, AConfidenceWithoutQuantilesLeavesNoSection) {
    for (const char* confidence : {"100", "150", "-0.5", "-5"}) {
        const RunResult run = RunOfExample(
            "pearson.KOV", {Confidence(confidence), {&Options::SHOW_LITERATURE, std::int16_t{1}}});
        EXPECT_EQ(ReportText(run).find("\r\nDEVIATION ANALYSIS"), std::string::npos);
        EXPECT_EQ(run.report.Sections().back().id, "references");
        EXPECT_TRUE(run.windows.empty());
        EXPECT_EQ(run.warnings.size(), 1U);
    }
}

TEST(DeviationReports, TheWeightedDeviationsArePlotted) {
    const RunResult run = RunOfExample("mtcars.KOV");
    ASSERT_EQ(run.plots.size(), 1U);
    const ChartModel& plot = run.plots[0];
    EXPECT_EQ(NameOf(plot.kind), "weighed_deviance");
    EXPECT_EQ(plot.title + "|" + plot.yAxis.title + "|" + plot.xAxis.title + "|" + plot.footnote,
              "Weighed Deviance vs Model-Predicted|Deviation|Observed|n =  32");
    EXPECT_EQ(plot.series.at(0).x->at(0), 23.57);
    double total = 0;
    for (const double share : *plot.series[0].y)
        total += std::abs(share);
    EXPECT_NEAR(total, 1, 1e-14);
}

} // namespace
} // namespace corvane
