#include "analyses/balance.h"

#include "analyses/balance_tables.h"
#include "evaluation/report_of.h"

#include <gtest/gtest.h>
#include <vector>

namespace corvane {
namespace {

using Values = std::vector<double>;

struct Harlow {
    AllocationTable cellsA{{{9, 9}, {9, 9}}}, cellsB = cellsA;
    Allocation A{cellsA}, B{cellsB};
    bool perpendicular = false;

    void Run(const Values& X, const Values& Y, double a, double b) {
        STAT_Harlow(X, Y, a, b, A, B, 0, perpendicular);
    }
};

TEST(StatHarlow, TiesOnTheMeansAreAboveAndTiesOfXAndYAreOverpredicted) {
    Harlow harlow;
    harlow.Run(Values(7, 0.1), {0, 0, 0.1, 0.1, 0.1, 0.2, 0.2}, 0, 1);
    EXPECT_EQ(harlow.cellsA, (AllocationTable{{{0, 5}, {0, 2}}}));
    EXPECT_EQ(harlow.cellsB, (AllocationTable{{{2, 3}, {0, 2}}}));
    EXPECT_DOUBLE_EQ(harlow.A.OddsRatio, 2.5 / 5.5); // the empty column counts one half twice
}

TEST(StatHarlow, TiesOnThePerpendicularLinesAreLopsided) {
    // The centre (2, 2) lies on both lines, the other pairs two by two on each of them.
    const Values X{2, 1, 3, 1, 3}, Y{2, 1, 3, 3, 1};
    Harlow rising;
    rising.perpendicular = true;
    rising.Run(X, Y, 0, 1);
    // Over, Below: the centre, (1, 1), (3, 1). Under, Below: (1, 3). Under, Above: (3, 3), on Y = X itself.
    EXPECT_EQ(rising.cellsA, (AllocationTable{{{3, 0}, {1, 1}}}));
    EXPECT_EQ(rising.cellsB, rising.cellsA);
    EXPECT_TRUE(rising.perpendicular);

    // Y = 4 - X turns the sides about: (3, 1) is the one above.
    Harlow falling;
    falling.perpendicular = true;
    falling.Run({2, 1, 1, 1, 3, 4}, {2, 1, 1, 3, 1, 4}, 4, -1);
    EXPECT_EQ(falling.cellsA, (AllocationTable{{{4, 0}, {1, 1}}}));

    Harlow level;
    level.perpendicular = true;
    level.Run(X, Y, 2, 0);
    EXPECT_FALSE(level.perpendicular);
    EXPECT_EQ(level.cellsA, (AllocationTable{{{1, 3}, {1, 0}}}));
    EXPECT_EQ(level.cellsB, (AllocationTable{{{2, 2}, {0, 1}}}));
}

TEST(StatHarlow, AFailureKeepsWhatWasWrittenAndWhatWasThere) {
    Harlow slope;
    slope.A.X2 = 7;
    EXPECT_THROW(slope.Run({1, 2, 4}, {2, 1, 3}, 0, 1e-310), RunFailure); // 1/b overflows in either mode
    EXPECT_EQ(slope.cellsA, (AllocationTable{{{9, 9}, {9, 9}}}));
    EXPECT_EQ(slope.A.X2, 7);

    Harlow difference;
    difference.A.X2 = 7;
    EXPECT_THROW(difference.Run({1, 2, -1e308, 3}, {2, 1, 1e308, 2}, 0, 0), RunFailure);
    EXPECT_EQ(difference.cellsA, (AllocationTable{{{0, 1}, {0, 1}}}));
    EXPECT_EQ(difference.cellsB, (AllocationTable{{{1, 0}, {1, 0}}}));
    EXPECT_EQ(difference.A.X2, 7);
}

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
    WriteBalance(run);
    EXPECT_EQ(run.report.Current().failures.size(), 3U); // both allocations, and the line
    const std::string text = run.report.Text();
    EXPECT_EQ(text.find("Overpredicted"), std::string::npos);
    EXPECT_NE(text.find("Underpredicted :  n/a (  n/a%)     1 (33.33%)        1"), std::string::npos) << text;
}

} // namespace
} // namespace corvane
