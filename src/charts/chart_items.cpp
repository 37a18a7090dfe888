#include "charts/chart_items.h"

#include <cmath>
#include <numeric>

namespace corvane {
namespace {

QString CategoryOf(const ChartModel& chart, std::size_t bin) {
    return QString::fromStdString(chart.categories[bin]);
}

} // namespace

QColor ColourOf(const Colour& colour) {
    return {colour.red, colour.green, colour.blue};
}

QColor SliceColour(int slice) {
    static const QColor colours[] = {{230, 159, 0}, {86, 180, 233}, {0, 158, 115},   {240, 228, 66},
                                     {0, 114, 178}, {213, 94, 0},   {204, 121, 167}, {153, 153, 153}};
    constexpr int count = static_cast<int>(std::size(colours));
    const int round = slice / count % 3;
    return round == 0 ? colours[slice % count] : colours[slice % count].lighter(100 + 25 * round);
}

void PieItem::draw(QCPPainter* painter) {
    const QRectF area = Area();
    const double width = area.width() / static_cast<double>(model.series.size());
    for (std::size_t i = 0; i < model.series.size(); ++i)
        DrawPie(painter, model.series[i],
                {area.left() + width * static_cast<double>(i), area.top(), width, area.height()});
}

void PieItem::DrawPie(QCPPainter* painter, const ChartSeries& series, const QRectF& place) const {
    constexpr double labelRoom = 92, nameRoom = 24, degreesAround = 360, sixteenths = 16;
    const double side = std::min(place.width() - 2 * labelRoom, place.height() - 4 * nameRoom);
    const std::vector<double>& values = *series.y;
    const double total = std::accumulate(values.begin(), values.end(), 0.0);
    if (side <= 0 || total <= 0)
        return;
    const QPointF centre(place.center().x(), place.center().y() + nameRoom / 2);
    const QRectF circle(centre.x() - side / 2, centre.y() - side / 2, side, side);
    QFont font(QString::fromStdString(model.font));
    font.setPixelSize(13);
    painter->setFont(font);
    painter->setAntialiasing(true);
    double start = 0.25 * degreesAround; // at the top, clockwise
    for (std::size_t bin = 0; bin < values.size(); ++bin) {
        const double share = values[bin] / total, span = -share * degreesAround;
        if (share == 0)
            continue;
        painter->setPen(QPen(Qt::white, 1.5));
        painter->setBrush(SliceColour(static_cast<int>(bin)));
        painter->drawPie(circle, qRound(start * sixteenths), qRound(span * sixteenths));
        constexpr double leastLabelled = 0.02;
        if (share >= leastLabelled) {
            const double angle = (start + span / 2) * M_PI / 180, reach = side / 2 + 10;
            const QPointF at = centre + QPointF(reach * std::cos(angle), -reach * std::sin(angle));
            const QString text = CategoryOf(model, bin) + QString(" %1 %").arg(100 * share, 0, 'f', 1);
            const bool right = std::cos(angle) >= 0;
            painter->setPen(Qt::black);
            painter->drawText(QRectF(right ? at.x() : at.x() - 120, at.y() - 10, 120, 20),
                              (right ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter, text);
        }
        start += span;
    }
    painter->setPen(Qt::black);
    painter->drawText(QRectF(place.left(), circle.top() - 2 * nameRoom, place.width(), nameRoom),
                      Qt::AlignCenter, QString::fromStdString(series.name));
}

void SolidItem::DrawBox(QCPPainter* painter, const QRectF& front, const QColor& colour) const {
    const QPointF depth = 0.5 * Depth();
    painter->setPen(QPen(colour.darker(150), 1));
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
    painter->setBrush(colour);
    painter->drawPolygon(front);
}

void SolidItem::draw(QCPPainter* painter) {
    const QCPAxis *across = mParentPlot->xAxis, *up = mParentPlot->yAxis;
    const double ground = up->coordToPixel(std::max(0.0, up->range().lower));
    const int count = static_cast<int>(model.series.size());
    painter->setAntialiasing(true);
    for (int s = count - 1; s >= 0; --s) { // from the back
        const ChartSeries& series = model.series[static_cast<std::size_t>(s)];
        const QColor colour = ColourOf(series.colour);
        const QPointF behind = count > 1 ? 0.5 * s * Depth() : QPointF();
        QPolygonF top;
        for (std::size_t k = 0; k < series.y->size(); ++k) {
            const double centre = static_cast<double>(k + 1), height = up->coordToPixel((*series.y)[k]);
            if (model.style == ChartStyle::Bar) {
                constexpr double barWidth = 0.8;
                const double each = barWidth / count, left = centre - barWidth / 2 + s * each;
                const double from = across->coordToPixel(left), to = across->coordToPixel(left + 0.9 * each);
                DrawBox(painter, QRectF(QPointF(from, height), QPointF(to, ground)), colour);
            } else if (model.style == ChartStyle::Step) {
                top << QPointF(across->coordToPixel(centre - 0.5), height) + behind
                    << QPointF(across->coordToPixel(centre + 0.5), height) + behind;
            } else {
                top << QPointF(across->coordToPixel(centre), height) + behind;
            }
        }
        if (!top.isEmpty())
            DrawRibbon(painter, top, ground + behind.y(), colour);
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
