#include "desktop/grid_header.h"

#include <QAbstractButton>
#include <QEvent>
#include <QPainter>
#include <QStyleOptionHeader>
#include <QTableView>

namespace corvane {

GridHeader::GridHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(true);
    setHighlightSections(false);
    setSectionResizeMode(QHeaderView::Interactive);
    setContextMenuPolicy(Qt::CustomContextMenu);
}

void GridHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const {
    option->text = model()->headerData(logicalIndex, orientation()).toString();
    option->textAlignment = Qt::AlignCenter;
    option->section = logicalIndex;
    const int place = visualIndex(logicalIndex);
    option->position = place == 0             ? QStyleOptionHeader::Beginning
                       : place == count() - 1 ? QStyleOptionHeader::End
                                              : QStyleOptionHeader::Middle;
    option->sortIndicator = QStyleOptionHeader::None;
}

CornerCaption::CornerCaption(QTableView& table) : QObject(&table) {
    auto* corner = table.findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
    if (!corner)
        return;
    corner->setAccessibleName(tr("Select all"));
    corner->setToolTip(tr("Select all"));
    corner->installEventFilter(this);
}

bool CornerCaption::eventFilter(QObject* corner, QEvent* event) {
    if (event->type() != QEvent::Paint)
        return QObject::eventFilter(corner, event);
    auto* button = static_cast<QAbstractButton*>(corner);
    QStyleOptionHeader option;
    option.initFrom(button);
    option.text = "#";
    option.textAlignment = Qt::AlignRight | Qt::AlignVCenter;
    option.position = QStyleOptionHeader::OnlyOneSection;
    QPainter painter(button);
    button->style()->drawControl(QStyle::CE_Header, &option, &painter, button);
    return true;
}

} // namespace corvane
