#include "stats/harlow.h"

#include <gtest/gtest.h>
#include <vector>

namespace corvane::stats::test {
namespace {

using Values = std::vector<double>;

struct Harlow {
    AllocationTable cellsA{{{9, 9}, {9, 9}}}, cellsB = cellsA;
    Allocation A{cellsA}, B{cellsB};
    bool perpendicular = false;

    bool Run(const Values& X, const Values& Y, double a, double b) {
        return STAT_Harlow(X, Y, a, b, A, B, 0, perpendicular);
    }
};

TEST(StatHarlow, TiesOnTheMeansAreAboveAndTiesOfXAndYAreOverpredicted) {
    Harlow harlow;
    EXPECT_TRUE(harlow.Run(Values(7, 0.1), {0, 0, 0.1, 0.1, 0.1, 0.2, 0.2}, 0, 1));
    EXPECT_EQ(harlow.cellsA, (AllocationTable{{{0, 5}, {0, 2}}}));
    EXPECT_EQ(harlow.cellsB, (AllocationTable{{{2, 3}, {0, 2}}}));
    EXPECT_DOUBLE_EQ(harlow.A.OddsRatio, 2.5 / 5.5); // the empty column counts one half twice
}

TEST(StatHarlow, TiesOnThePerpendicularLinesAreLopsided) {
    // The centre (2, 2) lies on both lines, the other pairs two by two on each of them.
    const Values X{2, 1, 3, 1, 3}, Y{2, 1, 3, 3, 1};
    Harlow rising;
    rising.perpendicular = true;
    EXPECT_TRUE(rising.Run(X, Y, 0, 1));
    // Over, Below: the centre, (1, 1), (3, 1). Under, Below: (1, 3). Under, Above: (3, 3), on Y = X itself.
    EXPECT_EQ(rising.cellsA, (AllocationTable{{{3, 0}, {1, 1}}}));
    EXPECT_EQ(rising.cellsB, rising.cellsA);
    EXPECT_TRUE(rising.perpendicular);

    // Y = 4 - X turns the sides about: (3, 1) is the one above.
    Harlow falling;
    falling.perpendicular = true;
    EXPECT_TRUE(falling.Run({2, 1, 1, 1, 3, 4}, {2, 1, 1, 3, 1, 4}, 4, -1));
    EXPECT_EQ(falling.cellsA, (AllocationTable{{{4, 0}, {1, 1}}}));

    Harlow level;
    level.perpendicular = true;
    EXPECT_TRUE(level.Run(X, Y, 2, 0));
    EXPECT_FALSE(level.perpendicular);
    EXPECT_EQ(level.cellsA, (AllocationTable{{{1, 3}, {1, 0}}}));
    EXPECT_EQ(level.cellsB, (AllocationTable{{{2, 2}, {0, 1}}}));
}

TEST(StatHarlow, AFailureKeepsWhatWasWrittenAndWhatWasThere) {
    Harlow slope;
    slope.A.X2 = 7;
    EXPECT_FALSE(slope.Run({1, 2, 4}, {2, 1, 3}, 0, 1e-310)); // 1/b overflows in either mode
    EXPECT_EQ(slope.cellsA, (AllocationTable{{{9, 9}, {9, 9}}}));
    EXPECT_EQ(slope.A.X2, 7);

    Harlow difference;
    difference.A.X2 = 7;
    EXPECT_FALSE(difference.Run({1, 2, -1e308, 3}, {2, 1, 1e308, 2}, 0, 0));
    EXPECT_EQ(difference.cellsA, (AllocationTable{{{0, 1}, {0, 1}}}));
    EXPECT_EQ(difference.cellsB, (AllocationTable{{{1, 0}, {1, 0}}}));
    EXPECT_EQ(difference.A.X2, 7);
}

} // namespace
} // namespace corvane::stats::test
