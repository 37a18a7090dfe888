#include "charts/chart_items.h"

#include "charts/chart_look.h"

#include <cmath>
#include <numeric>

namespace corvane {

QColor ColourOf(const Colour& colour) {
    return {colour.red, colour.green, colour.blue};
}

QColor SliceColour(int slice) {
    static const QColor colours[] = {{230, 159, 0}, {86, 180, 233}, {0, 158, 115},   {240, 228, 66},
                                     {0, 114, 178}, {213, 94, 0},   {204, 121, 167}, {153, 153, 153}};
    constexpr int count = static_cast<int>(std::size(colours));
    const int round = slice / count % 3;
    const QColor& colour = colours[slice % count];
    return round == 0 ? colour : round == 1 ? colour.darker(150) : colour.lighter(140);
}

void PieItem::draw(QCPPainter* painter) {
    const QRectF area = Area();
    const double width = area.width() / static_cast<double>(model.series.size());
    for (std::size_t i = 0; i < model.series.size(); ++i)
        DrawPie(painter, model.series[i],
                {area.left() + width * static_cast<double>(i), area.top(), width, area.height()});
}

QString PieItem::Label(const ChartSeries& series, std::size_t bin) const {
    const double value = (*series.y)[bin];
    return QString::fromStdString(model.categories[bin]) + "  " +
           (model.yAxis.wholeNumbers ? QString::number(value, 'f', 0)
                                     : QString("%1 %").arg(value, 0, 'f', 1));
}

void PieItem::DrawPie(QCPPainter* painter, const ChartSeries& series, const QRectF& place) const {
    constexpr double nameRoom = 24, labelGap = 10, labelHeight = 16, degreesAround = 360, sixteenths = 16;
    QFont font(QString::fromStdString(model.font));
    font.setPixelSize(13);
    painter->setFont(font);
    painter->setAntialiasing(true);
    const std::vector<double>& values = *series.y;
    double labelRoom = 0;
    for (std::size_t bin = 0; bin < values.size(); ++bin)
        labelRoom = std::max(labelRoom, QFontMetricsF(font).horizontalAdvance(Label(series, bin)));
    const QRectF inner = place.adjusted(0, nameRoom, 0, -nameRoom); // between the heading and the axis's text
    constexpr double leastLabelledSide = 80;
    double side = std::min(inner.width() - 2 * (labelRoom + labelGap + 2),
                           inner.height() - 2 * (labelGap + labelHeight));
    const bool labelled = side >= leastLabelledSide;
    if (!labelled)
        side = std::min(inner.width(), inner.height()) - 2 * labelGap;
    const double total = std::accumulate(values.begin(), values.end(), 0.0);
    if (side <= 0 || total <= 0)
        return;
    const QPointF centre = place.center();
    const QRectF circle(centre.x() - side / 2, centre.y() - side / 2, side, side);
    double start = 0.25 * degreesAround; // at the top, clockwise
    double lowest = inner.top() - labelHeight / 2,
           highest = inner.bottom() + labelHeight / 2; // labels so far
    for (std::size_t bin = 0; bin < values.size(); ++bin) {
        const double share = values[bin] / total, span = -share * degreesAround;
        if (share == 0)
            continue;
        constexpr double leastArcWithRim = 4;
        painter->setPen(share * M_PI * side < leastArcWithRim ? QPen(Qt::NoPen) : QPen(Qt::white, 1.5));
        painter->setBrush(SliceColour(static_cast<int>(bin)));
        if (share == 1)
            painter->drawEllipse(circle);
        else
            painter->drawPie(circle, qRound(start * sixteenths), qRound(span * sixteenths));
        const double angle = (start + span / 2) * M_PI / 180, reach = side / 2 + labelGap;
        start += span;
        // Going round, labels come down on the right and go up on the left: none covers the one before, nor
        // the pie; and none is far from its slice.
        const bool right = std::cos(angle) >= 0;
        double& edge = right ? lowest : highest;
        const double wanted = centre.y() - reach * std::sin(angle);
        const double middle =
            right ? std::max(wanted, edge + labelHeight) : std::min(wanted, edge - labelHeight);
        constexpr double farthest = 2.5 * labelHeight;
        if (!labelled || std::fabs(middle - wanted) > farthest || middle < inner.top() ||
            middle > inner.bottom())
            continue;
        edge = middle;
        const double up = middle - centre.y(), out = std::sqrt(std::max(0.0, reach * reach - up * up));
        painter->setPen(Qt::black);
        painter->drawText(QRectF(right ? centre.x() + out : centre.x() - out - labelRoom,
                                 middle - labelHeight / 2, labelRoom, labelHeight),
                          TextFlags((right ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter),
                          Label(series, bin));
    }
    painter->setPen(Qt::black);
    const auto line = [&](double top, const std::string& text) {
        painter->drawText(QRectF(place.left(), top, place.width(), nameRoom), Qt::AlignCenter,
                          QString::fromStdString(text));
    };
    const double over = std::min(circle.top() - labelHeight, highest - labelHeight / 2) - nameRoom;
    const double under = std::max(circle.bottom() + labelHeight, lowest + labelHeight / 2);
    line(std::max(place.top(), over), series.name);
    line(std::min(place.bottom() - nameRoom, under), model.yAxis.title);
}

void SolidItem::DrawBox(QCPPainter* painter, const QRectF& front, const QColor& colour) const {
    // Of slim bars the depth is slim, too: it lies over the next bar's front.
    constexpr double fewestPixelsWithRim = 4;
    const bool slim = front.width() < fewestPixelsWithRim;
    const QPointF depth = slim ? QPointF() : std::min(0.5, 0.4 * front.width() / Depth().x()) * Depth();
    painter->setPen(slim ? QPen(Qt::NoPen) : QPen(colour.darker(150), 1));
    painter->setBrush(colour.lighter(125));
    painter->drawPolygon(
        QPolygonF({front.topLeft(), front.topLeft() + depth, front.topRight() + depth, front.topRight()}));
    painter->setBrush(colour.darker(125));
    painter->drawPolygon(QPolygonF(
        {front.topRight(), front.topRight() + depth, front.bottomRight() + depth, front.bottomRight()}));
    painter->setBrush(colour);
    painter->drawRect(front);
}

void SolidItem::DrawRibbon(QCPPainter* painter, const QPolygonF& top, double ground,
                           const QColor& colour) const {
    const QPointF depth = 0.5 * Depth();
    painter->setPen(QPen(colour.darker(150), 1));
    for (int i = 0; i + 1 < top.size(); ++i) {
        const bool falling = top[i + 1].y() > top[i].y();
        painter->setBrush(falling ? colour.darker(115) : colour.lighter(120));
        painter->drawPolygon(QPolygonF({top[i], top[i] + depth, top[i + 1] + depth, top[i + 1]}));
    }
    if (model.style == ChartStyle::Line)
        return;
    QPolygonF front = top;
    front << QPointF(top.last().x(), ground) << QPointF(top.first().x(), ground);
    const QPointF right(top.last().x(), ground);
    painter->setBrush(colour.darker(125));
    painter->drawPolygon(QPolygonF({top.last(), top.last() + depth, right + depth, right}));
    QColor face = colour; // which lets the series in the background shine through
    face.setAlphaF(model.series.size() > 1 ? 0.55F : 1.0F);
    painter->setBrush(face);
    painter->drawPolygon(front);
}

void SolidItem::draw(QCPPainter* painter) {
    const QCPAxis *across = mParentPlot->xAxis, *up = mParentPlot->yAxis;
    const auto heightOf = [up](double value) { return up->coordToPixel(std::max(value, up->range().lower)); };
    const double ground = heightOf(0.0);
    painter->setAntialiasing(true);
    const std::size_t count = model.series.size();
    if (model.style == ChartStyle::Bar) {
        constexpr double barWidth = 0.8;
        const double each = barWidth / static_cast<double>(count);
        for (std::size_t k = 0; k < model.categories.size();
             ++k) // from left to right, so that fronts stay free
            for (std::size_t s = 0; s < count; ++s) {
                const double left = static_cast<double>(k + 1) - barWidth / 2 + static_cast<double>(s) * each;
                DrawBox(painter,
                        QRectF(QPointF(across->coordToPixel(left), heightOf((*model.series[s].y)[k])),
                               QPointF(across->coordToPixel(left + 0.9 * each), ground)),
                        ColourOf(model.series[s].colour));
            }
        return;
    }
    for (std::size_t s = count; s-- > 0;) { // the first series in front; all rest on the axis's own plane
        QPolygonF top;
        for (std::size_t k = 0; k < model.categories.size(); ++k) {
            const double centre = static_cast<double>(k + 1), height = heightOf((*model.series[s].y)[k]);
            if (model.style == ChartStyle::Step)
                top << QPointF(across->coordToPixel(centre - 0.5), height)
                    << QPointF(across->coordToPixel(centre + 0.5), height);
            else
                top << QPointF(across->coordToPixel(centre), height);
        }
        if (!top.isEmpty())
            DrawRibbon(painter, top, ground, ColourOf(model.series[s].colour));
    }
}

void ShadowItem::draw(QCPPainter* painter) {
    constexpr int reach = 5;
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(0, 0, 0, 70));
    const QRect whole = mParentPlot->viewport();
    if (model.areaShadow) {
        painter->drawRect(QRect(whole.left() + reach, whole.bottom() - reach, whole.width() - reach, reach));
        painter->drawRect(
            QRect(whole.right() - reach, whole.top() + reach, reach, whole.height() - 2 * reach));
    }
    if (model.plotShadow) {
        const QRect area = Area();
        painter->drawRect(QRect(area.left() + reach, area.bottom(), area.width(), reach));
        painter->drawRect(QRect(area.right(), area.top() + reach, reach, area.height() - reach));
    }
}

} // namespace corvane
