#include "analyses/balance_tables.h"
#include "evaluation/report_of.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(BalanceReports, AFailedAllocationShowsTheTableOfBalanceAnalysis) {
    // Mean X + mean Y overflows, which only the line Y = X needs: its half has old cells and no results.
    const RunResult result = testing::RunOfPairs(
        "pairs.KOV",
        {{".80e308", "1.00e308"}, {".84e308", ".94e308"}, {".88e308", ".93e308"}, {".92e308", ".90e308"}},
        {&AnalysisOptions::BALANCE_ANALYSIS, &AnalysisOptions::ORTHOGONAL_BALANCE},
        {{&AnalysisOptions::ADD_COMMENT, std::int16_t{0}}});
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
    testing::Workbench bench;
    RunState run{.snapshot = {bench.dataset, bench.session, {}, 0, {}},
                 .progress = bench.progress,
                 .sectionId = "balance"};
    run.arrays.X = {1, 2, 4};
    run.arrays.Y = {2, 1, 3};
    run.b = 1e-310; // no allocation: the tables stay as they are
    run.BalanceTableX = {{{1, 1}, {21474836, 1}}};
    run.BalanceTableY = {{{1, 21474837}, {1, 1}}};
    BalanceSection.write(run);
    EXPECT_EQ(run.report.Current().failures.size(), 3U); // both allocations, and the line
    const std::string text = run.report.Text();
    EXPECT_EQ(text.find("Overpredicted"), std::string::npos);
    EXPECT_NE(text.find("Underpredicted :  n/a (  n/a%)     1 (33.33%)        1"), std::string::npos) << text;
}

} // namespace
} // namespace corvane
