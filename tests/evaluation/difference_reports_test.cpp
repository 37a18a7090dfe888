#include "evaluation/report_of.h"
#include "support/golden.h"

namespace corvane {
namespace {

using namespace testing;
using Options = AnalysisOptions;

constexpr std::int16_t off = 0, on = 1, grey = 2;
const Gates ours = {&Options::MSPE_BOOTSTRAP, &Options::KLEIJNEN_ANALYSIS, &Options::BLAND_ALTMAN_ANALYSIS};

const std::string head = "BOOTSTRAP ANALYSIS OF MSEP\r\n==========================\r\n";
const auto size = [](const char* percentage) {
    return std::pair<OptionRow::Member, OptionValue>(&Options::MSPE_BOOTSTRAP_SIZE, std::string(percentage));
};

/// The report from the bootstrap on.
std::string Ours(const RunResult& result) {
    const std::string text = result.report.Text();
    return text.substr(std::min(text.find(head), text.size()));
}

TEST(DifferenceReports, SmallSubSamplesSomeOfThemEmpty) {
    for (const std::int16_t tick : {on, grey})
        ExpectGolden("difference_mtcars.txt",
                     Ours(RunOfExample("mtcars.KOV", ours,
                                       {size("8"),
                                        {&Options::MSPE_BOOTSTRAP_SUBSAMPLE, std::string("250.5")},
                                        {&Options::KLEIJNEN_ANALYSIS, tick},
                                        {&Options::BLAND_ALTMAN_ANALYSIS, tick}})));
}

TEST(DifferenceReports, SwappedRefusedAndCoupledWithDiverseMeasures) {
    for (const std::int16_t tick : {on, grey})
        ExpectGolden("difference_mtcars_swapped.txt",
                     Ours(RunOfExample("mtcars.KOV", ours,
                                       {size("5"),
                                        {&Options::SwapXY, on},
                                        {&Options::ADD_COMMENT, off},
                                        {&Options::DIVERSE_MEASURES, tick}})));
}

TEST(DifferenceReports, EverySubSampleHoldsAllPairs) {
    ExpectGolden("difference_cars.txt", Ours(RunOfExample("cars.KOV", ours, {size("100")})));
}

TEST(DifferenceReports, SizeBeyondSixteenBits) {
    // 32767.5 is a half that goes to the even 32768.
    const RunResult result = RunOfExample("pearson.KOV", ours, {size("327675")});
    ExpectGolden("difference_pearson.txt", Ours(result));
    ASSERT_EQ(result.warnings.size(), 1U);
    EXPECT_NE(result.warnings[0].find("327675% of 10 pairs is a sub-sample size of 32767.5"),
              std::string::npos);
    EXPECT_TRUE(RunOfExample("pearson.KOV", ours, {size("327674")}).warnings.empty());
}

TEST(DifferenceReports, TheSizeRoundsHalvesToEvenAndThreePasses) {
    const auto expectFirst = [](const std::string& lines, Settings settings) {
        const std::string text = Ours(RunOfPairs(
            "five.KOV", {{"1", "2"}, {"2", "4"}, {"3", "5"}, {"5", "6"}, {"7", "7"}}, ours, settings));
        EXPECT_EQ(text.substr(0, head.size() + lines.size()), head + lines);
    };
    const std::string refusal =
        "Size of sub-samples has to be greater than 3. Size has to be at least  60\r\n\r\nKLEIJNEN'S";
    expectFirst(refusal, {size("50")}); // 2.5 is 2
    expectFirst(refusal, {size("")});
    expectFirst("Sub-samples           :              0.00000\r\n"
                "Size                  :              3.00000\r\n"
                "Mean MSEP             :              0.00000\r\n",
                {size("60 per cent"), {&Options::MSPE_BOOTSTRAP_SUBSAMPLE, std::string("0")}});
}

TEST(DifferenceReports, WithoutSpreadThereIsNoTestAndAFailureEndsTheRoutine) {
    const auto expectIn = [](const RunResult& result, const std::string& lines) {
        EXPECT_NE(result.report.Text().find(lines), std::string::npos) << result.report.Text();
    };
    // D = S / 3. Of F = 0 no probability lies below.
    expectIn(RunOfPairs("line.KOV", {{"2", "1"}, {"6", "3"}, {"10", "5"}, {"4", "2"}}, ours),
             "Estimate ß1 ± SD                       :    0.33333 ±    0.00000\r\n"
             "H0: ß0 = 0 & ß1 = 0, F-value (P-value) :    0.00000 (0.00001)\r\n");
    // D without a mean or a slope.
    expectIn(RunOfPairs("level.KOV", {{"1", "2"}, {"2", "1"}, {"3", "4"}, {"4", "3"}}, ours),
             "F-value (P-value) :    0.00000 (0.00001)\r\n"
             "!! Reject H0 and conclude the model does not meet the stringent validation requirement !!\r\n");
    // S is constant, and the SDs have no value.
    const RunResult broken =
        RunOfPairs("constant.KOV", {{"1", "9"}, {"2", "8"}, {"4", "6"}, {"7", "3"}}, ours);
    expectIn(broken, "Estimate ß1 ± SD                       :    0.00000 ±        n/a\r\n"
                     "\r\n\r\nBLAND AND ALTMAN'S");
    ASSERT_EQ(broken.plots.size(), 1U);
    EXPECT_EQ(testing::XYPlots(broken).at(0).Title, "Bland and Altman Analysis");
}

TEST(DifferenceReports, EachRegressionAsksForItsPlot) {
    const RunResult result = RunOfExample("mtcars.KOV", ours);
    ASSERT_EQ(result.plots.size(), 2U);
    const std::vector<PlotRequest> plots = testing::XYPlots(result);
    const PlotRequest &kleijnen = plots.front(), &altman = plots.back();
    EXPECT_EQ(kleijnen.Title, "Kleijnen Analysis");
    EXPECT_EQ(kleijnen.XAxisTitle, "Summation");
    EXPECT_EQ(altman.Title, "Bland and Altman Analysis");
    EXPECT_EQ(altman.XAxisTitle, "Average");
    // The third pair is 25.28 and 22.8; the average takes the first Y, 21, for every pair.
    ASSERT_EQ(kleijnen.ChartData.size(), 3U);
    EXPECT_EQ(kleijnen.ChartData[0]->at(2), 25.28 + 22.8);
    EXPECT_EQ(altman.ChartData[0]->at(2), (25.28 + 21) / 2);
    for (const PlotRequest& plot : plots) {
        EXPECT_EQ(plot.ChartData[1], plot.ChartData[0]);
        EXPECT_EQ(plot.ChartData[2]->at(2), 25.28 - 22.8);
        EXPECT_EQ(plot.PointCount, 32);
        EXPECT_FALSE(plot.SameScale);
        EXPECT_EQ(plot.YAxisTitle, "Difference");
        EXPECT_EQ(plot.Footnote, "n =  32");
        EXPECT_EQ(plot.TitleFont + plot.TitleSize, "Arial14");
        EXPECT_EQ(plot.FootnoteFont + plot.FootnoteSize, "Arial8");
        EXPECT_EQ(plot.AxisTitleFont + plot.AxisTitleSize, "Arial10");
        EXPECT_EQ(plot.AxisLabelFont + plot.AxisLabelSize, "Arial12");
        EXPECT_EQ(plot.LegendPosition, "0");
        EXPECT_EQ(plot.WindowName, "mtcars.KOV");
    }
}

} // namespace
} // namespace corvane
