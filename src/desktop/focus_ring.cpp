#include "desktop/focus_ring.h"

#include "desktop/control_style.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFocusFrame>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>

namespace corvane {
namespace {

/// Whether a control shows by itself that it has the focus.
bool ShowsItself(const QWidget& widget) {
    if (widget.isWindow() || qobject_cast<const QMenu*>(&widget) || qobject_cast<const QMenuBar*>(&widget) ||
        qobject_cast<const QTabBar*>(&widget) || IsAccent(&widget))
        return true;
    const auto* view = qobject_cast<const QAbstractItemView*>(&widget);
    return view && view->currentIndex().isValid();
}

/// The editor of a cell fills it, and the cell's own edge is the frame.
bool EditsACell(const QWidget& widget) {
    const auto* viewport = widget.parentWidget();
    return viewport && viewport->parentWidget() &&
           qobject_cast<const QAbstractItemView*>(viewport->parentWidget());
}

} // namespace

FocusRing::FocusRing() {
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { Follow(now); });
}

FocusRing::~FocusRing() {
    delete frame;
}

void FocusRing::Follow(QWidget* now) {
    QWidget* target = now && !ShowsItself(*now) && !EditsACell(*now) ? now : nullptr;
    if (!frame) {
        if (!target)
            return;
        frame = new QFocusFrame(target->parentWidget());
    }
    frame->setWidget(target);
}

} // namespace corvane
