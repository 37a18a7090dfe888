#include "charts/chart_axes.h"

#include "charts/chart_look.h"
#include "plots/chart_operations.h"

#include <algorithm>
#include <limits>

namespace corvane {
namespace {

const QColor gridInk(222, 222, 222);
constexpr double besides = 100; // about what is left and right of the axes, in pixels

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
        LeaveRoom(shown, *tickLabels);
    }

private:
    /// Empties the labels that would overlap the one before them. Where the axis will lie is not known yet.
    void LeaveRoom(const AxisScale& shown, QVector<QString>& labels) const {
        const QFontMetrics metrics(drawn.tickLabelFont());
        const bool across = drawn.orientation() == Qt::Horizontal;
        const QWidget& sheet = *drawn.parentPlot();
        const double gap = across ? 12 : 2,
                     length = across ? sheet.width() - besides : sheet.height() - 1.5 * besides;
        double end = -std::numeric_limits<double>::infinity();
        for (qsizetype k = 0; k < labels.size(); ++k) {
            const double size = across ? metrics.horizontalAdvance(labels[k]) : metrics.height();
            const double middle = length * Position(shown, shown.major[static_cast<std::size_t>(k)]);
            if (middle - size / 2 < end + gap)
                labels[k].clear();
            else
                end = middle + size / 2;
        }
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

/// The names of a histogram's bins, as many as there is room for.
QSharedPointer<QCPAxisTicker> CategoryTicker(const QCPAxis& axis, const ChartModel& chart) {
    const double each =
        1.4 *
        QFontMetrics(axis.tickLabelFont()).horizontalAdvance(QString::fromStdString(chart.categories.back()));
    const auto mostLabels =
        static_cast<std::size_t>(std::max(1.0, (axis.parentPlot()->width() - besides) / each));
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

} // namespace

void SetUpAxes(QCustomPlot& plot, const ChartModel& chart, const ChartScales& scales) {
    SetUpAxis(*plot.xAxis, chart.xAxis, scales.x);
    SetUpAxis(*plot.yAxis, chart.yAxis, scales.y);
    plot.yAxis->setTicker(QSharedPointer<QCPAxisTicker>(new ScaleTicker(*plot.yAxis, scales.y, chart.yAxis)));
    if (chart.style == ChartStyle::Scatter)
        plot.xAxis->setTicker(
            QSharedPointer<QCPAxisTicker>(new ScaleTicker(*plot.xAxis, scales.x, chart.xAxis)));
    else
        plot.xAxis->setTicker(CategoryTicker(*plot.xAxis, chart));
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

} // namespace corvane
