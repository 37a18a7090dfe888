#pragma once

#include <QObject>
#include <QPointer>

class QFocusFrame;
class QWidget;

namespace corvane {

/// The ring of 2 px around the control that has the focus, however it came there. It lies 1 px outside the
/// control, or inside where its surroundings leave no room; views and tab bars draw theirs in a cell.
class FocusRing : public QObject {
    Q_OBJECT

public:
    FocusRing();
    ~FocusRing() override;

private:
    void Follow(QWidget* now);

    QPointer<QFocusFrame> frame; ///< Its parent is that of the control.
};

/// The distance from a control's edge to the outer edge of the ring around it.
inline constexpr int ringGap = 1, ringWidth = 2, ringReach = ringGap + ringWidth;

} // namespace corvane
