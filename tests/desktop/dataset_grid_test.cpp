#include "desktop/dataset_grid.h"

#include "charts/qt_environment.h"
#include "core/format/numbers.h"
#include "desktop/dataset_grid_actions.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace corvane {
namespace {

/// A window that holds a grid and nothing else, driven by keys.
class DatasetGridTest : public testing::Test {
protected:
    static void SetUpTestSuite() { ASSERT_EQ(PrepareQt(), ""); }

    void SetUp() override {
        Fill({{"1", "2"}, {"3", "12.5"}, {"5", "6"}});
        window.emplace();
        grid = new DatasetGrid(document, &*window);
        actions = new DatasetGridActions(document, *grid);
        QObject::connect(grid, &DatasetGrid::statusText, grid,
                         [this](const QString& text) { status = text; });
        grid->resize(900, 500);
        window->resize(900, 500);
        window->show();
        grid->setFocus();
        QCoreApplication::processEvents();
    }

    void Fill(const std::vector<std::pair<std::string_view, std::string_view>>& rows) {
        document.Load([&](Dataset& dataset, SessionState&) {
            dataset.cells.Clear();
            for (std::size_t row = 0; row < rows.size(); ++row) {
                dataset.cells.Set(ColumnX, static_cast<std::int32_t>(row + 1), rows[row].first);
                dataset.cells.Set(ColumnY, static_cast<std::int32_t>(row + 1), rows[row].second);
            }
        });
    }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void Type(const char* text) { // a widget at a time: the first key opens the editor
        for (; *text; ++text)
            QTest::keyClick(QApplication::focusWidget(), *text);
    }
    void Go(std::int32_t row, int column) { grid->SetCurrent({row, column}); }
    void Select(std::int32_t row, int column, std::int32_t lastRow, int lastColumn) {
        grid->ShowPlace({row, lastRow, column, lastColumn});
    }
    std::string Cell(std::int32_t row, int column) { return CellText(document.Data().cells.At(column, row)); }
    QVariant Shown(std::int32_t row, int column, int role = Qt::DisplayRole) {
        return grid->Cells().data(grid->Cells().IndexOf({row, column}), role);
    }
    QLineEdit* Editor() { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); }
    std::pair<int, int> Current() { return {grid->CurrentPlace().row, grid->CurrentPlace().column}; }
    QString Clipboard() { return QGuiApplication::clipboard()->text(); }
    std::string UndoName() { return std::string(document.UndoName()); }

    Document document;
    std::optional<QWidget> window;
    DatasetGrid* grid = nullptr;
    DatasetGridActions* actions = nullptr;
    QString status;
};

using At = std::pair<int, int>;

TEST_F(DatasetGridTest, TypingReplacesAtOnce) {
    Go(2, ColumnY);
    Type("7");
    ASSERT_TRUE(Editor());
    EXPECT_EQ(Editor()->objectName(), "TxtEdit");
    EXPECT_EQ(Editor()->accessibleName(), "Y (Obs), row 2");
    EXPECT_EQ(Cell(2, ColumnY), "7"); // before the editor is left
    Type(".25");
    EXPECT_EQ(Editor()->text(), "7.25");
    EXPECT_EQ(Cell(2, ColumnY), "7");
    Press(Qt::Key_Return);
    EXPECT_EQ(Cell(2, ColumnY), "7.25");
    EXPECT_EQ(Current(), (At{3, ColumnY}));
    EXPECT_EQ(QApplication::focusWidget(), grid);
    EXPECT_EQ(UndoName(), "Type 7.25 in Y (Obs), row 2");

    Type("8");
    Type("9");
    Press(Qt::Key_Escape);
    EXPECT_EQ(Cell(3, ColumnY), "8"); // the first character has replaced the value for good
    EXPECT_EQ(status, "Y (Obs), row 3 is \"8\" now; Ctrl+Z brings back \"6\".");
    EXPECT_EQ(QApplication::focusWidget(), grid);
    Go(1, ColumnX);
    document.Undo();
    EXPECT_EQ(Cell(3, ColumnY), "6");
    EXPECT_EQ(Current(), (At{3, ColumnY})); // an undo shows its place
    document.Undo();
    EXPECT_EQ(Cell(2, ColumnY), "12.5");
    EXPECT_FALSE(document.CanUndo());
}

TEST_F(DatasetGridTest, KeysOpenTheEditorOnTheValueAndLeaveIt) {
    for (const auto key : {Qt::Key_F2, Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Backspace}) {
        Go(2, ColumnY);
        Press(key);
        ASSERT_TRUE(Editor()) << key;
        EXPECT_EQ(Editor()->text(), "12.5");
        EXPECT_EQ(Editor()->cursorPosition(), 4);
        EXPECT_FALSE(Editor()->hasSelectedText());
        Press(Qt::Key_Escape);
        EXPECT_EQ(Cell(2, ColumnY), "12.5");
    }
    EXPECT_FALSE(document.CanUndo());
    const auto leave = [&](GridPlace from, Qt::Key key) {
        Go(from.row, from.column);
        Press(Qt::Key_F2);
        Type("0");
        Press(key);
        EXPECT_EQ(QApplication::focusWidget(), grid);
        EXPECT_EQ(Cell(from.row, from.column).back(), '0');
        return Current();
    };
    EXPECT_EQ(leave({2, ColumnY}, Qt::Key_Down), (At{3, ColumnY}));
    EXPECT_EQ(leave({2, ColumnY}, Qt::Key_Up), (At{1, ColumnY}));
    EXPECT_EQ(leave({1, ColumnY}, Qt::Key_Up), (At{1, ColumnY}));
    EXPECT_EQ(leave({2, ColumnY}, Qt::Key_Tab), (At{2, ColumnSDY}));
    EXPECT_EQ(leave({2, ColumnY}, Qt::Key_Backtab), (At{2, ColumnSDX}));
    EXPECT_EQ(leave({2, ColumnExclude}, Qt::Key_Tab), (At{3, ColumnX}));
    EXPECT_EQ(leave({19, ColumnX}, Qt::Key_Return), (At{19, ColumnX})); // no row comes by typing
    EXPECT_EQ(document.Data().cells.RowCount(), 19);

    const QRect cell = grid->visualRect(grid->Cells().IndexOf({3, ColumnX}));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
    ASSERT_TRUE(Editor());
    Type("5");
    // What stands in the editor is stored when another cell is clicked.
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell.center() - QPoint(0, cell.height()));
    EXPECT_EQ(Cell(3, ColumnX), "55");
    EXPECT_FALSE(Editor());
}

TEST_F(DatasetGridTest, ExcludesAndMarksRows) {
    Select(1, ColumnExclude, 2, ColumnExclude);
    Press(Qt::Key_Space);
    EXPECT_EQ(Cell(1, ColumnExclude) + Cell(2, ColumnExclude), "YY");
    EXPECT_EQ(UndoName(), "Exclude 2 rows");
    EXPECT_TRUE(Shown(1, ColumnX, DatasetGridModel::ExcludedRole).toBool());
    const auto number = [&](int row) {
        return grid->Cells().headerData(row - 1, Qt::Vertical, Qt::FontRole).value<QFont>().strikeOut();
    };
    EXPECT_TRUE(number(1) && !number(3));
    EXPECT_EQ(Shown(1, ColumnX, Qt::AccessibleTextRole).toString(), "1.0000, excluded");
    Press(Qt::Key_Space);
    EXPECT_EQ(Cell(1, ColumnExclude), "");
    Select(2, ColumnX, 3, ColumnY);
    Press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(Cell(3, ColumnExclude), "Y");
    EXPECT_EQ(grid->Cells().Counts(), (RowCounts{1, 2, 0}));
}

TEST_F(DatasetGridTest, PointsOutWhatCountsAsZero) {
    Fill({{"1", "2"}, {"3", ""}, {"x", "6"}, {"", "9"}});
    QCoreApplication::processEvents();
    EXPECT_EQ(grid->Cells().Counts(), (RowCounts{3, 0, 2}));
    EXPECT_EQ(Shown(2, ColumnY, Qt::ToolTipRole).toString(), "row 2: Y (Obs) is empty and counts as 0");
    EXPECT_EQ(Shown(3, ColumnX, Qt::AccessibleTextRole).toString(),
              "x, row 3: \"x\" in X (Pred) is not a number and counts as 0");
    EXPECT_EQ(Shown(4, ColumnX, Qt::ToolTipRole).toString(),
              "row 4: X (Pred) is empty, so the row is not used");
    EXPECT_FALSE(Shown(1, ColumnX, Qt::ToolTipRole).isValid());
    Go(1, ColumnX);
    Press(Qt::Key_F8);
    EXPECT_EQ(Current(), (At{2, ColumnY}));
    EXPECT_EQ(status, "row 2: Y (Obs) is empty and counts as 0");
    Press(Qt::Key_F8);
    EXPECT_EQ(Current(), (At{3, ColumnX}));
    Press(Qt::Key_F8, Qt::ShiftModifier);
    EXPECT_EQ(Current(), (At{2, ColumnY}));

    // The dots are there in the colour of what cannot be read, and only there.
    const auto reds = [&](GridPlace place) {
        const QImage image = grid->viewport()->grab(grid->visualRect(grid->Cells().IndexOf(place))).toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y).red() > image.pixelColor(x, y).blue() + 60 ? 1 : 0;
        return count;
    };
    EXPECT_GT(reds({2, ColumnY}), 20);
    EXPECT_EQ(reds({1, ColumnY}), 0);
}

TEST_F(DatasetGridTest, CopiesAndPastesByTheRules) {
    Select(2, ColumnX, 3, ColumnY);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard().section("\r\n", 1, 1), "3, Error 13, 012.5, Error 13, Error 13, Error 13, ");
    Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Clipboard(), "3\t\t12.5\r\n5\t\t6\r\n");
    EXPECT_EQ(status, "2 rows were copied.");

    QSignalSpy pasted(actions, &DatasetGridActions::pasted);
    QGuiApplication::clipboard()->setText("1,5\r\nx\r\n8\r\n");
    Go(19, ColumnY);
    Press(Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(pasted.size(), 1);
    EXPECT_EQ(pasted[0][0].toString(),
              "3 values from 3 lines; 1 text was dropped, 1 comma taken as a separator.");
    EXPECT_EQ(Cell(19, ColumnY) + Cell(20, ColumnY) + Cell(21, ColumnY), "158");
    EXPECT_EQ(grid->Cells().rowCount(), 21);
    EXPECT_EQ(Current(), (At{19, ColumnY}));
    EXPECT_EQ(UndoName(), "Paste 3 values");
    document.Undo();
    EXPECT_EQ(grid->Cells().rowCount(), 19);

    Go(1, ColumnRankX);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(document.CanUndo());
    EXPECT_TRUE(status.startsWith("Nothing was pasted"));

    // In the editor the keys are the text box's own.
    Go(1, ColumnX);
    Press(Qt::Key_F2);
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), "1");
    Press(Qt::Key_V, Qt::ControlModifier);
    Press(Qt::Key_V, Qt::ControlModifier);
    Press(Qt::Key_Return);
    EXPECT_EQ(Cell(1, ColumnX), "11");
}

TEST_F(DatasetGridTest, LongPastesRunBesideTheEditing) {
    std::string text;
    for (int row = 1; row <= 60'000; ++row)
        text += NumberText(row + 0.5) + "\n";
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    QSignalSpy pasted(actions, &DatasetGridActions::pasted);
    Go(4, ColumnX);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(pasted.size(), 0);
    Go(1, ColumnY);
    Type("4");
    Press(Qt::Key_Return); // changes the cells under the paste, which begins again
    Type("5");
    Type("7");
    ASSERT_TRUE(pasted.wait(30'000));
    ASSERT_TRUE(Editor()); // and leaves alone what is being typed
    EXPECT_EQ(Editor()->text(), "57");
    Press(Qt::Key_Return);
    EXPECT_EQ(Cell(1, ColumnY) + Cell(2, ColumnY), "457");
    EXPECT_EQ(Cell(60'003, ColumnX), "60000.5");
    EXPECT_EQ(grid->Cells().rowCount(), 60'003);
}

TEST_F(DatasetGridTest, EditsRangesWithKeys) {
    Select(1, ColumnX, 3, ColumnX);
    Press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(Cell(3, ColumnX), "1");
    Press(Qt::Key_Delete);
    EXPECT_EQ(Cell(1, ColumnX) + Cell(3, ColumnX), "");
    EXPECT_EQ(UndoName(), "Clear 3 cells");
    Go(2, ColumnY);
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), "12.5\r\n");
    EXPECT_EQ(Cell(2, ColumnY), "");
    QSignalSpy goTo(actions, &DatasetGridActions::goToRowRequested);
    QSignalSpy asTable(actions, &DatasetGridActions::pasteAsTableRequested);
    Press(Qt::Key_G, Qt::ControlModifier);
    Press(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(goTo.size() + asTable.size(), 2);
    grid->GoToRow(17);
    EXPECT_EQ(Current(), (At{17, ColumnY}));
}

TEST_F(DatasetGridTest, ShowsFormatsAndCaptions) {
    EXPECT_EQ(Shown(2, ColumnY).toString(), "12.5000"); // under "##.#000"
    document.SetOption(OptionOf(&AnalysisOptions::GRID_FORMAT_XY), std::string("0.000"));
    EXPECT_EQ(Shown(2, ColumnY).toString(), "12.500");
    EXPECT_EQ(Shown(2, ColumnY, Qt::EditRole).toString(), "12.5");
    const auto captions = [&] {
        QStringList all;
        for (int column = 0; column < 7; ++column)
            all << grid->Cells().headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        return all.join("|");
    };
    EXPECT_EQ(captions(), "X (Pred)|SD X|Y (Obs)|SD Y|Rank X|Rank Y|Exclude");
    actions->swap->trigger();
    EXPECT_EQ(captions(), "X (Obs)|SD X|Y (Pred)|SD Y|Rank X|Rank Y|Exclude");
    EXPECT_EQ(Shown(1, ColumnX).toString(), "2.000");
    EXPECT_EQ(grid->horizontalHeader()->sectionSize(0), 96);
    EXPECT_GE(grid->verticalHeader()->width(), 48);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(grid);
    ASSERT_TRUE(interface);
    EXPECT_EQ(interface->text(QAccessible::Name), "Dataset");
    EXPECT_EQ(interface->role(), QAccessible::Table);
}

TEST_F(DatasetGridTest, AsksBeforeItClearsAndRefusesTooFewRows) {
    const auto answer = [&](QMessageBox::StandardButton button) {
        auto* box = window->findChild<QMessageBox*>();
        ASSERT_TRUE(box);
        box->button(button)->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    actions->clear->trigger();
    EXPECT_EQ(window->findChild<QMessageBox*>()->text(), "Do you want clear the dataset?");
    answer(QMessageBox::No);
    EXPECT_EQ(Cell(1, ColumnX), "1");
    actions->clear->trigger();
    answer(QMessageBox::Yes);
    EXPECT_EQ(document.Data().cells.LastFilledRow(), 0);
    document.Undo();
    EXPECT_EQ(Cell(1, ColumnX), "1");
    actions->ApplyNumberOfRows("1");
    EXPECT_EQ(window->findChild<QMessageBox*>()->text(), TooFewRowsMessage);
    answer(QMessageBox::Ok);
    actions->ApplyNumberOfRows("2");
    EXPECT_EQ(grid->Cells().rowCount(), 2);
}

TEST_F(DatasetGridTest, TakesFilesThatAreDropped) {
    QSignalSpy dropped(grid, &DatasetGrid::filesDropped);
    QMimeData files, words;
    files.setUrls(
        {QUrl::fromLocalFile("/d/oak.KOV"), QUrl("https://example.org/x"), QUrl::fromLocalFile("/d/b.csv")});
    words.setText("1 2 3");
    for (const QMimeData* data : {&words, &files}) {
        QDragEnterEvent enter({50, 50}, Qt::CopyAction | Qt::MoveAction, data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(grid->viewport(), &enter);
        EXPECT_EQ(enter.isAccepted(), data == &files);
        if (!enter.isAccepted())
            continue;
        EXPECT_EQ(enter.dropAction(), Qt::CopyAction);
        EXPECT_EQ(status, "Drop to open the 2 files.");
        QDropEvent drop({50, 50}, Qt::CopyAction, data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(grid->viewport(), &drop);
    }
    ASSERT_EQ(dropped.size(), 1);
    EXPECT_EQ(dropped[0][0].toStringList(), QStringList({"/d/oak.KOV", "/d/b.csv"}));
}

} // namespace
} // namespace corvane
