#pragma once

#include "desktop/messages.h"

#include <QFrame>
#include <QTimer>
#include <chrono>
#include <optional>

class QLabel;

namespace corvane {

class EscapeKey;

/// A small box over a window that says something and asks nothing: it takes no focus, blocks nothing and goes
/// after a while unless it is pointed at. Escape or a click on it closes it. A window has one at a time, so
/// a new one takes the place of the old.
class Notice : public QFrame {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds shown{8000};

    /// Shows it at the lower right of the window, or beside a point of it. It deletes itself when it closes.
    static Notice* Show(QWidget& window, MessageKind kind, const QString& title, const QString& text,
                        std::optional<QPoint> beside = {});

    QString Title() const;
    QString Text() const;
    /// How long it stays from now on, or from when the pointer leaves it; zero: until it is closed.
    void StayFor(std::chrono::milliseconds time);
    void Close();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Notice(QWidget& window, MessageKind messageKind, const QString& title, const QString& text,
           std::optional<QPoint> besidePoint);
    void Place();
    void Recolour();
    void Wait();

    MessageKind kind;
    std::optional<QPoint> beside;
    QLabel* sign;
    QLabel* heading;
    QLabel* words;
    QTimer timer;
};

} // namespace corvane
