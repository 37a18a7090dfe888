#include "desktop/notice.h"

#include "desktop/control_painting.h"
#include "desktop/escape_key.h"
#include "desktop/icons.h"
#include "desktop/measures.h"
#include "desktop/theme_colours.h"

#include <QAccessible>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QTimer>

namespace corvane {

Notice* Notice::Show(QWidget& window, MessageKind kind, const QString& title, const QString& text,
                     std::optional<QPoint> beside) {
    for (Notice* earlier : window.findChildren<Notice*>(Qt::FindDirectChildrenOnly))
        earlier->Close();
    return new Notice(window, kind, title, text, beside);
}

Notice::Notice(QWidget& window, MessageKind messageKind, const QString& title, const QString& text,
               std::optional<QPoint> besidePoint)
    : QFrame(&window), kind(messageKind), beside(besidePoint), sign(new QLabel), heading(new QLabel(title)),
      words(new QLabel(text)) {
    setObjectName("notice");
    setAccessibleName(title.isEmpty() ? text : title + ": " + text);
    auto* layout = new QGridLayout(this);
    layout->addWidget(sign, 0, 0, Qt::AlignTop);
    layout->addWidget(heading, 0, 1);
    layout->addWidget(words, title.isEmpty() ? 0 : 1, 1);
    layout->setVerticalSpacing(Scaled(labelToField));
    layout->setColumnStretch(1, 1);
    QFont strong = font();
    strong.setWeight(QFont::DemiBold);
    heading->setFont(strong);
    heading->setVisible(!title.isEmpty());
    for (QLabel* label : {heading, words}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    Recolour();
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, this, &Notice::Close);
    StayFor(shown);
    new EscapeKey(
        window, [this] { Close(); }, this);
    window.installEventFilter(this);
    Place();
    show();
    raise();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

QString Notice::Title() const {
    return heading->text();
}

QString Notice::Text() const {
    return words->text();
}

void Notice::StayFor(std::chrono::milliseconds time) {
    timer.stop();
    timer.setInterval(time);
    if (!underMouse())
        Wait();
}

void Notice::Wait() {
    if (timer.intervalAsDuration() > std::chrono::milliseconds::zero())
        timer.start();
}

void Notice::Place() {
    const QRect around = parentWidget()->rect();
    const int margin = Scaled(betweenGroups), widest = Scaled(widestColumn);
    // As wide as its longest line up to the width of a column, then as high as that needs.
    const QFontMetrics metrics = fontMetrics();
    int textWidth = metrics.horizontalAdvance(heading->text()) * 11 / 10; // semibold is wider
    for (const QString& line : words->text().split('\n'))
        textWidth = std::max(textWidth, metrics.horizontalAdvance(line));
    const int frame = 2 * Scaled(insideGroup) + Scaled(smallIcon) + Scaled(betweenControls) + 2;
    const int width = std::min({textWidth + frame, widest, around.width() - 2 * margin});
    resize(width, layout()->heightForWidth(width));
    QRect place(QPoint(), size());
    if (beside)
        place.moveTopLeft(*beside + QPoint(Scaled(betweenControls), Scaled(betweenControls)));
    else if (layoutDirection() == Qt::RightToLeft)
        place.moveBottomLeft(around.bottomLeft() + QPoint(margin, -margin));
    else
        place.moveBottomRight(around.bottomRight() - QPoint(margin, margin));
    move(std::max(0, std::min(place.left(), around.right() - place.width())),
         std::max(0, std::min(place.top(), around.bottom() - place.height())));
}

void Notice::Recolour() {
    sign->setPixmap(ColouredIcon(IconNameOf(kind), ColourOf(kind, ColoursOf(palette())))
                        .pixmap(QSize(1, 1) * Scaled(smallIcon), devicePixelRatioF()));
    update();
}

void Notice::Close() {
    hide();
    deleteLater();
}

bool Notice::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        Place();
    return QFrame::eventFilter(watched, event);
}

void Notice::enterEvent(QEnterEvent*) {
    timer.stop();
}

void Notice::leaveEvent(QEvent*) {
    Wait();
}

void Notice::mousePressEvent(QMouseEvent*) {
    Close();
}

void Notice::changeEvent(QEvent* event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        Recolour();
}

void Notice::paintEvent(QPaintEvent*) {
    const ThemeColours& colours = ColoursOf(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colours.window);
    DrawBox(painter, rect(), colours.base, colours.edge, cornerRadius);
}

} // namespace corvane
