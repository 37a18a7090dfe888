#include "core/grid_clipboard.h"

#include "core/format/failure.h"
#include "core/grid_editor.h"
#include "core/grid_operations.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

Dataset Empty(int rows, bool singleColumn, bool autoRow) {
    Dataset dataset;
    dataset.options.N = std::to_string(rows);
    dataset.options.SINGLE_COLUMN = singleColumn;
    dataset.options.AUTO_ROW = autoRow;
    ApplyRowCount(dataset);
    return dataset;
}

TEST(GridClipboard, PastesATable) {
    Dataset dataset = Empty(2, false, true);
    // A text takes its place and stays out; CR is dropped inside a number too; what is after column 7 falls
    // on it.
    const PasteResult result =
        Paste(dataset, "1,.5;-5\tabc,1\r2\r\n\n1,2,3,4,5,6,7,8\n , 1e3", {2, ColumnSDY});
    EXPECT_EQ(CopyAsTable(dataset.cells), "1\t0.5\t-5\t\t12\t\t\r\n\t\t\t\t\t\t\r\n1\t2\t3\t4\t5\t6\t8\r\n"
                                          "\t1000\t\t\t\t\t\r\n");
    EXPECT_EQ(dataset.options.N, "4");
    EXPECT_EQ(result.stored, 13u);
    EXPECT_EQ(result.notNumbers, 1u);
    EXPECT_TRUE(std::holds_alternative<double>(dataset.cells.At(ColumnX, 1)));
    EXPECT_EQ(Paste(dataset, "9", {1, ColumnRankX}).stored, 0u);

    Dataset full = Empty(2, false, false);
    EXPECT_EQ(Paste(full, "1\n2\n3,4\n", {}).withoutRoom, 2u);
    EXPECT_EQ(full.cells.RowCount(), 2);
}

TEST(GridClipboard, PastesAColumnFromTheCurrentCell) {
    Dataset dataset = Empty(3, true, true);
    Paste(dataset, "1\r\n\r\nx\r\n2,3\r\n", {2, ColumnY});
    EXPECT_EQ(CopyText(dataset.cells).substr(0, 20), "Error 13, Error 13, ");
    EXPECT_EQ(dataset.cells.RowCount(), 4); // values go down one by one and leave no row after them
    EXPECT_EQ(CellText(dataset.cells.At(ColumnY, 4)), "3");
    Dataset closed = Empty(3, true, false);
    EXPECT_EQ(Paste(closed, "1\n2\n3\n", {2, ColumnY}).withoutRoom, 1u);
}

TEST(GridClipboard, CopiesInTheOddFormAndAsATable) {
    Dataset dataset = Empty(2, true, false);
    const CellView first[] = {1.5, "7", "-2.25", "", "abc", 10.0, "Yes"};
    for (int column = ColumnX; column <= LastColumn; ++column)
        dataset.cells.Set(column, 1, first[column - 1]);
    dataset.cells.Set(ColumnX, 2, std::string_view("two\tparts \"quoted\""));
    EXPECT_EQ(CopyText(dataset.cells), "01.5, 7, 0-2.25, Error 13, Error 13, 010, Yes\r\n"
                                       "Error 13, Error 13, Error 13, Error 13, Error 13, Error 13, \r\n");
    EXPECT_EQ(CopyAsTable(dataset.cells),
              "1.5\t7\t-2.25\t\tabc\t10\tYes\r\n\"two\tparts \"\"quoted\"\"\"\t\t\t\t\t\t\r\n");

    Dataset numbers = Empty(3, false, true), again = Empty(2, false, true);
    Paste(numbers, "0.1\t1e-300\t-123456789.125\t4\n\n1e300\t\t5", {});
    Paste(again, CopyAsTable(numbers.cells), {});
    EXPECT_EQ(CopyAsTable(again.cells), CopyAsTable(numbers.cells));
}

TEST(GridClipboard, HugeTextsAreBounded) {
    std::string rows, binary(1 << 22, '\0'), wide(1 << 20, '\t');
    for (int row = 0; row < 1'000'000; ++row)
        rows += "1.5\t2.5\n";
    Dataset dataset = Empty(2, false, true);
    EXPECT_EQ(Paste(dataset, rows, {}).stored, 2'000'000u);
    EXPECT_EQ(dataset.cells.RowCount(), 1'000'000);
    const std::string before = CopyAsTable(dataset.cells);
    for (std::size_t i = 0; i < binary.size(); ++i)
        binary[i] = static_cast<char>((i * 2654435761u) >> 13 | 0x80);
    EXPECT_EQ(Paste(dataset, binary, {}).stored, 0u);
    EXPECT_EQ(Paste(dataset, wide + "x", {}).stored, 0u);
    EXPECT_TRUE(before == CopyAsTable(dataset.cells));
}

TEST(GridEditor, TakesAndDropsValues) {
    Dataset dataset = Empty(2, true, false);
    dataset.cells.Set(ColumnX, 1, 0.123456789);
    GridEditor editor;
    MSHFlexGridEdit(dataset, editor, U' ');
    EXPECT_EQ(editor.text, "0.123456789");
    editor.text = "about 2";
    EditKeyCode(dataset, editor, KeyEscape);
    EXPECT_EQ(CellText(dataset.cells.At(ColumnX, 1)), "0.123456789");
    MSHFlexGridEdit(dataset, editor, U'5');
    EXPECT_EQ(editor.caret, 1u);
    EditKeyCode(dataset, editor, KeyEscape); // too late: the key has replaced the value
    EXPECT_EQ(CellText(dataset.cells.At(ColumnX, 1)), "5");
    MSHFlexGridEdit(dataset, editor, U'7');
    editor.text += ".5 m";
    for (const int key : {KeyEnter, KeyDown})
        EditKeyCode(dataset, editor, key);
    EXPECT_EQ(CellText(dataset.cells.At(ColumnX, 1)), "7.5 m");
    EXPECT_EQ(editor.current.row, 2); // the last one
    for (int up = 0; up < 3; ++up)
        EditKeyCode(dataset, editor, KeyUp);
    EXPECT_EQ(editor.current.row, 1);
    EXPECT_EQ(Fgi(2, 3), 19);
    EXPECT_THROW(Fgi(4096, 0), RunFailure);
}

} // namespace
} // namespace corvane
