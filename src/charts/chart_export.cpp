#include "charts/chart_export.h"

#include "charts/chart_look.h"
#include "charts/chart_painter.h"
#include "charts/qt_environment.h"
#include "plots/axis_scale.h"

#include <QBuffer>
#include <QDateTime>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <qcustomplot.h>

namespace corvane {
namespace {

QByteArray Raster(const ChartModel& chart, QSize size, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    ChartImage(chart, size).save(&buffer, format);
    return bytes;
}

QByteArray Svg(const ChartModel& chart, QSize size) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(static_cast<int>(pixelsPerInch));
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(), size));
    generator.setTitle(QString::fromStdString(chart.title).toHtmlEscaped()); // written as it is
    PaintChartOn(generator, chart, size, 1);
    return bytes;
}

/// Sets the moment in every date of a PDF file. Dates of that form are UTC; blanks keep the file's offsets.
void SetPdfDates(QByteArray& pdf, std::int64_t moment) {
    const QByteArray date =
        "(D:" + QDateTime::fromSecsSinceEpoch(moment, Qt::UTC).toString("yyyyMMddHHmmss").toLatin1() + "Z)";
    const QByteArray key = "/CreationDate ";
    for (qsizetype at = 0; (at = pdf.indexOf(key, at)) >= 0;) {
        at += key.size();
        const qsizetype room = pdf.indexOf(')', at) + 1 - at;
        if (room >= date.size())
            pdf.replace(at, room, date.leftJustified(room, ' '));
    }
}

QByteArray Pdf(const ChartModel& chart, QSize size, std::optional<std::int64_t> created) {
    constexpr int resolution = 1200; // the writer rounds places to its dots
    constexpr double pointsPerInch = 72;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(resolution);
    writer.setTitle(QString::fromStdString(chart.title));
    writer.setCreator("Corvane");
    writer.setPageSize(QPageSize(QSizeF(size) * pointsPerInch / pixelsPerInch, QPageSize::Point));
    writer.setPageMargins(QMarginsF());
    PaintChartOn(writer, chart, size, resolution / pixelsPerInch);
    if (created)
        SetPdfDates(bytes, *created);
    return bytes;
}

QByteArray Bytes(const ChartModel& chart, ChartFormat format, QSize size,
                 std::optional<std::int64_t> created) {
    switch (format) {
    case ChartFormat::Svg:
        return Svg(chart, size);
    case ChartFormat::Png:
        return Raster(chart, size, "PNG");
    case ChartFormat::Pdf:
        return Pdf(chart, size, created);
    case ChartFormat::Bmp:
        return Raster(chart, size, "BMP");
    }
    return {};
}

} // namespace

std::string OutOfReach(const ChartModel& chart) {
    constexpr double farthest = 1e250; // about where QCustomPlot's ranges end
    const auto reaches = [](const std::optional<Extent>& extent, bool logarithmic) {
        return !extent || (extent->minimum > -farthest && extent->maximum < farthest &&
                           (!logarithmic || extent->minimum > 1 / farthest));
    };
    bool drawable = true;
    for (const ChartSeries& series : chart.series) {
        const PointExtents extents = ExtentsOf(series, chart.xAxis.logarithmic, chart.yAxis.logarithmic);
        drawable = drawable && reaches(extents.x, chart.xAxis.logarithmic) &&
                   reaches(extents.y, chart.yAxis.logarithmic);
    }
    const ChartScales scales = ScalesOf(chart);
    for (const AxisScale* scale : {&scales.x, &scales.y})
        drawable = drawable && QCPRange::validRange(scale->minimum, scale->maximum);
    return drawable ? "" : "its values are too large or too small a number to be drawn";
}

ChartPicture RenderChart(const ChartModel& chart, ChartFormat format, ChartSize size,
                         std::optional<std::int64_t> created) {
    if (const std::string reason = PrepareQt(); !reason.empty())
        return {{}, reason};
    if (const std::string reason = OutOfReach(chart); !reason.empty())
        return {{}, reason};
    const QByteArray bytes = Bytes(chart, format, {size.width, size.height}, created);
    if (bytes.isEmpty())
        return {{}, "the picture could not be made"};
    return {bytes.toStdString(), {}};
}

} // namespace corvane
