#include "core/grid_operations.h"

#include <gtest/gtest.h>
#include <random>
#include <tuple>

namespace corvane {
namespace {

Dataset WithRows(const std::vector<std::pair<const char*, const char*>>& rows) {
    Dataset dataset;
    dataset.options.N = std::to_string(rows.size());
    EXPECT_EQ(ApplyRowCount(dataset), RowCountResult::Applied);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto row = static_cast<std::int32_t>(i + 1);
        dataset.cells.Set(ColumnX, row, std::string(rows[i].first));
        dataset.cells.Set(ColumnY, row, std::string(rows[i].second));
        dataset.cells.Set(ColumnExclude, row, std::string("mark ") + std::to_string(row));
    }
    return dataset;
}

std::string Marks(const Dataset& dataset) {
    std::string marks;
    for (std::int32_t row = 1; row <= dataset.cells.RowCount(); ++row)
        marks +=
            CellText(dataset.cells.At(ColumnExclude, row)) + CellText(dataset.cells.At(ColumnX, row)) + "|";
    return marks + dataset.options.N;
}

/// The walk as it is told to users, cell by cell and with a move for every gap.
void RemoveEmptyRowsSlowly(Dataset& dataset) {
    DataMatrix& cells = dataset.cells;
    const auto empty = [&](int column, std::int32_t row) { return IsEmpty(cells.At(column, row)); };
    bool inGap = false;
    const std::int32_t high = cells.RowBound() - 1;
    for (std::int32_t r = 1, mark = 0; r <= high; ++r) {
        if (empty(ColumnX, r) || (empty(ColumnY, r) && !inGap)) {
            inGap = true;
            mark = r;
        } else if (!empty(ColumnX, r) && !empty(ColumnY, r) && inGap) {
            for (std::int32_t j = r; j <= high; ++j)
                for (int c = 1; c <= LastColumn; ++c) {
                    cells.Set(c, mark + j - r, cells.At(c, j));
                    cells.Set(c, j, std::string());
                }
            inGap = false;
            r = mark;
        }
    }
    for (std::int32_t r = 1; r <= cells.RowCount(); ++r)
        if (empty(ColumnX, r) || empty(ColumnY, r)) {
            dataset.options.N = std::to_string(r - 1);
            ApplyRowCount(dataset);
            break;
        }
}

TEST(GridOperations, RemoveEmptyRowsIsTheSlowWalkInOnePass) {
    std::mt19937 random(20260309);
    for (int trial = 0; trial < 3000; ++trial) {
        std::vector<std::pair<const char*, const char*>> rows(2 + random() % 12);
        for (auto& [x, y] : rows) {
            x = random() % 3 == 0 ? "" : "1";
            y = random() % 3 == 0 ? "" : "2";
        }
        Dataset quick = WithRows(rows), slow = WithRows(rows);
        RemoveEmptyRows(quick);
        RemoveEmptyRowsSlowly(slow);
        ASSERT_EQ(Marks(quick), Marks(slow)) << "trial " << trial;
    }
}

TEST(GridOperations, TheRowBehindTheLastComesBackWhenTheTableGrowsAgain) {
    Dataset dataset = WithRows({{"1", "1"}, {"2", "2"}, {"3", "3"}, {"4", "4"}, {"5", "5"}});
    dataset.options.N = "3";
    ApplyRowCount(dataset);
    EXPECT_EQ(dataset.cells.RowBound(), 4);
    EXPECT_EQ(dataset.cells.LastFilledRow(), 3);
    SwapXAndY(dataset.cells); // walks the data rows only
    dataset.options.N = "5";
    ApplyRowCount(dataset);
    EXPECT_EQ(CellText(dataset.cells.At(ColumnX, 4)), "4");
    EXPECT_TRUE(IsEmpty(dataset.cells.At(ColumnX, 5)));

    dataset.options.N = "1";
    EXPECT_EQ(ApplyRowCount(dataset), RowCountResult::TooFew);
    dataset.options.N = "9e9";
    EXPECT_EQ(ApplyRowCount(dataset), RowCountResult::TooLarge);
    EXPECT_EQ(dataset.cells.RowCount(), 5);
    dataset.options.N = "2";
    EXPECT_EQ(ApplyRowCount(dataset), RowCountResult::Applied);
}

TEST(GridOperations, SwappingTwiceIsTheIdentityAndLeavesExcludeAndTheHiddenRow) {
    Dataset dataset = WithRows({{"1", "10"}, {"2", ""}, {"3", "30"}});
    dataset.cells.Set(ColumnSDX, 1, std::string("0.1"));
    dataset.cells.Set(ColumnRankY, 2, 4.5);
    dataset.cells.Set(ColumnX, 4, std::string("hidden"));
    const auto expect = [&](std::initializer_list<std::tuple<Column, std::int32_t, const char*>> cells) {
        for (const auto& [column, row, text] : cells)
            EXPECT_EQ(CellText(dataset.cells.At(column, row)), text) << column << " " << row;
    };
    SwapXAndY(dataset.cells);
    expect({{ColumnX, 3, "30"}, {ColumnY, 2, "2"}, {ColumnSDY, 1, "0.1"}, {ColumnRankX, 2, "4.5"}});
    expect({{ColumnX, 4, "hidden"}, {ColumnExclude, 1, "mark 1"}});
    SwapXAndY(dataset.cells);
    expect({{ColumnX, 3, "3"}, {ColumnY, 1, "10"}});
}

TEST(GridOperations, CellsShowThroughTheirPictures) {
    Dataset dataset = WithRows({{"12.34567", ".5"}, {"n.d.", ""}});
    dataset.cells.Set(ColumnSDY, 1, std::string("1"));
    dataset.cells.Set(ColumnRankX, 1, 3.5);
    dataset.cells.Set(ColumnRankY, 1, 0.0);
    std::string shown;
    for (const int column : {ColumnX, ColumnY, ColumnSDY, ColumnRankX, ColumnRankY})
        shown += MatrixTOGrid(dataset, 1, column) + "|";
    EXPECT_EQ(shown, "12.3457|.5000|1.00000|4||");
    EXPECT_EQ(MatrixTOGrid(dataset, 2, ColumnX) + MatrixTOGrid(dataset, 2, ColumnY), "n.d.");
}

} // namespace
} // namespace corvane
