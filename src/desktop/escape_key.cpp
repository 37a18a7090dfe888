#include "desktop/escape_key.h"

#include <QKeyEvent>
#include <QWidget>

namespace corvane {

EscapeKey::EscapeKey(QWidget& window, std::function<void()> escapeAction, QObject* parent)
    : QObject(parent), action(std::move(escapeAction)) {
    window.installEventFilter(this);
}

bool EscapeKey::eventFilter(QObject*, QEvent* event) {
    // Keys that no control wants come up to the window.
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape)
        return false;
    action();
    return true;
}

} // namespace corvane
