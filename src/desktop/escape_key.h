#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

class QWidget;

namespace corvane {

/// Calls an action when Escape is pressed anywhere in a window and no control has taken the key for itself
/// (an open cell editor does). While several listen in one window, the one that came last has the key.
class EscapeKey : public QObject {
    Q_OBJECT

public:
    EscapeKey(QWidget& window, std::function<void()> escapeAction, QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> action;
};

} // namespace corvane
