#include "evaluation/report_of.h"
#include "plots/chart_operations.h"

namespace corvane {
namespace {

using namespace testing;
using Options = AnalysisOptions;

const Gates ours = {&Options::MSPE_BOOTSTRAP, &Options::KLEIJNEN_ANALYSIS, &Options::BLAND_ALTMAN_ANALYSIS};

const std::string head = "BOOTSTRAP ANALYSIS OF MSEP\r\n==========================\r\n";
const auto size = [](const char* percentage) {
    return std::pair<OptionRow::Member, OptionValue>(&Options::MSPE_BOOTSTRAP_SIZE, std::string(percentage));
};

TEST(DifferenceReports, ASizeBeyondSixteenBitsIsSaid) {
    const RunResult result = RunOfExample("pearson.KOV", ours, {size("327675")});
    ASSERT_EQ(result.warnings.size(), 1U);
    EXPECT_NE(result.warnings[0].find("327675% of 10 pairs is a sub-sample size of 32767.5"),
              std::string::npos);
    EXPECT_TRUE(RunOfExample("pearson.KOV", ours, {size("327674")}).warnings.empty());
}

TEST(DifferenceReports, TheSizeRoundsHalvesToEvenAndThreePasses) {
    const auto expectFirst = [](const std::string& lines, const Settings& settings) {
        EXPECT_TRUE(Has(RunOfPairs("five.KOV", {{"1", "2"}, {"2", "4"}, {"3", "5"}, {"5", "6"}, {"7", "7"}},
                                   ours, settings),
                        head + lines))
            << lines;
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

TEST(DifferenceReports, TheBootstrapTellsItsShareOfTheRun) {
    Workbench bench;
    bench.OpenExample("mtcars.KOV")
        .Only(ours)
        .Set({{&Options::MSPE_BOOTSTRAP_SUBSAMPLE, std::string("5000")}});
    bench.Evaluate();
    // 5000 x 32 draws are in the third of five stretches, with a look each 65536.
    const std::vector<double> expected = {0.2, 0.4, 0.4 + 0.2 * 0.4096, 0.4 + 0.2 * 0.8192, 0.6, 0.8};
    ASSERT_EQ(bench.progress.shares.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(bench.progress.shares[i], expected[i], 1e-15);
}

TEST(SampleReports, ARatioBeyondRangeLeavesZeros) {
    EXPECT_TRUE(Has(
        RunOfPairs("pairs.KOV", {{"1e200", "1e-200"}, {"2", "1"}, {"3", "5"}}, {&Options::INDEX_ANALYSIS}),
        "\r\nAve(X/Y)     :    0.00000\r\nSD(X/Y)      :    0.00000\r\n"));
}

TEST(DifferenceReports, WithoutSpreadThereIsNoEvidence) {
    const auto expectIn = [](const RunResult& result, const std::string& lines) {
        EXPECT_TRUE(Has(result, lines)) << result.report.Text();
    };
    // D = S / 3. Of F = 0 no probability lies below.
    expectIn(RunOfPairs("line.KOV", {{"2", "1"}, {"6", "3"}, {"10", "5"}, {"4", "2"}}, ours),
             "Estimate ß1 ± SD                       :    0.33333 ±    0.00000\r\n"
             "H0: ß0 = 0 & ß1 = 0, F-value (P-value) :    0.00000 (0.00001)\r\n");
    // D without a mean or a slope.
    expectIn(RunOfPairs("level.KOV", {{"1", "2"}, {"2", "1"}, {"3", "4"}, {"4", "3"}}, ours),
             "F-value (P-value) :    0.00000 (0.00001)\r\n"
             "!! Reject H0 and conclude the model does not meet the stringent validation requirement !!\r\n");
    // S is constant, and the SDs have no finite value.
    expectIn(RunOfPairs("constant.KOV", {{"1", "9"}, {"2", "8"}, {"4", "6"}, {"7", "3"}}, ours),
             "Estimate ß1 ± SD                       :    0.00000 ±        n/a\r\n"
             "H0: ß0 = 0, T-value (P-value)          :    0.00000 (1.00000)\r\n"
             "H0: ß1 = 0, T-value (P-value)          :    0.00000 (1.00000)\r\n"
             "H0: ß0 = 0 & ß1 = 0, F-value (P-value) :    0.");
}

/// P between 0.05 and 0.06. R 4.2.2: P of the line's F by pf(F, n - 2, 2), of t.test(y, x, paired = TRUE), of
/// var.test(y, x) and of cor.test(x, y) in this order.
TEST(DifferenceReports, TheVerdictsLevelIsFivePerCent) {
    const auto verdict = [](const TextPairs& pairs) {
        const std::string text = RunOfPairs("p.KOV", pairs, {&Options::KLEIJNEN_ANALYSIS}).report.Text();
        return text.substr(text.find("!! ", text.find("F-value (P-value) :")));
    };
    const std::string met =
        "!! Fail to reject H0 and conclude the model meets the stringent validation requirement !!\r\n";
    // 0.0539, 0.569, 0.987, 0.0009
    const TextPairs line = {{"7.6", "7.8"}, {"13.7", "14.8"}, {"9.9", "9.3"},
                            {"8.0", "6.9"}, {"9.3", "9.5"},   {"17.6", "16.5"}};
    // 0.916, 0.0535, 0.0521, 0.241
    const TextPairs meanAndVariance = {{"7.7", "15.9"},  {"7.4", "4.0"},   {"6.3", "12.0"},
                                       {"10.2", "22.6"}, {"12.6", "16.9"}, {"10.1", "15.0"}};
    // 0.906, 0.0065, 0.583, 0.0559
    const TextPairs correlation = {{"10.3", "11.0"}, {"10.4", "12.7"}, {"8.0", "12.3"},
                                   {"6.6", "11.5"},  {"13.5", "19.2"}, {"8.6", "11.2"}};
    EXPECT_EQ(verdict(line), met);
    EXPECT_EQ(verdict(meanAndVariance), met);
    EXPECT_EQ(verdict(correlation), "!! Stringent assumption of identical mean failed !!\r\n"
                                    "!! Stringent assumption of positive correlation failed !!\r\n");
}

TEST(DifferenceReports, EachRegressionAsksForItsPlot) {
    const RunResult result = RunOfExample("mtcars.KOV", ours);
    ASSERT_EQ(result.plots.size(), 2U);
    const ChartModel &kleijnen = result.plots.front(), &altman = result.plots.back();
    EXPECT_EQ(NameOf(kleijnen.kind), "kleijnen");
    EXPECT_EQ(NameOf(altman.kind), "bland_altman");
    EXPECT_EQ(kleijnen.title + "|" + kleijnen.xAxis.title, "Kleijnen Analysis|Summation");
    EXPECT_EQ(altman.title + "|" + altman.xAxis.title, "Bland and Altman Analysis|Average");
    // The third pair is 25.28 and 22.8; the average takes the first Y, 21, for every pair.
    EXPECT_EQ(kleijnen.series.at(0).x->at(2), 25.28 + 22.8);
    EXPECT_EQ(altman.series.at(0).x->at(2), (25.28 + 21) / 2);
    for (const ChartModel& plot : result.plots) {
        const ChartSeries& points = plot.series.at(0);
        EXPECT_EQ(points.y->at(2), 25.28 - 22.8);
        EXPECT_EQ(points.y->size(), 32U);
        EXPECT_EQ(RowOf(plot, {0, 31}), 32);
        EXPECT_EQ(points.colour, (Colour{0, 0, 255}));
        EXPECT_FALSE(plot.sharedScale || plot.legend);
        EXPECT_EQ(plot.yAxis.title + "|" + plot.footnote + "|" + plot.windowCaption,
                  "Difference|n =  32|Plot - mtcars.KOV");
        EXPECT_EQ(
            std::vector({plot.titleSize, plot.footnoteSize, plot.xAxis.titleSize, plot.yAxis.labelSize}),
            (std::vector<double>{14, 8, 10, 12}));
        for (const std::string& font :
             {plot.titleFont, plot.footnoteFont, plot.xAxis.titleFont, plot.yAxis.labelFont})
            EXPECT_EQ(font, "Arial");
    }
}

} // namespace
} // namespace corvane
