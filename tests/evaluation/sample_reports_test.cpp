#include "report_of.h"
#include "support/golden.h"

namespace corvane {
namespace {

using Options = AnalysisOptions;
constexpr std::int16_t off = 0, on = 1;
const testing::Gates gates = {&Options::DISTRIBUTION_ANALYSIS, &Options::MOMENT_STATISTIC,
                              &Options::ROBUST_STATISTICS, &Options::INDEX_ANALYSIS};

/// The part of a report that the four sections make which look at X, Y and X/Y each as a sample.
std::string SampleText(const RunResult& run) {
    const std::string text = run.report.Text();
    return text.substr(text.find("DISTRIBUTION ANALYSES"));
}

std::string ReportOfPairs(testing::TextPairs pairs) {
    return SampleText(testing::RunOfPairs("pairs.KOV", pairs, gates, {{&Options::ADD_COMMENT, off}}));
}

TEST(SampleReports, WithComments) {
    testing::ExpectGolden("samples_mtcars.txt", SampleText(testing::RunOfExample("mtcars.KOV", gates)));
}

TEST(SampleReports, SwappedWithoutComments) {
    testing::ExpectGolden("samples_mtcars_swapped.txt",
                          SampleText(testing::RunOfExample(
                              "mtcars.KOV", gates, {{&Options::SwapXY, on}, {&Options::ADD_COMMENT, off}})));
}

TEST(SampleReports, ZerosInY) {
    testing::ExpectGolden("samples_zeros.txt", ReportOfPairs({{"1.2", "0"},
                                                              {"0", "1.5"},
                                                              {"3.1", "3"},
                                                              {"4.4", "0"},
                                                              {"5", "5.5"},
                                                              {"6.3", "6"},
                                                              {"7.7", "8"}}));
}

TEST(SampleReports, NegativeValuesWhoseMeanIsZero) {
    testing::ExpectGolden("samples_negative.txt", ReportOfPairs({{"-3.2", "-3"},
                                                                 {"-1.5", "-2"},
                                                                 {"-0.4", "-0.5"},
                                                                 {"0.9", "0.5"},
                                                                 {"2.8", "1.5"},
                                                                 {"3.1", "3.5"}}));
}

TEST(SampleReports, ConstantY) {
    testing::ExpectGolden(
        "samples_constant_y.txt",
        ReportOfPairs(
            {{"1", "3.5"}, {"2.5", "3.5"}, {"3", "3.5"}, {"4", "3.5"}, {"6.5", "3.5"}, {"7", "3.5"}}));
}

TEST(SampleReports, ConstantRatioOfThreePairs) {
    testing::ExpectGolden("samples_constant_ratio.txt",
                          ReportOfPairs({{"2", "1"}, {"4", "2"}, {"7", "3.5"}}));
}

TEST(SampleReports, ARatioBeyondRangeLeavesZeros) {
    const std::string text = ReportOfPairs({{"1e200", "1e-200"}, {"2", "1"}, {"3", "5"}});
    EXPECT_NE(text.find("\r\nAve(X/Y)     :    0.00000\r\nSD(X/Y)      :    0.00000\r\n"), std::string::npos);
}

} // namespace
} // namespace corvane
