#include "app/grid_actions.h"

#include "app/cell_edit.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

/// A document with a few cells, columns separated by blanks, and rows by "|"; "-" is an empty cell.
struct Filled : Document {
    explicit Filled(std::string_view rows) {
        Load([rows](Dataset& dataset, SessionState&) {
            std::int32_t row = 1;
            int column = ColumnX;
            std::string text;
            for (const char character : std::string(rows) + "|") {
                if (character != ' ' && character != '|') {
                    text += character;
                    continue;
                }
                dataset.cells.Set(column++, row, std::string_view(text == "-" ? "" : text));
                text.clear();
                if (character == '|') {
                    ++row;
                    column = ColumnX;
                }
            }
        });
    }

    std::string Rows(std::int32_t last) const {
        const GridRange all[] = {{1, last, ColumnX, LastColumn}};
        return CopySelection(Data().cells, all);
    }

    /// The name of the last step. It is taken back and done again, which must give both tables.
    std::string Step(const std::string& before) {
        const std::string after = Rows(19);
        Undo();
        EXPECT_EQ(Rows(19), before);
        Redo();
        EXPECT_EQ(Rows(19), after);
        return std::string(UndoName());
    }
};

constexpr int C1 = ColumnX, C3 = ColumnY;

TEST(GridSelection, CoversEveryCellOnce) {
    const GridRange ranges[] = {{5, 9, 1, 2}, {1, 3, 3, 3}, {7, 12, 2, 4}, {4, 4, 3, 3}, {5, 9, 1, 1}};
    std::vector<std::array<std::int64_t, 3>> stripes;
    for (const RowStripe& stripe : StripesOf(ranges))
        stripes.push_back({stripe.firstRow, stripe.lastRow, stripe.columns});
    EXPECT_EQ(stripes, (std::vector<std::array<std::int64_t, 3>>{
                           {1, 4, 0b01000}, {5, 6, 0b00110}, {7, 9, 0b11110}, {10, 12, 0b11100}}));
    Filled document("0.1 - 3|4 - a\"b");
    document.Change({"Number"}, [](Dataset& dataset, SessionState&) { dataset.cells.Set(2, 1, 0.1 + 0.2); });
    const GridRange corners[] = {{2, 2, C3, C3}, {1, 1, C1, 2}};
    EXPECT_EQ(CopySelection(document.Data().cells, corners),
              "0.1\t0.30000000000000004\t\r\n\t\t\"a\"\"b\"\r\n");
}

TEST(GridActions, EachIsOneNamedStep) {
    Filled document("1 - 2|3 - 4|5 - 6");
    std::string before = document.Rows(19);
    const auto step = [&](auto action) {
        before = document.Rows(19);
        action();
        return document.Step(before);
    };
    const GridRange both[] = {{1, 2, C1, C3}, {2, 3, C1, C1}}, one[] = {{2, 2, C3, C3}};
    EXPECT_EQ(step([&] { ExcludeRows(document, both, true); }), "Exclude 3 rows");
    EXPECT_TRUE(AllExcluded(document.Data().cells, both));
    EXPECT_EQ(step([&] { ExcludeRows(document, one, false); }), "Include row 2");
    EXPECT_EQ(step([&] { FillDown(document, one); }), "Fill down 1 cell");
    EXPECT_EQ(step([&] { CutCells(document, one); }), "Cut Y (Obs), row 2");
    EXPECT_EQ(step([&] { ClearCells(document, both); }), "Clear 4 cells");
    EXPECT_EQ(document.Rows(3), "\t\t\t\t\t\tY\r\n\t\t\t\t\t\t\r\n\t\t6\t\t\t\tY\r\n");
    EXPECT_EQ(step([&] { SwapXToY(document, true); }), "Swap X to Y");
    ClearCells(document, one); // nothing there: no step
    EXPECT_EQ(document.UndoName(), "Swap X to Y");
    EXPECT_EQ(step([&] { SortRows(document, ColumnX, false); }), "Sort by X (Obs)");
    EXPECT_EQ(step([&] { ClearDataset(document); }), "Clear the dataset");
    EXPECT_EQ(document.Data().cells.LastFilledRow(), 0);
}

TEST(GridActions, RowsComeAndGo) {
    Filled document("1 - 2|- - 3|5 - 6|7 - 8");
    EXPECT_EQ(RemoveInvalidRows(document), RowCountResult::Applied);
    EXPECT_EQ(document.UndoName(), "Remove 16 invalid rows");
    EXPECT_EQ(document.Rows(3), "1\t\t2\t\t\t\t\r\n5\t\t6\t\t\t\t\r\n7\t\t8\t\t\t\t\r\n");
    EXPECT_EQ(ApplyNumberOfRows(document, "25"), RowCountResult::Applied);
    EXPECT_EQ(document.UndoName(), "Number of rows 3 to 25");
    EXPECT_EQ(document.Data().cells.RowCount(), 25);
    EXPECT_EQ(ApplyNumberOfRows(document, "1"), RowCountResult::TooFew);
    EXPECT_EQ(document.Data().options.N, "25");

    DataMatrix table;
    table.Set(ColumnY, 2, 9.0);
    PutTable(document, table, 25);
    EXPECT_EQ(document.Data().cells.RowCount(), 26);
    EXPECT_EQ(document.UndoName(), "Paste 1 value");
    document.Undo();
    EXPECT_EQ(document.Data().options.N, "25");
}

TEST(GridActions, SortsNumbersThenTextsAndEmptyCellsLast) {
    Filled document("10 a|b b|9 c|- d|-1e1 e|9 f|a g");
    const auto order = [&] {
        std::string names;
        for (std::int32_t row = 1; row <= 7; ++row)
            names += CellText(document.Data().cells.At(ColumnSDX, row));
        return names;
    };
    SortRows(document, ColumnX, false);
    EXPECT_EQ(order(), "ecfagbd");
    SortRows(document, ColumnX, true);
    EXPECT_EQ(order(), "bgacfed");
}

TEST(GridActions, PasteSaysWhatItDid) {
    Filled document("1 - 2");
    TakePasted(document, PasteNumbers(document.Data(), "1,5;x\r\n \r\n7,8", {2, C3}));
    EXPECT_EQ(document.UndoName(), "Paste 4 values");
    EXPECT_EQ(CellText(document.Data().cells.At(ColumnY, 5)), "8");
    const PastedNumbers pasted = PasteNumbers(document.Data(), "1,5;x\r\n \r\n7,8", {2, C3});
    EXPECT_EQ(pasted.lines, 2U);
    EXPECT_EQ(pasted.commas, 2U);
    EXPECT_EQ(pasted.result.notNumbers, 1U);
}

TEST(CellEdit, IsOneStepHoweverLongItTakes) {
    Filled document("1 - 12.5");
    CellEdit edit(document);
    edit.Begin({1, C3}, U'7');
    EXPECT_EQ(document.UndoName(), "Type 7 in Y (Obs), row 1");
    edit.Take("7.25");
    EXPECT_EQ(document.UndoName(), "Type 7.25 in Y (Obs), row 1");
    edit.Begin({1, C3}, U'8'); // the next edit is the next step, also of the same cell
    EXPECT_EQ(edit.Drop(), "7.25");
    document.Undo();
    EXPECT_EQ(CellText(document.Data().cells.At(ColumnY, 1)), "7.25");
    document.Undo();
    EXPECT_EQ(CellText(document.Data().cells.At(ColumnY, 1)), "12.5");
    EXPECT_FALSE(document.CanUndo());

    edit.Begin({1, C3}, U' ');
    edit.Take("12.5");
    edit.Begin({1, C3}, U'1');
    edit.Take(std::string(50, 'w'));
    EXPECT_EQ(document.UndoName(), "Type " + std::string(40, 'w') + "… in Y (Obs), row 1");
    edit.Begin({1, C3}, U'\r');
    EXPECT_EQ(edit.Drop(), std::nullopt);
    document.Undo();
    EXPECT_FALSE(document.CanUndo());
}

} // namespace
} // namespace corvane
