#include "desktop/message_bar.h"

#include "desktop/control_painting.h"
#include "desktop/escape_key.h"
#include "desktop/icons.h"
#include "desktop/measures.h"
#include "desktop/theme_colours.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>

namespace corvane {

MessageBar::MessageBar(QWidget* parent) : QFrame(parent), sign(new QLabel), words(new QLabel) {
    setObjectName("messageBar");
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Scaled(insideGroup), Scaled(labelToField), Scaled(labelToField),
                               Scaled(labelToField));
    words->setObjectName("messageText");
    words->setTextFormat(Qt::PlainText);
    words->setWordWrap(true);
    words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    words->setFocusPolicy(Qt::NoFocus);
    words->setMinimumHeight(Scaled(controlHeight));
    layout->addWidget(sign);
    layout->addWidget(words, 1);
    for (std::size_t i = 0; i < mostActions; ++i) {
        auto* button = new QPushButton;
        button->setObjectName(QStringLiteral("messageAction%1").arg(i));
        connect(button, &QPushButton::clicked, this, [this, i] { Press(i); });
        layout->addWidget(button, 0, Qt::AlignVCenter);
        buttons.push_back(button);
    }
    auto* close = new QToolButton;
    close->setObjectName("closeMessage");
    close->setAutoRaise(true);
    close->setIcon(ThemedIcon("close"));
    close->setToolTip(tr("Close this message (Esc)"));
    close->setAccessibleName(tr("Close this message"));
    connect(close, &QToolButton::clicked, this, &MessageBar::Close);
    layout->addWidget(close, 0, Qt::AlignVCenter);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    hide();
}

QString MessageBar::Text() const {
    return isVisibleTo(parentWidget()) ? words->text() : QString();
}

void MessageBar::ShowMessage(MessageKind newKind, const QString& text, std::vector<BarAction> barActions) {
    kind = newKind;
    actions = std::move(barActions);
    for (std::size_t i = 0; i < mostActions; ++i) {
        buttons[i]->setVisible(i < actions.size());
        buttons[i]->setText(i < actions.size() ? actions[i].caption : QString());
    }
    words->setText(text);
    const QString word = WordOf(kind);
    setAccessibleName(word.isEmpty() ? text : word + ": " + text);
    Recolour();
    show();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void MessageBar::Press(std::size_t which) {
    const auto work = actions[which].work; // it may show the next message
    Close();
    if (work)
        work();
}

void MessageBar::Close() {
    if (!isVisibleTo(parentWidget()))
        return;
    hide();
    emit Closed();
}

void MessageBar::Recolour() {
    const ThemeColours& colours = ColoursOf(palette());
    sign->setPixmap(ColouredIcon(IconNameOf(kind), ColourOf(kind, colours))
                        .pixmap(QSize(1, 1) * Scaled(smallIcon), devicePixelRatioF()));
    update();
}

void MessageBar::changeEvent(QEvent* event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        Recolour();
}

void MessageBar::showEvent(QShowEvent* event) {
    QFrame::showEvent(event);
    if (!event->spontaneous() && !escape)
        escape = new EscapeKey(
            *window(), [this] { Close(); }, this);
}

void MessageBar::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    if (event->spontaneous())
        return;
    if (escape)
        escape->deleteLater(); // it may be what hides the bar
    escape = nullptr;
}

void MessageBar::paintEvent(QPaintEvent*) {
    const ThemeColours& colours = ColoursOf(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colours.base);
    constexpr int bar = 3;
    painter.fillRect(QRect(layoutDirection() == Qt::RightToLeft ? width() - bar : 0, 0, bar, height()),
                     ColourOf(kind, colours));
    painter.fillRect(QRect(0, height() - 1, width(), 1), colours.line);
}

} // namespace corvane
