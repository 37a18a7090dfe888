#include "analyses/balance_tables.h"
#include "report_of.h"
#include "support/golden.h"

namespace corvane {
namespace {

using Options = AnalysisOptions;
constexpr std::int16_t off = 0, on = 1;
const testing::Gates both = {&Options::BALANCE_ANALYSIS, &Options::ORTHOGONAL_BALANCE};

RunResult PairsReport(testing::TextPairs pairs) {
    return testing::RunOfPairs("pairs.KOV", pairs, both, {{&Options::ADD_COMMENT, off}});
}

TEST(BalanceReports, RegularLeastSquares) {
    testing::ExpectGolden("balance_mtcars.txt", testing::RunOfExample("mtcars.KOV", both).report.Text());
}

TEST(BalanceReports, SwappedWithoutComments) {
    testing::ExpectGolden(
        "balance_mtcars_swapped.txt",
        testing::RunOfExample("mtcars.KOV", both, {{&Options::SwapXY, on}, {&Options::ADD_COMMENT, off}})
            .report.Text());
}

TEST(BalanceReports, OrthogonalAloneWithAFallingLine) {
    testing::ExpectGolden("balance_pearson.txt",
                          testing::RunOfExample("pearson.KOV", {&Options::ORTHOGONAL_BALANCE}).report.Text());
}

TEST(BalanceReports, SlopeOfExactlyZero) {
    testing::ExpectGolden(
        "balance_level.txt",
        PairsReport({{"1", "1"}, {"2", "3"}, {"3", "2"}, {"4", "3"}, {"5", "1"}}).report.Text());
}

TEST(BalanceReports, AllPairsTied) {
    testing::ExpectGolden("balance_tied.txt",
                          PairsReport({{"2", "3"}, {"2", "3"}, {"2", "3"}, {"2", "3"}}).report.Text());
}

TEST(BalanceReports, AFailedAllocationShowsTheTableOfBalanceAnalysis) {
    // Mean X + mean Y overflows, which only the line Y = X needs: its half has old cells and no results.
    const RunResult result = PairsReport(
        {{".80e308", "1.00e308"}, {".84e308", ".94e308"}, {".88e308", ".93e308"}, {".92e308", ".90e308"}});
    const ReportSection& orthogonal = result.report.Sections().back();
    EXPECT_EQ(orthogonal.failures.size(), 1U);
    EXPECT_EQ(orthogonal.lines[4].Text(),
              "         Overpredicted  :      ( 0.00%)     1 (25.00%)        1 (25.00%)       ( 0.00%)");
    EXPECT_EQ(orthogonal.lines[5].Text(),
              "         Underpredicted :    2 (50.00%)     1 (25.00%)        1 (25.00%)     2 (50.00%)");
    EXPECT_EQ(orthogonal.lines[7].Text(),
              "      X² (Prob(X²=0))   :   0.00000 (0.00001)                1.33333 (0.24821)");
}

TEST(BalanceReports, ACellWhoseHundredfoldIsTooLargeTakesItsLineAway) {
    Dataset dataset;
    SessionState session;
    testing::RunFakes fakes;
    const RunServices services = fakes.Services();
    RunState run{dataset, session, services};
    run.arrays.X = {1, 2, 4};
    run.arrays.Y = {2, 1, 3};
    run.b = 1e-310; // no allocation: the tables stay as they are
    run.BalanceTableX = {{{1, 1}, {21474836, 1}}};
    run.BalanceTableY = {{{1, 21474837}, {1, 1}}};
    WriteBalance(run);
    EXPECT_EQ(run.report.Current().failures.size(), 3U); // both allocations, and the line
    const std::string text = run.report.Text();
    EXPECT_EQ(text.find("Overpredicted"), std::string::npos);
    EXPECT_NE(text.find("Underpredicted :  n/a (  n/a%)     1 (33.33%)        1"), std::string::npos) << text;
}

} // namespace
} // namespace corvane
