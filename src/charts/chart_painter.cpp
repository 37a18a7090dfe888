#include "charts/chart_painter.h"

#include "charts/chart_items.h"
#include "plots/chart_operations.h"
#include "plots/thinning.h"

#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

constexpr double pixelsPerPoint = 96.0 / 72.0;
const QColor ink(40, 40, 40), paleArea(244, 243, 238), palePlot(251, 250, 245), gridInk(222, 222, 222);

QFont FontOf(const std::string& family, double points) {
    QFont font(QString::fromStdString(family));
    font.setPixelSize(std::max(1, qRound(points * pixelsPerPoint))); // the same on screen, SVG and paper
    return font;
}

/// Ticks and labels of the chart's own scale, and of any other range when the axis is moved or zoomed.
class ScaleTicker : public QCPAxisTicker {
public:
    ScaleTicker(AxisScale axisScale, ChartAxis chartAxis)
        : scale(std::move(axisScale)), axis(std::move(chartAxis)) {}

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
    }

private:
    AxisScale Moved(const QCPRange& range) const {
        ChartAxis moved = axis;
        moved.automatic = false;
        moved.minimum = range.lower;
        moved.maximum = range.upper;
        moved.majorStep = 0;
        return ScaleOf(moved, {range.lower, range.upper});
    }

    AxisScale scale;
    ChartAxis axis;
};

/// The names of a histogram's bins, as many as there is room for.
QSharedPointer<QCPAxisTicker> CategoryTicker(const ChartModel& chart) {
    constexpr std::size_t mostLabels = 14;
    QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
    const std::size_t every = (chart.categories.size() + mostLabels - 1) / mostLabels;
    for (std::size_t k = 0; k < chart.categories.size(); k += std::max<std::size_t>(1, every))
        ticker->addTick(static_cast<double>(k + 1), QString::fromStdString(chart.categories[k]));
    return ticker;
}

void SetUpAxis(QCPAxis& axis, const ChartModel& chart, const ChartAxis& asked, const AxisScale& scale) {
    axis.setScaleType(scale.logarithmic ? QCPAxis::stLogarithmic : QCPAxis::stLinear);
    axis.setRange(scale.minimum, scale.maximum);
    axis.setLabel(QString::fromStdString(asked.title));
    axis.setLabelFont(FontOf(chart.font, asked.titleSize));
    axis.setTickLabelFont(FontOf(chart.font, asked.labelSize));
    axis.setLabelColor(ink);
    axis.setTickLabelColor(ink);
    axis.grid()->setVisible(asked.gridlines);
    axis.grid()->setPen(QPen(gridInk, 1));
    axis.grid()->setZeroLinePen(Qt::NoPen);
    axis.setLabelPadding(6);
    axis.setTickLabelPadding(7);
}

void SetUpAxes(QCustomPlot& plot, const ChartModel& chart, const ChartScales& scales) {
    SetUpAxis(*plot.xAxis, chart, chart.xAxis, scales.x);
    SetUpAxis(*plot.yAxis, chart, chart.yAxis, scales.y);
    plot.yAxis->setTicker(QSharedPointer<QCPAxisTicker>(new ScaleTicker(scales.y, chart.yAxis)));
    if (chart.style == ChartStyle::Scatter)
        plot.xAxis->setTicker(QSharedPointer<QCPAxisTicker>(new ScaleTicker(scales.x, chart.xAxis)));
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

/// A curve through places along the whole axis, which a straight line is not on a logarithmic one.
QCPGraph* AddLine(QCustomPlot& plot, const ChartScales& scales, double intercept, double slope, double from,
                  double to) {
    constexpr int places = 200;
    QCPGraph* graph = plot.addGraph();
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
    QCPGraph* graph = plot.addGraph();
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
    graph->setPen(share < 1 ? QPen(Qt::NoPen) : QPen(Qt::white, 0.8));
    if (series.marker == Marker::Cross) {
        graph->setScatterStyle(
            QCPScatterStyle(QCPScatterStyle::ssCross, QPen(colour, 1.6), Qt::NoBrush, across));
        return;
    }
    colour.setAlphaF(static_cast<float>(std::clamp(4 * share, 0.35, 1.0)));
    graph->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssCircle, Qt::NoPen, QBrush(colour), across));
}

void AddScatterSeries(QCustomPlot& plot, const ChartSeries& series, const ChartScales& scales, QSize size) {
    if (series.line) {
        const auto extent = ExtentOf({series.x}, scales.x.logarithmic);
        if (!extent)
            return;
        AddLine(plot, scales, 0, 1, extent->minimum, extent->maximum)
            ->setPen(QPen(ColourOf(series.colour), 1.6));
    } else {
        AddPoints(plot, series, scales, size);
    }
}

void AddBars(QCustomPlot& plot, const ChartModel& chart) {
    auto* group = new QCPBarsGroup(&plot);
    group->setSpacingType(QCPBarsGroup::stPlotCoords);
    group->setSpacing(0);
    constexpr double together = 0.8;
    for (const ChartSeries& series : chart.series) {
        auto* bars = new QCPBars(plot.xAxis, plot.yAxis);
        bars->setBarsGroup(group);
        bars->setWidth(together / static_cast<double>(chart.series.size()));
        bars->setBrush(ColourOf(series.colour));
        bars->setPen(QPen(ColourOf(series.colour).darker(150), 1));
        for (std::size_t k = 0; k < series.y->size(); ++k)
            bars->addData(static_cast<double>(k + 1), (*series.y)[k]);
    }
}

void AddCurve(QCustomPlot& plot, const ChartModel& chart, const ChartSeries& series) {
    QCPGraph* graph = plot.addGraph();
    const bool steps = chart.style == ChartStyle::Step;
    for (std::size_t k = 0; k < series.y->size(); ++k) {
        const double centre = static_cast<double>(k + 1), y = (*series.y)[k];
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
        AddBars(plot, chart);
    } else {
        for (const ChartSeries& series : chart.series)
            if (chart.style == ChartStyle::Scatter)
                AddScatterSeries(plot, series, scales, size);
            else
                AddCurve(plot, chart, series);
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
            graph->setPen(QPen(ColourOf(chart.statisticLines.colour), chart.statisticLines.width,
                               line.dashed ? Qt::DashLine : Qt::SolidLine));
            graph->removeFromLegend();
        }
}

/// A text broken at blanks so that it fits a width; what goes beyond the lines is cut with "...".
QString Wrapped(const QString& text, const QFont& font, int width, int mostLines) {
    const QFontMetrics metrics(font);
    if (metrics.horizontalAdvance(text) <= width)
        return text;
    QStringList lines(QString{});
    for (const QString& word : text.split(' ', Qt::SkipEmptyParts)) {
        const QString longer = lines.last().isEmpty() ? word : lines.last() + ' ' + word;
        if (metrics.horizontalAdvance(longer) <= width) {
            lines.last() = longer;
        } else if (lines.size() == mostLines) {
            lines.last() += QStringLiteral(" ...");
            break;
        } else {
            lines.append(word);
        }
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

void LayOut(QCustomPlot& plot, const ChartModel& chart, QSize size) {
    QCPLayoutGrid& rows = *plot.plotLayout();
    rows.setRowSpacing(4);
    int row = 0;
    const auto insertAbove = [&](QCPLayoutElement* element) {
        rows.insertRow(row);
        rows.addElement(row++, 0, element);
    };
    insertAbove(TextElement(plot, QString::fromStdString(chart.title), FontOf(chart.font, chart.titleSize),
                            Qt::AlignCenter));
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
        line->addElement(0, 0, plot.legend);
        line->addElement(0, 1, new QCPLayoutElement);
        line->setColumnStretchFactor(0, 0.001);
        rows.setRowStretchFactor(row - 1, 0.001);
    }
    const QFont small = FontOf(chart.font, chart.footnoteSize);
    int last = rows.rowCount();
    for (const std::string& text : {FootnoteText(chart), chart.rangesText})
        if (!text.empty())
            rows.addElement(last++, 0,
                            TextElement(plot,
                                        Wrapped(QString::fromStdString(text), small, size.width() - 40, 3),
                                        small, Qt::AlignLeft | Qt::AlignVCenter));
    rows.setMargins(QMargins(10, 8, 14, 8));
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
    LayOut(plot, chart, size);
}

} // namespace corvane
