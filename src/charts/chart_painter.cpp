#include "charts/chart_painter.h"

#include "charts/chart_items.h"
#include "plots/chart_operations.h"
#include "plots/thinning.h"

#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

constexpr double pixelsPerInch = 96, pixelsPerPoint = pixelsPerInch / 72;
const QColor ink(40, 40, 40), paleArea(244, 243, 238), palePlot(236, 243, 248), gridInk(222, 222, 222);

QFont FontOf(const std::string& family, double points) {
    QFont font(QString::fromStdString(family));
    font.setPixelSize(std::max(1, qRound(points * pixelsPerPoint))); // the same on screen, SVG and paper
    return font;
}

/// Ticks and labels of the chart's own scale, and of any other range when the axis is moved or zoomed.
class ScaleTicker : public QCPAxisTicker {
public:
    ScaleTicker(const QCPAxis& drawnAxis, AxisScale axisScale, ChartAxis chartAxis)
        : drawn(drawnAxis), scale(std::move(axisScale)), axis(std::move(chartAxis)) {}

protected:
    void generate(const QCPRange& range, const QLocale&, QChar, int, QVector<double>& ticks,
                  QVector<double>* subTicks, QVector<QString>* tickLabels) override {
        const AxisScale shown =
            range.lower == scale.minimum && range.upper == scale.maximum ? scale : Moved(range);
        ticks = QVector<double>(shown.major.begin(), shown.major.end());
        if (subTicks)
            *subTicks = QVector<double>(shown.minor.begin(), shown.minor.end());
        if (!tickLabels)
            return;
        tickLabels->clear();
        for (const double place : shown.major)
            tickLabels->append(QString::fromStdString(TickLabel(shown, place)));
        if (drawn.orientation() == Qt::Horizontal)
            LeaveRoom(*tickLabels);
    }

private:
    /// Empties as many labels as are needed that no two overlap.
    void LeaveRoom(QVector<QString>& labels) const {
        const QFontMetrics metrics(drawn.tickLabelFont());
        int widest = 0;
        for (const QString& label : labels)
            widest = std::max(widest, metrics.horizontalAdvance(label));
        constexpr int gap = 12;
        constexpr double besides = 100; // what stands left and right of the axis
        const double room = drawn.parentPlot()->width() - besides;
        const double wanted = static_cast<double>(labels.size()) * (widest + gap);
        const auto every =
            std::max<qsizetype>(1, static_cast<qsizetype>(std::ceil(wanted / std::max(1.0, room))));
        for (qsizetype k = 0; k < labels.size(); ++k)
            if (k % every != 0)
                labels[k].clear();
    }

    AxisScale Moved(const QCPRange& range) const {
        ChartAxis moved = axis;
        moved.automatic = false;
        moved.minimum = range.lower;
        moved.maximum = range.upper;
        moved.majorStep = 0;
        return ScaleOf(moved, {range.lower, range.upper});
    }

    const QCPAxis& drawn;
    AxisScale scale;
    ChartAxis axis;
};

/// Points or curves whose marks may reach over the frame that they lie on; points stand in the legend in full
/// colour.
class PointGraph : public QCPGraph {
public:
    PointGraph(QCPAxis* x, QCPAxis* y) : QCPGraph(x, y) {}

    QCPScatterStyle legendStyle; ///< Of points; without one the legend shows what the plot does.

protected:
    QRect clipRect() const override {
        constexpr int over = 8;
        return QCPGraph::clipRect().adjusted(-over, -over, over, over);
    }

    void drawLegendIcon(QCPPainter* painter, const QRectF& place) const override {
        if (legendStyle.isNone()) {
            QCPGraph::drawLegendIcon(painter, place);
            return;
        }
        applyScattersAntialiasingHint(painter);
        legendStyle.applyTo(painter, pen());
        legendStyle.drawShape(painter, place.center());
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

/// The names of a histogram's bins, as many as there is room for.
QSharedPointer<QCPAxisTicker> CategoryTicker(const ChartModel& chart) {
    constexpr std::size_t mostLabels = 14;
    QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
    const std::size_t every = (chart.categories.size() + mostLabels - 1) / mostLabels;
    for (std::size_t k = 0; k < chart.categories.size(); k += std::max<std::size_t>(1, every))
        ticker->addTick(static_cast<double>(k + 1), QString::fromStdString(chart.categories[k]));
    return ticker;
}

void SetUpAxis(QCPAxis& axis, const ChartAxis& asked, const AxisScale& scale) {
    axis.setScaleType(scale.logarithmic ? QCPAxis::stLogarithmic : QCPAxis::stLinear);
    axis.setRange(scale.minimum, scale.maximum);
    axis.setLabel(QString::fromStdString(asked.title));
    axis.setLabelFont(FontOf(asked.titleFont, asked.titleSize));
    axis.setTickLabelFont(FontOf(asked.labelFont, asked.labelSize));
    axis.setLabelColor(ink);
    axis.setTickLabelColor(ink);
    axis.grid()->setVisible(asked.gridlines);
    axis.grid()->setPen(QPen(gridInk, 1));
    axis.grid()->setZeroLinePen(Qt::NoPen);
    axis.setLabelPadding(6);
    axis.setTickLabelPadding(7);
}

void SetUpAxes(QCustomPlot& plot, const ChartModel& chart, const ChartScales& scales) {
    SetUpAxis(*plot.xAxis, chart.xAxis, scales.x);
    SetUpAxis(*plot.yAxis, chart.yAxis, scales.y);
    plot.yAxis->setTicker(QSharedPointer<QCPAxisTicker>(new ScaleTicker(*plot.yAxis, scales.y, chart.yAxis)));
    if (chart.style == ChartStyle::Scatter)
        plot.xAxis->setTicker(
            QSharedPointer<QCPAxisTicker>(new ScaleTicker(*plot.xAxis, scales.x, chart.xAxis)));
    else
        plot.xAxis->setTicker(CategoryTicker(chart));
    // The frame: the far axes repeat the ticks of the near ones.
    plot.axisRect()->setupFullAxesBox();
    plot.xAxis2->setTicker(plot.xAxis->ticker());
    plot.yAxis2->setTicker(plot.yAxis->ticker());
    for (QCPAxis* axis : {plot.xAxis, plot.yAxis, plot.xAxis2, plot.yAxis2}) {
        const QPen pen(ink, 1.2);
        axis->setBasePen(pen);
        axis->setTickPen(pen);
        axis->setSubTickPen(QPen(ink, 1));
        const bool categories = chart.style != ChartStyle::Scatter && axis->orientation() == Qt::Horizontal;
        axis->setSubTicks(!categories);
        axis->setTickLength(categories ? 0 : 6);
        axis->setSubTickLength(3);
    }
    plot.xAxis2->setVisible(chart.wallFrame);
    plot.yAxis2->setVisible(chart.wallFrame);
    if (chart.style == ChartStyle::Pie)
        for (QCPAxis* axis : {plot.xAxis, plot.yAxis, plot.xAxis2, plot.yAxis2})
            axis->setVisible(false);
}

/// A curve through places along an axis, which a straight line is not on a logarithmic one. It ends where it
/// leaves the frame: not every picture format cuts it off there.
QCPGraph* AddLine(QCustomPlot& plot, const ChartScales& scales, double intercept, double slope, double from,
                  double to) {
    constexpr int places = 200;
    QCPGraph* graph = plot.addGraph();
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
    constexpr double leastInLegend = 7;
    graph->legendStyle = StyleOf(series.marker, colour, std::max(leastInLegend, across));
    graph->setPen(share < 1 ? QPen(Qt::NoPen) : QPen(Qt::white, 0.8));
    colour.setAlphaF(static_cast<float>(std::clamp(share, 0.35, 1.0)));
    graph->setScatterStyle(StyleOf(series.marker, colour, across));
}

void AddPointLabels(QCustomPlot& plot, const ChartModel& chart, const ChartSeries& series) {
    for (const auto& [point, text] : series.labels) {
        if (point >= series.y->size() || !series.x)
            continue;
        auto* label = new QCPItemText(&plot);
        label->position->setCoords((*series.x)[point], (*series.y)[point]);
        label->setPositionAlignment(Qt::AlignLeft | Qt::AlignBottom);
        label->setPadding(QMargins(5, 0, 0, 3));
        label->setFont(FontOf(chart.font, 9));
        label->setColor(ink);
        label->setText(QString::fromStdString(text));
    }
}

void AddScatterSeries(QCustomPlot& plot, const ChartSeries& series, const ChartScales& scales, QSize size) {
    if (series.line) {
        const auto across = ExtentsOf(series, scales.x.logarithmic, scales.y.logarithmic).x;
        if (!across)
            return;
        AddLine(plot, scales, 0, 1, across->minimum, across->maximum)
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

void AddSeries(QCustomPlot& plot, const ChartModel& chart, const ChartScales& scales, QSize size) {
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
                AddPointLabels(plot, chart, series);
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

/// A text broken at gaps so that it fits a size; where it does not, the lines before the last are cut.
QString Wrapped(const QString& text, const QString& gap, const QFont& font, QSize room) {
    const QFontMetrics metrics(font);
    const qsizetype mostLines = std::max(1, room.height() / metrics.lineSpacing());
    const QStringList parts = text.split(gap);
    QStringList lines(parts.first());
    for (const QString& part : parts.mid(1)) {
        const QString longer = lines.last() + gap + part;
        if (metrics.horizontalAdvance(longer) <= room.width())
            lines.last() = longer;
        else
            lines.append(part);
    }
    if (lines.size() > mostLines) {
        lines.resize(mostLines);
        lines.last() = QStringLiteral("...") + gap + parts.last();
    }
    return lines.join('\n');
}

QCPTextElement* TextElement(QCustomPlot& plot, const QString& text, const QFont& font,
                            Qt::Alignment alignment) {
    auto* element = new QCPTextElement(&plot, text, font);
    element->setTextColor(ink);
    element->setTextFlags(alignment | Qt::TextDontClip);
    return element;
}

void LayOut(QCustomPlot& plot, const ChartModel& chart, const ChartScales& scales, QSize size) {
    QCPLayoutGrid& rows = *plot.plotLayout();
    rows.setRowSpacing(4);
    int row = 0;
    const auto insertAbove = [&](QCPLayoutElement* element) {
        rows.insertRow(row);
        rows.addElement(row++, 0, element);
    };
    const QFont large = FontOf(chart.titleFont, chart.titleSize);
    const QString title =
        Wrapped(QString::fromStdString(chart.title), " ", large, {size.width() - 40, size.height() / 8});
    insertAbove(TextElement(plot, title, large, Qt::AlignCenter));
    if (chart.legend && plot.plottableCount() > 0) {
        auto* line = new QCPLayoutGrid;
        insertAbove(line);
        plot.legend->setVisible(true);
        plot.legend->setFillOrder(QCPLegend::foColumnsFirst);
        plot.legend->setFont(FontOf(chart.font, 10));
        plot.legend->setTextColor(ink);
        plot.legend->setBorderPen(Qt::NoPen);
        plot.legend->setBrush(Qt::NoBrush);
        plot.legend->setMargins(QMargins(0, 0, 0, 0));
        plot.legend->setColumnSpacing(16);
        plot.legend->setIconTextPadding(12);
        // What lies beside the legend takes the width that the legend leaves.
        const int place = chart.legendPlace == LegendPlace::TopLeft ? 0 : 1;
        line->addElement(0, place, plot.legend);
        if (chart.legendPlace != LegendPlace::TopLeft)
            line->addElement(0, 0, new QCPLayoutElement);
        if (chart.legendPlace != LegendPlace::TopRight)
            line->addElement(0, place + 1, new QCPLayoutElement);
        line->setColumnStretchFactor(place, 0.001);
        rows.setRowStretchFactor(row - 1, 0.001);
    }
    const QFont small = FontOf(chart.footnoteFont, chart.footnoteSize);
    const QSize room(size.width() - 40, size.height() / 4);
    const auto addBelow = [&](const std::string& text, std::string_view gap) {
        if (text.empty())
            return;
        const QString lines =
            Wrapped(QString::fromStdString(text),
                    QString::fromUtf8(gap.data(), static_cast<qsizetype>(gap.size())), small, room);
        rows.addElement(rows.rowCount(), 0,
                        TextElement(plot, lines, small, Qt::AlignLeft | Qt::AlignVCenter));
    };
    addBelow(FootnoteText(chart), " ");
    addBelow(chart.rangesText, rangeGap);
    // Half of the last label stands beyond its axis.
    const QFontMetrics metrics(plot.xAxis->tickLabelFont());
    const int lastLabel =
        scales.x.major.empty()
            ? 0
            : metrics.horizontalAdvance(QString::fromStdString(TickLabel(scales.x, scales.x.major.back())));
    rows.setMargins(QMargins(10, 8, std::max(14, lastLabel / 2 + 4), 8));
}

} // namespace

void PaintChart(QCustomPlot& plot, const ChartModel& chart, QSize size) {
    const ChartScales scales = ScalesOf(chart);
    plot.setNoAntialiasingOnDrag(true);
    plot.setAntialiasedElements(QCP::aeAll);
    plot.setBackground(QBrush(chart.areaColour ? paleArea : QColor(Qt::white)));
    plot.axisRect()->setBackground(QBrush(chart.plotColour ? palePlot : QColor(Qt::white)));
    plot.setAutoAddPlottableToLegend(true);
    SetUpAxes(plot, chart, scales);
    if (chart.plotShadow || chart.areaShadow)
        (new ShadowItem(&plot, chart))->setLayer("background");
    AddSeries(plot, chart, scales, size);
    NameSeries(plot, chart);
    AddStatisticLines(plot, chart, scales);
    LayOut(plot, chart, scales, size);
}

QImage ChartImage(const ChartModel& chart, QSize size) {
    constexpr double dotsPerPixel = 2;
    QCustomPlot plot;
    plot.resize(size);
    PaintChart(plot, chart, size);
    QImage image = plot.toPixmap(size.width(), size.height(), dotsPerPixel).toImage();
    image.setDevicePixelRatio(1);
    constexpr double metresPerInch = 0.0254;
    const int dotsPerMetre = qRound(dotsPerPixel * pixelsPerInch / metresPerInch);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    return image.convertToFormat(QImage::Format_RGB32);
}

void PaintChartOn(QPaintDevice& device, const ChartModel& chart, QSize size, double scale) {
    QCustomPlot plot;
    plot.resize(size);
    PaintChart(plot, chart, size);
    QCPPainter painter;
    painter.begin(&device);
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    painter.scale(scale, scale);
    plot.toPainter(&painter, size.width(), size.height());
}

} // namespace corvane
