#include "evaluation/report_of.h"
#include "support/golden.h"

namespace corvane {
namespace {

using Options = AnalysisOptions;

const testing::Gates regressionGates = {&Options::PARAMETER_TEST, &Options::OLS_SLS};

std::string ReportOf(const std::string& example, testing::Settings settings) {
    return testing::RunOfExample(example, regressionGates, settings).report.Text();
}

TEST(GoldenReports, RegularLeastSquares) {
    testing::ExpectGolden("mtcars.txt",
                          ReportOf("mtcars.KOV", {{&Options::SHOW_LITERATURE, std::int16_t{1}}}));
}

TEST(GoldenReports, SwappedWithoutComments) {
    testing::ExpectGolden("mtcars_swapped.txt",
                          ReportOf("mtcars.KOV", {{&Options::SwapXY, std::int16_t{1}},
                                                  {&Options::ADD_COMMENT, std::int16_t{0}}}));
}

TEST(GoldenReports, ErrorsInBothVariables) {
    testing::ExpectGolden("pearson_weighted.txt", ReportOf("pearson.KOV", {}));
}

TEST(GoldenReports, OneSideIgnored) {
    testing::ExpectGolden("pearson_ignored_x.txt",
                          ReportOf("pearson.KOV", {{&Options::UNCERTAINTY_X, std::int16_t{1}}}));
}

TEST(GoldenReports, LeastAbsoluteDeviations) {
    testing::ExpectGolden("cars_robust.txt", ReportOf("cars.KOV", {}));
}

TEST(GoldenReports, ConstantY) {
    const RunResult run = testing::RunOfPairs(
        "constant.KOV",
        {{"1", "3.5"}, {"2.5", "3.5"}, {"3", "3.5"}, {"4", "3.5"}, {"6.5", "3.5"}, {"7", "3.5"}},
        regressionGates);
    testing::ExpectGolden("constant_y.txt", run.report.Text());
}

} // namespace
} // namespace corvane
