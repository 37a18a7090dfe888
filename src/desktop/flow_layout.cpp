#include "desktop/flow_layout.h"

#include "desktop/measures.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace corvane {

FlowLayout::FlowLayout(QWidget* parent) : QLayout(parent) {
    setContentsMargins(0, 0, 0, 0);
    setSpacing(Scaled(betweenControls));
}

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem* item) {
    items.emplace_back(item);
}

QLayoutItem* FlowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem* item = items[static_cast<std::size_t>(index)].release();
    items.erase(items.begin() + index);
    return item;
}

int FlowLayout::heightForWidth(int width) const {
    return Arrange(QRect(0, 0, width, 0), false);
}

QSize FlowLayout::sizeHint() const {
    int width = 0, height = 0;
    for (const auto& item : items) {
        if (item->isEmpty())
            continue;
        width += item->sizeHint().width() + (width > 0 ? spacing() : 0);
        height = std::max(height, item->sizeHint().height());
    }
    const QMargins margins = contentsMargins();
    return {width + margins.left() + margins.right(), height + margins.top() + margins.bottom()};
}

QSize FlowLayout::minimumSize() const {
    QSize least;
    for (const auto& item : items)
        least = least.expandedTo(item->minimumSize());
    return least.grownBy(contentsMargins());
}

void FlowLayout::setGeometry(const QRect& place) {
    QLayout::setGeometry(place);
    Arrange(place, true);
}

int FlowLayout::Arrange(const QRect& place, bool move) const {
    const QRect room = place.marginsRemoved(contentsMargins());
    const Qt::LayoutDirection direction =
        parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    int x = room.left(), y = room.top(), lineHeight = 0;
    for (const auto& item : items) {
        if (item->isEmpty())
            continue;
        const QSize size(std::min(item->sizeHint().width(), room.width()), item->sizeHint().height());
        if (x > room.left() && x + size.width() > room.left() + room.width()) {
            x = room.left();
            y += lineHeight + spacing();
            lineHeight = 0;
        }
        if (move)
            item->setGeometry(QStyle::visualRect(direction, room, QRect(QPoint(x, y), size)));
        x += size.width() + spacing();
        lineHeight = std::max(lineHeight, size.height());
    }
    return y + lineHeight - place.top() + contentsMargins().bottom();
}

} // namespace corvane
