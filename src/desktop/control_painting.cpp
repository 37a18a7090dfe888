#include "desktop/control_painting.h"

#include "desktop/focus_ring.h"
#include "desktop/measures.h"
#include "desktop/theme_colours.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>

namespace corvane {
namespace {

constexpr double groove = 4;

bool Enabled(const QStyleOption& option) {
    return option.state & QStyle::State_Enabled;
}

/// A ground towards the text: how a control under the pointer or held down is shown.
QColor Towards(const QColor& ground, const QColor& text, double share) {
    const auto mix = [share](int from, int to) { return qRound(from + (to - from) * share); };
    return {mix(ground.red(), text.red()), mix(ground.green(), text.green()),
            mix(ground.blue(), text.blue())};
}

QColor Touched(const QStyleOption& option, const QColor& ground, const QColor& text) {
    if (!Enabled(option))
        return ground;
    if (option.state & QStyle::State_Sunken)
        return Towards(ground, text, 0.14);
    return option.state & QStyle::State_MouseOver ? Towards(ground, text, 0.07) : ground;
}

QColor EdgeOf(const QStyleOption& option, const ThemeColours& colours) {
    return Enabled(option) ? colours.edge : colours.line;
}

void DrawLines(QPainter& painter, std::initializer_list<QPointF> points, const QColor& colour, double width) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(std::data(points), static_cast<int>(points.size()));
    painter.restore();
}

/// An arrow head downwards, in a square of 8 around the centre.
void DrawArrow(QPainter& painter, const QPointF& centre, const QColor& colour) {
    DrawLines(painter,
              {centre + QPointF(-3.5, -1.75), centre + QPointF(0, 1.75), centre + QPointF(3.5, -1.75)},
              colour, 1.5);
}

/// The square or circle of a tick: filled in the accent where it is on.
void DrawIndicator(QPainter& painter, const QStyleOption& option, double radius) {
    const ThemeColours& colours = ColoursOf(option.palette);
    const bool on = option.state & (QStyle::State_On | QStyle::State_NoChange);
    const QColor fill = !Enabled(option) ? colours.button : on ? colours.accent : colours.base;
    const QColor edge = Enabled(option) && on ? colours.accentEdge : EdgeOf(option, colours);
    DrawBox(painter, option.rect, Touched(option, fill, on ? colours.onAccent : colours.text), edge, radius);
}

QColor SignOf(const QStyleOption& option) {
    const ThemeColours& colours = ColoursOf(option.palette);
    return Enabled(option) ? colours.onAccent : colours.quiet;
}

} // namespace

void DrawBox(QPainter& painter, const QRectF& box, const QColor& fill, const QColor& edge, double radius) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(edge.isValid() ? QPen(edge, 1) : QPen(Qt::NoPen));
    painter.setBrush(fill.isValid() ? QBrush(fill) : QBrush());
    painter.drawRoundedRect(edge.isValid() ? box.adjusted(0.5, 0.5, -0.5, -0.5) : box, radius, radius);
    painter.restore();
}

void DrawRing(QPainter& painter, const QRectF& box, const QColor& colour, double radius) {
    constexpr double half = ringWidth / 2.0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, ringWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box.adjusted(half, half, -half, -half), radius, radius);
    painter.restore();
}

void DrawButton(QPainter& painter, const QStyleOption& option, bool accent) {
    const ThemeColours& colours = ColoursOf(option.palette);
    if (!accent || !Enabled(option)) {
        const bool on = option.state & QStyle::State_On;
        DrawBox(painter, option.rect, Touched(option, on ? colours.selection : colours.button, colours.text),
                EdgeOf(option, colours), cornerRadius);
        return;
    }
    // Darker when touched: towards white its text would lose contrast.
    DrawBox(painter, option.rect, Touched(option, colours.accent, Qt::black), colours.accentEdge,
            cornerRadius);
    if (option.state & QStyle::State_HasFocus)
        DrawRing(painter, QRectF(option.rect).adjusted(2, 2, -2, -2), colours.onAccent, cornerRadius - 1);
}

void DrawToolButton(QPainter& painter, const QStyleOption& option, bool accent) {
    const bool raised = !(option.state & QStyle::State_AutoRaise);
    if (accent || raised) {
        DrawButton(painter, option, accent);
        return;
    }
    const ThemeColours& colours = ColoursOf(option.palette);
    const bool on = option.state & QStyle::State_On;
    if (on || (Enabled(option) && option.state & (QStyle::State_MouseOver | QStyle::State_Sunken)))
        DrawBox(painter, option.rect,
                on ? Touched(option, colours.selection, colours.text)
                   : Touched(option, colours.button, colours.text),
                on ? EdgeOf(option, colours) : colours.line, cornerRadius);
}

void DrawTickBox(QPainter& painter, const QStyleOption& option) {
    DrawIndicator(painter, option, 3);
    const QRectF box(option.rect);
    const double unit = box.width() / 16;
    const auto at = [&](double x, double y) { return box.topLeft() + QPointF(x, y) * unit; };
    if (option.state & QStyle::State_NoChange)
        DrawLines(painter, {at(4.5, 8), at(11.5, 8)}, SignOf(option), 2 * unit);
    else if (option.state & QStyle::State_On)
        DrawLines(painter, {at(4, 8.25), at(7, 11.25), at(12, 5)}, SignOf(option), 2 * unit);
}

void DrawRadioButton(QPainter& painter, const QStyleOption& option) {
    const double radius = option.rect.width() / 2.0;
    DrawIndicator(painter, option, radius);
    if (!(option.state & QStyle::State_On))
        return;
    const double inset = option.rect.width() * 0.31;
    DrawBox(painter, QRectF(option.rect).adjusted(inset, inset, -inset, -inset), SignOf(option), {}, radius);
}

void DrawComboBox(QPainter& painter, const QStyleOptionComboBox& option, const QStyle& style,
                  const QWidget* widget) {
    const ThemeColours& colours = ColoursOf(option.palette);
    const bool field = option.editable && Enabled(option);
    DrawBox(painter, option.rect, field ? colours.base : Touched(option, colours.button, colours.text),
            EdgeOf(option, colours), cornerRadius);
    const QRectF arrow = style.subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, widget);
    DrawArrow(painter, arrow.center(), Enabled(option) ? colours.text : colours.quiet);
}

void DrawSlider(QPainter& painter, const QStyleOptionSlider& option, const QStyle& style,
                const QWidget* widget) {
    const ThemeColours& colours = ColoursOf(option.palette);
    const bool level = option.orientation == Qt::Horizontal;
    const QRectF handle = style.subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, widget);
    const QRectF slot = style.subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, widget);
    const QRectF line = level ? QRectF(slot.left(), handle.center().y() - groove / 2, slot.width(), groove)
                              : QRectF(handle.center().x() - groove / 2, slot.top(), groove, slot.height());
    if (option.tickPosition != QSlider::NoTicks && option.tickInterval > 0)
        for (int value = option.minimum; value <= option.maximum; value += option.tickInterval) {
            const int room =
                static_cast<int>(level ? slot.width() - handle.width() : slot.height() - handle.height());
            const double along =
                QStyle::sliderPositionFromValue(option.minimum, option.maximum, value, room,
                                                option.upsideDown) +
                (level ? slot.left() + handle.width() / 2 : slot.top() + handle.height() / 2);
            const double from = (level ? handle.bottom() : handle.right()) + 1, to = from + 3;
            DrawLines(painter,
                      level ? std::initializer_list<QPointF>{{along, from}, {along, to}}
                            : std::initializer_list<QPointF>{{from, along}, {to, along}},
                      colours.edge, 1);
        }
    DrawBox(painter, line, Enabled(option) ? colours.edge : colours.line, {}, groove / 2);
    QRectF done = line;
    // The part up to the handle, from the end where the least value is.
    if (level)
        (option.upsideDown ? done.setLeft(handle.center().x()) : done.setRight(handle.center().x()));
    else
        (option.upsideDown ? done.setTop(handle.center().y()) : done.setBottom(handle.center().y()));
    if (Enabled(option))
        DrawBox(painter, done, colours.ring, {}, groove / 2);
    const double side = std::min(handle.width(), handle.height());
    QRectF knob(0, 0, side, side);
    knob.moveCenter(handle.center());
    QStyleOption touched(option);
    touched.state.setFlag(QStyle::State_MouseOver, option.activeSubControls & QStyle::SC_SliderHandle);
    DrawBox(painter, knob, Touched(touched, Enabled(option) ? colours.base : colours.button, colours.text),
            EdgeOf(option, colours), side / 2);
}

void DrawScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QStyle& style,
                   const QWidget* widget) {
    const ThemeColours& colours = ColoursOf(option.palette);
    painter.fillRect(option.rect, colours.window);
    const QRectF handle =
        style.subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, widget);
    if (option.minimum == option.maximum)
        return;
    QStyleOption touched(option);
    touched.state.setFlag(QStyle::State_MouseOver, option.activeSubControls & QStyle::SC_ScrollBarSlider);
    constexpr double inset = 3;
    const QRectF thumb = handle.adjusted(inset, inset, -inset, -inset);
    DrawBox(painter, thumb, Touched(touched, colours.edge, colours.text), {},
            std::min(thumb.width(), thumb.height()) / 2);
}

void DrawTab(QPainter& painter, const QStyleOptionTab& option) {
    const ThemeColours& colours = ColoursOf(option.palette);
    const bool selected = option.state & QStyle::State_Selected;
    QStyleOption touched(option);
    touched.state.setFlag(QStyle::State_Sunken, false);
    if (!selected && option.state & QStyle::State_MouseOver)
        DrawBox(painter, QRectF(option.rect).adjusted(1, 1, -1, -3),
                Touched(touched, colours.button, colours.text), {}, cornerRadius);
    if (!selected)
        return;
    QRectF mark(option.rect);
    constexpr double thickness = 3;
    const bool upright = option.shape == QTabBar::RoundedWest || option.shape == QTabBar::RoundedEast;
    if (upright)
        mark.setRight(mark.left() + thickness);
    else
        mark.setTop(mark.bottom() - thickness);
    painter.fillRect(upright ? mark : mark.adjusted(4, 0, -4, 0), colours.ring);
}

void DrawHeaderSection(QPainter& painter, const QStyleOptionHeader& option) {
    const ThemeColours& colours = ColoursOf(option.palette);
    const QRect box = option.rect;
    painter.fillRect(box, Touched(option, colours.button, colours.text));
    painter.fillRect(QRect(box.left(), box.bottom(), box.width(), 1), colours.line);
    painter.fillRect(
        QRect(option.direction == Qt::RightToLeft ? box.left() : box.right(), box.top(), 1, box.height()),
        colours.line);
}

void DrawProgress(QPainter& painter, const QStyleOptionProgressBar& option) {
    const ThemeColours& colours = ColoursOf(option.palette);
    const QRectF box(option.rect);
    DrawBox(painter, box, colours.base, colours.edge, cornerRadius);
    const double span = static_cast<double>(option.maximum) - option.minimum;
    // Without a share known it is full and pale; the text beside it tells the stage.
    const double share = span > 0 ? (static_cast<double>(option.progress) - option.minimum) / span : 1;
    QRectF done = box.adjusted(2, 2, -2, -2);
    done.setWidth(done.width() * std::clamp(share, 0.0, 1.0));
    if (option.direction == Qt::RightToLeft)
        done.moveRight(box.right() - 2);
    DrawBox(painter, done, span > 0 ? colours.ring : colours.line, {}, cornerRadius - 2);
}

} // namespace corvane
