#include "core/cell_reading.h"

#include "core/evaluation_arrays.h"

#include <gtest/gtest.h>
#include <random>

namespace corvane {
namespace {

using enum CellReading;

/// What a run makes of the table, counted from the arrays that it reads.
RowCounts CountedSlowly(const DataMatrix& cells) {
    const EvaluationArrays arrays = SelectRows(cells);
    RowCounts counts;
    counts.inUse = static_cast<std::int32_t>(arrays.Count());
    for (std::int32_t row = 1; row <= cells.RowCount(); ++row)
        counts.excluded += RowIsExcluded(cells, row) ? 1 : 0;
    for (const std::int32_t row : arrays.rows) {
        bool unreadable = IsEmpty(cells.At(ColumnY, row));
        for (const int column : {ColumnX, ColumnSDX, ColumnY, ColumnSDY})
            unreadable =
                unreadable || (!IsEmpty(cells.At(column, row)) && !CellNumber(cells.At(column, row)));
        counts.unreadable += unreadable ? 1 : 0;
    }
    return counts;
}

TEST(CellReading, SaysWhatARunTakesForZero) {
    struct Case {
        std::string_view x, y, mark;
        CellReading readingX, readingY;
    };
    for (const Case& c :
         {Case{"1", "2", "", AsItIs, AsItIs}, Case{"1", "", "", AsItIs, EmptyAsZero},
          Case{"1", "n.a.", "", AsItIs, TextAsZero}, Case{" ", "1,5", "N", TextAsZero, TextAsZero},
          Case{"x", "", "y", AsItIs, AsItIs}, Case{"", "2", "", LeavesTheRowOut, AsItIs},
          Case{"", "", "", AsItIs, AsItIs}, Case{"", "2", "0", AsItIs, AsItIs}}) {
        DataMatrix cells;
        cells.Set(ColumnX, 3, c.x);
        cells.Set(ColumnY, 3, c.y);
        cells.Set(ColumnExclude, 3, c.mark);
        EXPECT_EQ(ReadingOf(cells, 3, ColumnX), c.readingX) << c.x << "|" << c.y;
        EXPECT_EQ(ReadingOf(cells, 3, ColumnY), c.readingY) << c.x << "|" << c.y;
        EXPECT_EQ(ReadingOf(cells, 3, ColumnSDY), AsItIs);
        EXPECT_EQ(ReadingOf(cells, 3, ColumnExclude), AsItIs);
    }
}

TEST(CellReading, CountsFollowEveryChange) {
    std::mt19937 random(20260310);
    const std::string_view texts[] = {"", "1", "2.5", "n.a.", "Y", "1,5"};
    DataMatrix cells;
    RowCounter counter;
    for (int change = 0; change < 400; ++change) {
        if (change % 20 == 0)
            cells.SetRowCount(static_cast<std::int32_t>(random() % 1200 + 2));
        if (change % 97 == 0)
            cells.SwapColumns(ColumnX, ColumnY);
        const auto row = static_cast<std::int32_t>(random() % 1200 + 1);
        for (int cell = 0; cell < 5; ++cell)
            cells.Set(static_cast<int>(random() % 7 + 1), row + cell, texts[random() % 6]);
        counter.Follow(cells);
        if (change % 3 == 0)
            counter.Count(300); // the rest stays for the next turn
        else
            EXPECT_TRUE(counter.Count(1 << 20));
        if (counter.Complete()) {
            EXPECT_EQ(counter.Counts(), CountedSlowly(cells));
        }
    }
}

TEST(CellReading, GoesRoundTheUnreadableCells) {
    DataMatrix cells;
    RowCounter counter;
    counter.Follow(cells);
    EXPECT_FALSE(counter.NextUnreadable({1, 1}, true));
    cells.SetRowCount(1000);
    for (const std::int32_t row : {2, 700}) {
        cells.Set(ColumnX, row, std::string_view("x"));
        cells.Set(ColumnSDY, row, std::string_view("s"));
        cells.Set(ColumnY, row, 1.0);
    }
    counter.Follow(cells);
    std::vector<std::pair<std::int32_t, int>> found;
    GridPlace at{2, ColumnX};
    for (const bool forward : {true, true, true, true, false, false, false}) {
        at = counter.NextUnreadable(at, forward).value_or(GridPlace{});
        found.emplace_back(at.row, at.column);
    }
    EXPECT_EQ(found, (std::vector<std::pair<std::int32_t, int>>{
                         {2, 4}, {700, 1}, {700, 4}, {2, 1}, {700, 4}, {700, 1}, {2, 4}}));
    EXPECT_EQ(counter.NextUnreadable({1000, 7}, true)->row, 2);
}

} // namespace
} // namespace corvane
