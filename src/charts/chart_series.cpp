#include "charts/chart_series.h"

#include "charts/chart_items.h"
#include "charts/chart_look.h"
#include "plots/chart_operations.h"
#include "plots/thinning.h"

#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

/// Points or curves whose marks may reach over the frame that they lie on; points are in the legend in full
/// colour.
class PointGraph : public QCPGraph {
public:
    PointGraph(QCPAxis* x, QCPAxis* y) : QCPGraph(x, y) {}

    QCPScatterStyle legendStyle;

protected:
    QRect clipRect() const override {
        constexpr int over = 8;
        return QCPGraph::clipRect().adjusted(-over, -over, over, over);
    }

    void drawLegendIcon(QCPPainter* painter, const QRectF& place) const override {
        applyScattersAntialiasingHint(painter);
        if (lineStyle() != lsNone) {
            if (brush().style() != Qt::NoBrush)
                painter->fillRect(place, brush());
            QPen line = pen();
            line.setCapStyle(
                Qt::FlatCap); // no wider than its place, which not every picture format cuts it to
            painter->setPen(line);
            const double height = brush().style() != Qt::NoBrush ? place.top() : place.center().y();
            painter->drawLine(QLineF(place.left(), height, place.right(), height));
        }
        if (!legendStyle.isNone()) {
            legendStyle.applyTo(painter, pen());
            legendStyle.drawShape(painter, place.center());
        }
    }
};

QCPScatterStyle StyleOf(Marker marker, const QColor& colour, double across) {
    const auto filled = [&](QCPScatterStyle::ScatterShape shape) {
        return QCPScatterStyle(shape, Qt::NoPen, QBrush(colour), across);
    };
    const auto drawn = [&](QCPScatterStyle::ScatterShape shape) {
        return QCPScatterStyle(shape, QPen(colour, 1.6), Qt::NoBrush, across);
    };
    switch (marker) {
    case Marker::Cross:
        return drawn(QCPScatterStyle::ssCross);
    case Marker::Circle:
        return drawn(QCPScatterStyle::ssCircle);
    case Marker::Plus:
        return drawn(QCPScatterStyle::ssPlus);
    case Marker::Star:
        return drawn(QCPScatterStyle::ssStar);
    case Marker::Square:
        return filled(QCPScatterStyle::ssSquare);
    case Marker::Diamond:
        return filled(QCPScatterStyle::ssDiamond);
    case Marker::Triangle:
        return filled(QCPScatterStyle::ssTriangle);
    case Marker::Dot:
    case Marker::None:
        break;
    }
    return filled(QCPScatterStyle::ssCircle);
}

/// A curve through places along an axis, which a straight line is not on a logarithmic one. It ends where it
/// leaves the frame: not every picture format cuts it off there.
QCPGraph* AddLine(QCustomPlot& plot, const ChartScales& scales, double intercept, double slope, double from,
                  double to) {
    constexpr int places = 200;
    auto* graph = new PointGraph(plot.xAxis, plot.yAxis);
    const double bottom = scales.y.minimum - intercept, top = scales.y.maximum - intercept;
    if (slope == 0 && (bottom > 0 || top < 0))
        return graph;
    from = std::max(from, scales.x.minimum);
    to = std::min(to, scales.x.maximum);
    if (slope != 0) {
        from = std::max(from, (slope > 0 ? bottom : top) / slope);
        to = std::min(to, (slope > 0 ? top : bottom) / slope);
    }
    if (from > to)
        return graph;
    for (int i = 0; i <= places; ++i) {
        const double share = static_cast<double>(i) / places;
        const double x =
            scales.x.logarithmic && from > 0 ? from * std::pow(to / from, share) : from + (to - from) * share;
        graph->addData(x, intercept + slope * x);
    }
    return graph;
}

void AddPoints(QCustomPlot& plot, const ChartSeries& series, const ChartScales& scales, QSize size) {
    constexpr double twentiethsPerPoint = 20;
    auto* graph = new PointGraph(plot.xAxis, plot.yAxis);
    // Crowds are painted on dots of two pixels, a few points on all the dots that there are.
    constexpr std::size_t crowd = 20'000;
    const double dots = series.y->size() > crowd ? 0.5 : 2;
    const std::vector<std::size_t> shown = VisiblePoints(
        series, scales, static_cast<int>(dots * size.width()), static_cast<int>(dots * size.height()));
    QVector<double> xs, ys;
    for (const std::size_t i : shown) {
        xs.append((*series.x)[i]);
        ys.append((*series.y)[i]);
    }
    graph->setData(xs, ys);
    graph->setLineStyle(QCPGraph::lsNone);
    graph->setAdaptiveSampling(false);
    // Where they would cover each other, points are smaller and let those below shine through; else a white
    // rim tells them apart.
    constexpr double uncrowded = 2000;
    const double share = uncrowded / std::max(uncrowded, static_cast<double>(shown.size()));
    const double across =
        std::max(3.0, std::sqrt(share) * pixelsPerPoint * series.markerSize / twentiethsPerPoint);
    QColor colour = ColourOf(series.colour);
    constexpr double leastInLegend = 7, mostInLegend = 15;
    graph->legendStyle = StyleOf(series.marker, colour, std::clamp(across, leastInLegend, mostInLegend));
    graph->setPen(share < 1 ? QPen(Qt::NoPen) : QPen(Qt::white, 0.8));
    colour.setAlphaF(static_cast<float>(std::clamp(share, 0.35, 1.0)));
    graph->setScatterStyle(StyleOf(series.marker, colour, across));
}

void AddPointLabels(QCustomPlot& plot, const ChartModel& chart, const ChartSeries& series,
                    const ChartScales& scales) {
    for (const auto& [point, text] : series.labels) {
        if (point >= series.y->size() || !series.x)
            continue;
        const double x = Position(scales.x, (*series.x)[point]), y = Position(scales.y, (*series.y)[point]);
        if (!(x >= 0 && x <= 1 && y >= 0 && y <= 1))
            continue;
        auto* label = new QCPItemText(&plot);
        label->setClipToAxisRect(false);
        label->position->setCoords((*series.x)[point], (*series.y)[point]);
        // Away from the nearer edges.
        label->setPositionAlignment((x < 0.6 ? Qt::AlignLeft : Qt::AlignRight) |
                                    (y < 0.9 ? Qt::AlignBottom : Qt::AlignTop));
        label->setPadding(QMargins(5, 3, 5, 3));
        label->setFont(FontOf(chart.font, 9));
        label->setColor(ink);
        label->setText(QString::fromStdString(text));
    }
}

void AddScatterSeries(QCustomPlot& plot, const ChartSeries& series, const ChartScales& scales, QSize size) {
    if (series.line) {
        const Extent none{1, 0};
        const Extent across = ExtentsOf(series, scales.x.logarithmic, scales.y.logarithmic).x.value_or(none);
        AddLine(plot, scales, 0, 1, across.minimum, across.maximum)
            ->setPen(QPen(ColourOf(series.colour), 1.6));
    } else {
        AddPoints(plot, series, scales, size);
    }
}

/// A height on its axis; none where a logarithmic one cannot show it.
double HeightOn(const AxisScale& scale, double value) {
    return scale.logarithmic && value <= 0 ? std::nan("") : value;
}

void AddBars(QCustomPlot& plot, const ChartModel& chart, const AxisScale& heights, QSize size) {
    auto* group = new QCPBarsGroup(&plot);
    group->setSpacingType(QCPBarsGroup::stPlotCoords);
    group->setSpacing(0);
    constexpr double together = 0.8, fewestPixelsWithRim = 4;
    const double across =
        together * size.width() / static_cast<double>(chart.series.size() * chart.categories.size());
    for (const ChartSeries& series : chart.series) {
        auto* bars = new QCPBars(plot.xAxis, plot.yAxis);
        bars->setBarsGroup(group);
        bars->setWidth(together / static_cast<double>(chart.series.size()));
        bars->setBrush(ColourOf(series.colour));
        bars->setAntialiased(across >= fewestPixelsWithRim);
        bars->setPen(across < fewestPixelsWithRim ? QPen(Qt::NoPen)
                                                  : QPen(ColourOf(series.colour).darker(150), 1));
        bars->setBaseValue(heights.logarithmic ? heights.minimum : 0);
        for (std::size_t k = 0; k < series.y->size(); ++k)
            if (const double height = HeightOn(heights, (*series.y)[k]); !std::isnan(height))
                bars->addData(static_cast<double>(k + 1), height);
    }
}

void AddCurve(QCustomPlot& plot, const ChartModel& chart, const ChartSeries& series,
              const AxisScale& heights) {
    auto* graph = new PointGraph(plot.xAxis, plot.yAxis);
    const bool steps = chart.style == ChartStyle::Step;
    for (std::size_t k = 0; k < series.y->size(); ++k) {
        const double centre = static_cast<double>(k + 1), y = HeightOn(heights, (*series.y)[k]);
        if (steps)
            graph->addData(centre - 0.5, y);
        graph->addData(steps ? centre + 0.5 : centre, y);
    }
    const QColor colour = ColourOf(series.colour);
    graph->setPen(QPen(colour, 2));
    if (chart.style == ChartStyle::Line)
        graph->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, 7));
    graph->legendStyle = graph->scatterStyle();
    if (chart.style == ChartStyle::Area) {
        QColor fill = colour;
        fill.setAlpha(120);
        graph->setBrush(fill);
    }
}

/// Series that an item paints show in the legend by a bar without data.
void AddLegendOnly(QCustomPlot& plot, const ChartSeries& series) {
    auto* bars = new QCPBars(plot.xAxis, plot.yAxis);
    bars->setBrush(ColourOf(series.colour));
    bars->setPen(QPen(ColourOf(series.colour).darker(150), 1));
}

void AddMarks(QCustomPlot& plot, const ChartModel& chart, const ChartScales& scales, QSize size) {
    if (chart.style == ChartStyle::Pie) {
        new PieItem(&plot, chart);
        return;
    }
    if (chart.threeDimensional) {
        new SolidItem(&plot, chart);
        for (const ChartSeries& series : chart.series)
            AddLegendOnly(plot, series);
    } else if (chart.style == ChartStyle::Bar) {
        AddBars(plot, chart, scales.y, size);
    } else {
        for (const ChartSeries& series : chart.series)
            if (chart.style == ChartStyle::Scatter) {
                AddScatterSeries(plot, series, scales, size);
                AddPointLabels(plot, chart, series, scales);
            } else
                AddCurve(plot, chart, series, scales.y);
    }
}

void NameSeries(QCustomPlot& plot, const ChartModel& chart) {
    for (int i = 0; i < plot.plottableCount(); ++i) {
        const std::string& name = chart.series[static_cast<std::size_t>(i)].name;
        plot.plottable(i)->setName(QString::fromStdString(name));
        if (name.empty())
            plot.plottable(i)->removeFromLegend();
    }
}

void AddStatisticLines(QCustomPlot& plot, const ChartModel& chart, const ChartScales& scales) {
    if (!chart.statistics || chart.style == ChartStyle::Pie)
        return;
    for (const ChartSeries& series : chart.series)
        for (const StatisticLine& line : StatisticLines(series, chart.statisticLines)) {
            QCPGraph* graph =
                AddLine(plot, scales, line.intercept, line.slope, scales.x.minimum, scales.x.maximum);
            QPen pen(ColourOf(chart.statisticLines.colour), chart.statisticLines.width);
            if (line.dashed)
                pen.setDashPattern({6, 4});
            graph->setPen(pen);
            graph->setLayer("grid"); // below the points
            graph->removeFromLegend();
        }
}

} // namespace

void AddSeries(QCustomPlot& plot, const ChartModel& chart, const ChartScales& scales, QSize size) {
    AddMarks(plot, chart, scales, size);
    NameSeries(plot, chart);
    AddStatisticLines(plot, chart, scales);
}

} // namespace corvane
