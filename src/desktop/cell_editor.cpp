#include "desktop/cell_editor.h"

#include "core/cell_reading.h"
#include "desktop/dataset_grid_model.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>

namespace corvane {
namespace {

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < 128;
}

void PaintDots(QPainter& painter, const QStyleOptionViewItem& option) {
    const QColor red = IsDark(option.palette) ? QColor(0xff, 0x9d, 0x94) : QColor(0xb3, 0x26, 0x1e);
    // Round dots, 2 px wide and 4 px apart.
    QPen pen(red, 2, Qt::CustomDashLine, Qt::RoundCap);
    pen.setDashPattern({0.01, 2});
    painter.setPen(pen);
    const QRect cell = option.rect;
    const int text = std::min(option.fontMetrics.horizontalAdvance(option.text), cell.width() - 12);
    const int width = option.text.isEmpty() ? cell.width() - 12 : text;
    const int right = cell.right() - 3, y = cell.bottom() - 1; // below commas and descenders
    painter.drawLine(right - width, y, right, y);
}

void PaintRing(QPainter& painter, const QStyleOptionViewItem& option) {
    const bool focused = option.state & QStyle::State_HasFocus;
    const QColor colour = option.palette.color(focused ? QPalette::Link : QPalette::Dark);
    const int width = focused ? 2 : 1;
    const QRect cell = option.rect;
    QPainterPath ring;
    ring.setFillRule(Qt::OddEvenFill);
    ring.addRect(cell);
    ring.addRect(cell.adjusted(width, width, -width, -width));
    painter.fillPath(ring, colour);
}

} // namespace

CellEditor::CellEditor(QWidget* viewport, QObject* parent)
    : QStyledItemDelegate(parent), box(new QLineEdit(viewport)) {
    box->setObjectName("TxtEdit");
    box->setAccessibleName(tr("Cell"));
    box->setFrame(false);
    box->setAutoFillBackground(true);
    box->hide();
}

QWidget* CellEditor::createEditor(QWidget*, const QStyleOptionViewItem&, const QModelIndex& index) const {
    const QAbstractItemModel& model = *index.model();
    box->setAccessibleName(tr("%1, row %2")
                               .arg(model.headerData(index.column(), Qt::Horizontal).toString())
                               .arg(index.row() + 1));
    box->setAlignment(index.data(Qt::TextAlignmentRole).value<Qt::Alignment>());
    return box;
}

void CellEditor::destroyEditor(QWidget* editor, const QModelIndex&) const {
    editor->hide(); // it edits the next cell
}

void CellEditor::setEditorData(QWidget*, const QModelIndex& index) const {
    // A change of the table meanwhile leaves alone what the user is typing.
    if (!box->isVisible())
        box->setText(index.data(Qt::EditRole).toString());
}

void CellEditor::setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const {
    emit stored(box->text());
}

void CellEditor::updateEditorGeometry(QWidget*, const QStyleOptionViewItem& option,
                                      const QModelIndex&) const {
    box->setGeometry(option.rect.adjusted(2, 2, -2, -2)); // the ring and the lines of the grid stay
}

bool CellEditor::eventFilter(QObject* editor, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        switch (key->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Down:
            Leave(1, 0);
            return true;
        case Qt::Key_Up:
            Leave(-1, 0);
            return true;
        case Qt::Key_Tab:
            Leave(0, 1);
            return true;
        case Qt::Key_Backtab:
            Leave(0, -1);
            return true;
        case Qt::Key_Escape:
            emit closeEditor(box, RevertModelCache);
            emit dropped();
            return true;
        default:
            return false; // the box has it
        }
    }
    return QStyledItemDelegate::eventFilter(editor, event);
}

void CellEditor::Finish() {
    emit commitData(box);
    emit closeEditor(box, NoHint);
}

void CellEditor::Leave(int rowStep, int columnStep) {
    Finish();
    emit leaving(rowStep, columnStep);
}

void CellEditor::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(DatasetGridModel::ExcludedRole).toBool()) {
        const QColor quiet = QApplication::palette().color(QPalette::Disabled, QPalette::Text);
        option->palette.setColor(QPalette::Text, quiet);
        option->palette.setColor(QPalette::HighlightedText, quiet);
    }
}

void CellEditor::paint(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
    QStyleOptionViewItem shown = option;
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    const bool current = view && view->currentIndex() == index;
    shown.state &= ~QStyle::State_HasFocus; // the ring is its sign
    QStyledItemDelegate::paint(painter, shown, index);
    const auto reading = static_cast<CellReading>(index.data(DatasetGridModel::ReadingRole).toInt());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    shown = option;
    initStyleOption(&shown, index);
    if (IsUnreadable(reading))
        PaintDots(*painter, shown);
    painter->setRenderHint(QPainter::Antialiasing, false);
    if (current)
        PaintRing(*painter, shown);
    painter->restore();
}

} // namespace corvane
