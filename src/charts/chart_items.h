#pragma once

#include "plots/axis_scale.h"
#include "plots/chart_model.h"

#include <qcustomplot.h>

namespace corvane {

QColor ColourOf(const Colour& colour);

/// The colour of a pie's slice: eight that colour-blind people tell apart (Okabe and Ito, 2008), then again
/// in lighter shades.
QColor SliceColour(int slice);

/// What a chart paints into its axis rectangle beyond what QCustomPlot has.
class ChartItem : public QCPAbstractItem {
public:
    ChartItem(QCustomPlot* plot, const ChartModel& chart) : QCPAbstractItem(plot), model(chart) {}

    double selectTest(const QPointF&, bool, QVariant*) const override { return -1; }

protected:
    QRect Area() const { return mParentPlot->axisRect()->rect(); }

    ChartModel model;
};

/// A pie for each series, side by side, each slice with its category and value.
class PieItem : public ChartItem {
public:
    using ChartItem::ChartItem;

protected:
    void draw(QCPPainter* painter) override;

private:
    QString Label(const ChartSeries& series, std::size_t bin) const;
    void DrawPie(QCPPainter* painter, const ChartSeries& series, const QRectF& place) const;
};

/// A histogram's bars, ribbons, areas or steps with depth, which all rest on the plane of the axis.
class SolidItem : public ChartItem {
public:
    using ChartItem::ChartItem;

    /// How far the back of the room lies to the right of its front and above it, in pixels; marks reach half
    /// as deep.
    static QPointF Depth() { return {14, -10}; }

protected:
    QRect clipRect() const override {
        return ChartItem::clipRect().adjusted(0, static_cast<int>(Depth().y()), static_cast<int>(Depth().x()),
                                              0);
    }
    void draw(QCPPainter* painter) override;

private:
    void DrawBox(QCPPainter* painter, const QRectF& front, const QColor& colour) const;
    void DrawRibbon(QCPPainter* painter, const QPolygonF& top, double ground, const QColor& colour) const;
};

/// The shadows of the whole chart and of its plot.
class ShadowItem : public ChartItem {
public:
    using ChartItem::ChartItem;

protected:
    QRect clipRect() const override { return mParentPlot->viewport(); }
    void draw(QCPPainter* painter) override;
};

} // namespace corvane
