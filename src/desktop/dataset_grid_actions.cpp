#include "desktop/dataset_grid_actions.h"

#include "desktop/dataset_grid.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>

namespace corvane {

DatasetGridActions::DatasetGridActions(Document& editedDocument, DatasetGrid& editedGrid)
    : QObject(&editedGrid), document(editedDocument), grid(editedGrid) {
    MakeClipboardActions();
    MakeCellActions();
    MakeTableActions();
    connect(&grid, &DatasetGrid::columnMenuRequested, this, &DatasetGridActions::OpenColumnMenu);
}

QAction* DatasetGridActions::Add(const QString& caption, const QKeySequence& keys,
                                 const std::function<void()>& work) {
    auto* action = new QAction(caption, this);
    action->setShortcut(keys);
    // In the editor of a cell the text box has its own keys.
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, [this, work] {
        grid.FinishEditing();
        work();
    });
    grid.addAction(action);
    return action;
}

void DatasetGridActions::MakeClipboardActions() {
    cut = Add(tr("Cut"), QKeySequence("Ctrl+X"), [this] {
        CopyTable();
        CutCells(document, grid.Selection());
    });
    copy = Add(tr("Copy to clipboard"), QKeySequence("Ctrl+C"), [this] { Copy(); });
    paste = Add(tr("Paste from clipboard"), QKeySequence("Ctrl+V"), [this] { Paste(); });
    copyAsTable = Add(tr("Copy as a table"), QKeySequence("Ctrl+Shift+C"), [this] { CopyTable(); });
    pasteAsTable =
        Add(tr("Paste as table..."), QKeySequence("Ctrl+Shift+V"), [this] { emit pasteAsTableRequested(); });
}

void DatasetGridActions::MakeCellActions() {
    clearCells =
        Add(tr("Clear cells"), QKeySequence("Del"), [this] { ClearCells(document, grid.Selection()); });
    fillDown = Add(tr("Fill down"), QKeySequence("Ctrl+D"), [this] { FillDown(document, grid.Selection()); });
    exclude = Add(tr("Exclude or include rows"), QKeySequence("Ctrl+E"), [this] { grid.ToggleExcluded(); });
    goToRow = Add(tr("Go to row..."), QKeySequence("Ctrl+G"), [this] { emit goToRowRequested(); });
    nextUnreadable =
        Add(tr("Next unreadable cell"), QKeySequence("F8"), [this] { grid.GoToUnreadable(true); });
    lastUnreadable =
        Add(tr("Previous unreadable cell"), QKeySequence("Shift+F8"), [this] { grid.GoToUnreadable(false); });
}

void DatasetGridActions::MakeTableActions() {
    sortAscending = Add(tr("Sort rows, smallest first"), {},
                        [this] { SortRows(document, grid.CurrentPlace().column, false); });
    sortDescending = Add(tr("Sort rows, largest first"), {},
                         [this] { SortRows(document, grid.CurrentPlace().column, true); });
    removeInvalidRows =
        Add(tr("Remove invalid rows"), {}, [this] { SayRowCount(RemoveInvalidRows(document)); });
    swap = Add(tr("Swap X to Y"), {}, [this] { SwapXToY(document, !IsSet(document.Data().options.SwapXY)); });
    clear = Add(tr("Clear"), {}, [this] { AskToClear(); });
}

void DatasetGridActions::OpenColumnMenu(int column, const QPoint& globalPosition) {
    grid.FinishEditing();
    grid.SetCurrent({grid.CurrentPlace().row, column});
    grid.selectColumn(column - 1);
    auto* menu = new QMenu(&grid);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions({sortAscending, sortDescending, copyAsTable, clearCells});
    menu->popup(globalPosition);
}

void DatasetGridActions::Copy() {
    const DataMatrix& cells = document.Data().cells;
    QGuiApplication::clipboard()->setText(QString::fromStdString(CopyText(cells)));
    grid.Say(tr("The whole table was copied, %1 rows.").arg(cells.RowCount()));
}

void DatasetGridActions::CopyTable() {
    const std::vector<GridRange> selection = grid.Selection();
    QGuiApplication::clipboard()->setText(
        QString::fromStdString(CopySelection(document.Data().cells, selection)));
    std::int32_t rows = 0;
    for (const RowStripe& stripe : StripesOf(selection))
        rows += stripe.Rows();
    grid.Say(rows == 1 ? tr("1 row was copied.") : tr("%1 rows were copied.").arg(rows));
}

void DatasetGridActions::Paste() {
    if (pasting)
        return grid.Say(tr("The last paste is not done yet."));
    const GridPlace start = grid.CurrentPlace();
    if (start.column >= ColumnRankX)
        return grid.Say(tr("Nothing was pasted: the current cell is not in the columns of X and Y."));
    auto text = std::make_shared<const std::string>(QGuiApplication::clipboard()->text().toStdString());
    if (text->empty())
        return grid.Say(tr("Nothing was pasted: the clipboard holds no text."));
    constexpr std::size_t longestAtOnce = 1 << 17; // bytes; a few milliseconds
    if (text->size() <= longestAtOnce)
        return FinishPaste(PasteNumbers(document.Data(), *text, start));
    pasting = true;
    grid.Say(tr("Pasting..."));
    PasteInBackground(std::move(text), start);
}

void DatasetGridActions::PasteInBackground(std::shared_ptr<const std::string> text, GridPlace start) {
    const std::uint64_t revision = document.DataRevision(), identity = document.Identity();
    worker = std::jthread([this, text, start, revision, identity, dataset = document.Data()]() mutable {
        auto result = std::make_shared<const PastedNumbers>(PasteNumbers(std::move(dataset), *text, start));
        const auto finish = [this, text, start, revision, identity, result] {
            pasting = document.Identity() == identity && document.DataRevision() != revision;
            if (pasting)
                PasteInBackground(text, start);
            else if (document.Identity() == identity)
                FinishPaste(*result);
            else
                grid.Say(tr("Nothing was pasted: another dataset was opened meanwhile."));
        };
        QMetaObject::invokeMethod(this, finish, Qt::QueuedConnection);
    });
}

void DatasetGridActions::FinishPaste(const PastedNumbers& result) {
    TakePasted(document, result);
    emit pasted(PasteText(result), result.result);
}

QString DatasetGridActions::PasteText(const PastedNumbers& pastedNumbers) const {
    const auto count = [](std::size_t number, const QString& one, const QString& many) {
        return number == 1 ? one : many.arg(number);
    };
    const PasteResult& result = pastedNumbers.result;
    QString text = tr("%1 from %2")
                       .arg(count(result.stored, tr("1 value"), tr("%1 values")),
                            count(pastedNumbers.lines, tr("1 line"), tr("%1 lines")));
    QStringList details;
    if (result.notNumbers > 0)
        details << count(result.notNumbers, tr("1 text was dropped"), tr("%1 texts were dropped"));
    if (result.withoutRoom > 0)
        details << count(result.withoutRoom, tr("1 value had no row"), tr("%1 values had no row"));
    if (pastedNumbers.commas > 0)
        details << count(pastedNumbers.commas, tr("1 comma taken as a separator"),
                         tr("%1 commas taken as separators"));
    if (!details.isEmpty())
        text += "; " + details.join(", ");
    return text + ".";
}

void DatasetGridActions::ApplyNumberOfRows(const QString& text) {
    grid.FinishEditing();
    const RowCountResult result = corvane::ApplyNumberOfRows(document, text.toStdString());
    SayRowCount(result);
    if (result == RowCountResult::Applied)
        grid.SetCurrent({});
}

void DatasetGridActions::SayRowCount(RowCountResult result) {
    if (result == RowCountResult::TooFew)
        ShowMessage(tr(TooFewRowsMessage));
    else if (result == RowCountResult::TooLarge)
        ShowMessage(tr("There cannot be so many rows."));
}

void DatasetGridActions::ShowMessage(const QString& text) {
    auto* box = new QMessageBox(QMessageBox::Information, {}, text, QMessageBox::Ok, grid.window());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void DatasetGridActions::AskToClear() {
    auto* box = new QMessageBox(QMessageBox::Question, {}, tr(ClearQuestion),
                                QMessageBox::Yes | QMessageBox::No, grid.window());
    box->setInformativeText(
        tr("Yes empties all cells and the notes, and the dataset has no file any more; Ctrl+Z "
           "brings them back. No changes nothing."));
    box->setDefaultButton(QMessageBox::No);
    box->setEscapeButton(QMessageBox::No);
    box->setAttribute(Qt::WA_DeleteOnClose);
    connect(box, &QMessageBox::buttonClicked, this, [this, box](QAbstractButton* button) {
        if (box->standardButton(button) != QMessageBox::Yes)
            return;
        ClearDataset(document);
        emit cleared();
    });
    box->open();
}

} // namespace corvane
