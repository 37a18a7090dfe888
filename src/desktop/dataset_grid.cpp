#include "desktop/dataset_grid.h"

#include "app/grid_actions.h"
#include "desktop/cell_editor.h"
#include "desktop/grid_header.h"

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

namespace corvane {
namespace {

constexpr int captionWidth = 96, numberWidth = 48; // px with a font of 10 pt

int Grown(int length, const QFont& font) {
    return qRound(length * std::max(1.0, QFontInfo(font).pointSizeF() / 10));
}

/// The files of a drag, on this machine.
QStringList FilesOf(const QMimeData& data) {
    QStringList paths;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            paths << url.toLocalFile();
    return paths;
}

} // namespace

DatasetGrid::DatasetGrid(Document& editedDocument, QWidget* parent)
    : QTableView(parent), document(editedDocument), edit(editedDocument),
      cells(new DatasetGridModel(editedDocument, this)), editor(new CellEditor(viewport(), this)) {
    setObjectName("FG2");
    setAccessibleName(tr("Dataset"));
    setModel(cells);
    setItemDelegate(editor);
    setEditTriggers(NoEditTriggers); // keyPressEvent knows the grid's own rules
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectItems);
    setWordWrap(false);
    setAcceptDrops(true);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    SetUpHeaders();
    FitToFont();
    SetCurrent({});
    connect(editor, &CellEditor::stored, this,
            [this](const QString& text) { edit.Take(text.toStdString()); });
    connect(editor, &CellEditor::dropped, this, &DatasetGrid::TellDropped);
    connect(editor, &CellEditor::leaving, this, &DatasetGrid::Step);
    connect(cells, &QAbstractItemModel::modelReset, this, [this] { SetCurrent({}); });
    connect(cells, &DatasetGridModel::restored, this, &DatasetGrid::ShowPlace);
}

void DatasetGrid::SetUpHeaders() {
    auto* captions = new GridHeader(this);
    setHorizontalHeader(captions);
    connect(captions, &QWidget::customContextMenuRequested, this, [this, captions](const QPoint& at) {
        const int column = captions->logicalIndexAt(at);
        if (column >= 0)
            emit columnMenuRequested(column + 1, captions->mapToGlobal(at));
    });
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setHighlightSections(false);
    new CornerCaption(*this);
}

void DatasetGrid::FitToFont() {
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    verticalHeader()->setMinimumWidth(Grown(numberWidth, font()));
    const int before = std::exchange(columnWidthByFont, Grown(captionWidth, font()));
    for (int column = 0; column < LastColumn; ++column)
        if (before == 0 || horizontalHeader()->sectionSize(column) == before) // not one that the user dragged
            horizontalHeader()->resizeSection(column, columnWidthByFont);
}

void DatasetGrid::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange && columnWidthByFont > 0)
        FitToFont();
}

GridPlace DatasetGrid::CurrentPlace() const {
    return currentIndex().isValid() ? DatasetGridModel::PlaceOf(currentIndex()) : GridPlace{};
}

std::vector<GridRange> DatasetGrid::Selection() const {
    std::vector<GridRange> ranges;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        ranges.push_back({range.top() + 1, range.bottom() + 1, range.left() + 1, range.right() + 1});
    if (ranges.empty() && currentIndex().isValid()) {
        const GridPlace at = CurrentPlace();
        ranges.push_back({at.row, at.row, at.column, at.column});
    }
    return ranges;
}

void DatasetGrid::SetCurrent(GridPlace place) {
    setCurrentIndex(cells->IndexOf({std::clamp(place.row, 1, std::max(1, cells->rowCount())),
                                    std::clamp(place.column, int(ColumnX), int(LastColumn))}));
}

void DatasetGrid::GoToRow(int row) {
    FinishEditing();
    SetCurrent({row, CurrentPlace().column});
}

void DatasetGrid::ShowPlace(const GridRange& place) {
    SetCurrent({place.firstRow, place.firstColumn});
    const QModelIndex last = cells->IndexOf({std::min(place.lastRow, cells->rowCount()), place.lastColumn});
    if (last.isValid() && cells->rowCount() >= place.firstRow)
        selectionModel()->select(QItemSelection(currentIndex(), last), QItemSelectionModel::ClearAndSelect);
}

void DatasetGrid::GoToUnreadable(bool forward) {
    FinishEditing();
    const auto place = cells->NextUnreadable(CurrentPlace(), forward);
    if (!place) {
        Say(tr("Every cell of the rows in use reads as a number."));
        return;
    }
    SetCurrent(*place);
    Say(cells->Reason(*place));
}

void DatasetGrid::FinishEditing() {
    if (state() == EditingState)
        editor->Finish();
}

void DatasetGrid::ToggleExcluded() {
    FinishEditing();
    const std::vector<GridRange> selection = Selection();
    if (!selection.empty())
        ExcludeRows(document, selection, !AllExcluded(document.Data().cells, selection));
}

void DatasetGrid::Edit(const QString& typed) {
    const QModelIndex at = currentIndex();
    if (!at.isValid())
        return;
    FinishEditing();
    scrollTo(at);
    edit.Begin(CurrentPlace(), typed.isEmpty() ? U' ' : static_cast<char32_t>(typed.toUcs4().front()));
    QTableView::edit(at);
    QLineEdit& box = editor->Box();
    if (!typed.isEmpty())
        box.setText(typed);
    box.end(false);
}

void DatasetGrid::Step(int rowStep, int columnStep) {
    GridPlace at = CurrentPlace();
    at.row += rowStep;
    at.column += columnStep;
    if (at.column > LastColumn && at.row < cells->rowCount())
        at = {at.row + 1, ColumnX};
    else if (at.column < ColumnX && at.row > 1)
        at = {at.row - 1, LastColumn};
    SetCurrent(at);
}

void DatasetGrid::TellDropped() {
    const auto replaced = edit.Drop();
    if (!replaced)
        return;
    const GridPlace at = edit.Editor().current;
    const QString where = QString::fromStdString(PlaceName(document.Data().options, at));
    const QString now = cells->IndexOf(at).data(Qt::EditRole).toString();
    const QString before = QString::fromStdString(Shortened(*replaced));
    Say(before.isEmpty() ? tr("%1 is \"%2\" now; Ctrl+Z empties it again.").arg(where, now)
                         : tr("%1 is \"%2\" now; Ctrl+Z brings back \"%3\".").arg(where, now, before));
}

void DatasetGrid::keyPressEvent(QKeyEvent* event) {
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (!currentIndex().isValid() || (event->modifiers() & commands) != 0)
        return QTableView::keyPressEvent(event);
    switch (event->key()) {
    case Qt::Key_Space:
        return CurrentPlace().column == ColumnExclude ? ToggleExcluded() : Edit();
    case Qt::Key_F2:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Backspace:
        return Edit();
    default:
        break;
    }
    const QString text = event->text();
    if (text.isEmpty() || !text.front().isPrint())
        return QTableView::keyPressEvent(event);
    Edit(text);
}

void DatasetGrid::inputMethodEvent(QInputMethodEvent* event) {
    if (state() == EditingState || event->commitString().isEmpty())
        return QTableView::inputMethodEvent(event);
    Edit(event->commitString());
    event->accept();
}

void DatasetGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && indexAt(event->pos()).isValid())
        Edit();
}

void DatasetGrid::focusInEvent(QFocusEvent* event) {
    if (!currentIndex().isValid() && cells->rowCount() > 0)
        SetCurrent({});
    QTableView::focusInEvent(event);
}

void DatasetGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    const auto cellsIn = [](const QItemSelection& ranges) {
        qint64 count = 0;
        for (const QItemSelectionRange& range : ranges)
            count += qint64(range.height()) * range.width();
        return count;
    };
    // For a screen reader the table's own way names every cell.
    if (cellsIn(selected) + cellsIn(deselected) > 10'000)
        QAbstractItemView::selectionChanged(selected, deselected);
    else
        QTableView::selectionChanged(selected, deselected);
}

void DatasetGrid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!dropTarget)
        return;
    QPainter painter(viewport());
    painter.setPen(QPen(palette().color(QPalette::Link), 2));
    painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
}

void DatasetGrid::ShowDropTarget(bool shown) {
    dropTarget = shown;
    viewport()->update();
    if (!shown)
        Say({});
}

void DatasetGrid::dragEnterEvent(QDragEnterEvent* event) {
    const QStringList paths = FilesOf(*event->mimeData());
    if (paths.isEmpty())
        return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    ShowDropTarget(true);
    Say(paths.size() == 1 ? tr("Drop to open the file.")
                          : tr("Drop to open the %1 files.").arg(paths.size()));
}

void DatasetGrid::dragMoveEvent(QDragMoveEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(dropTarget);
}

void DatasetGrid::dragLeaveEvent(QDragLeaveEvent* event) {
    ShowDropTarget(false);
    event->accept();
}

void DatasetGrid::dropEvent(QDropEvent* event) {
    ShowDropTarget(false);
    const QStringList paths = FilesOf(*event->mimeData());
    if (paths.isEmpty())
        return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    FinishEditing();
    emit filesDropped(paths);
}

} // namespace corvane
