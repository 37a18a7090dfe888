#include "charts/chart_painter.h"

#include "charts/chart_axes.h"
#include "charts/chart_items.h"
#include "charts/chart_look.h"
#include "charts/chart_series.h"
#include "plots/chart_operations.h"

#include <algorithm>

namespace corvane {
namespace {

const QColor paleArea(244, 243, 238), palePlot(236, 243, 248);

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
    element->setTextFlags(TextFlags(alignment));
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
    // Half of the last label reaches beyond its axis.
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
