#pragma once

#include "desktop/messages.h"

#include <QFrame>
#include <functional>
#include <vector>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace corvane {

class EscapeKey;

/// A button of a message bar; pressing it also closes the bar.
struct BarAction {
    QString caption;
    std::function<void()> work;
};

/// The one bar at the top of a panel: what happened, and at most two things to do about it. A new message
/// takes the place of the old one. It never takes the focus; Escape closes it.
class MessageBar : public QFrame {
    Q_OBJECT

public:
    static constexpr std::size_t mostActions = 2;

    explicit MessageBar(QWidget* parent = nullptr);

    /// Shows a message; actions beyond the second are left out.
    void ShowMessage(MessageKind kind, const QString& text, std::vector<BarAction> barActions = {});
    QString Text() const;
    void Close();

signals:
    /// The message has gone, by the user or by `Close`, but not because of a newer one.
    void Closed();

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Press(std::size_t which);
    void Recolour();

    MessageKind kind = MessageKind::Information;
    std::vector<BarAction> actions;
    QLabel* sign;
    QLabel* words;
    std::vector<QPushButton*> buttons;
    EscapeKey* escape = nullptr;
};

} // namespace corvane
