#include "charts/chart_export.h"

#include "charts/chart_painter.h"
#include "charts/qt_environment.h"
#include "core/format/text_lists.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <qcustomplot.h>

namespace corvane {
namespace {

constexpr double pixelsPerInch = 96;

QByteArray Raster(QCustomPlot& plot, ChartSize size, const char* format) {
    constexpr double dotsPerPixel = 2;
    QImage image = plot.toPixmap(size.width, size.height, dotsPerPixel).toImage();
    image.setDevicePixelRatio(1);
    const int dotsPerMetre = qRound(dotsPerPixel * pixelsPerInch / 0.0254);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.convertToFormat(QImage::Format_RGB32).save(&buffer, format);
    return bytes;
}

void PaintVector(QCustomPlot& plot, ChartSize size, QPaintDevice& device, double scale) {
    QCPPainter painter;
    painter.begin(&device);
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    painter.scale(scale, scale);
    plot.toPainter(&painter, size.width, size.height);
}

QByteArray Svg(QCustomPlot& plot, ChartSize size, const ChartModel& chart) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(static_cast<int>(pixelsPerInch));
    generator.setSize({size.width, size.height});
    generator.setViewBox(QRect(0, 0, size.width, size.height));
    generator.setTitle(QString::fromStdString(chart.title));
    PaintVector(plot, size, generator, 1);
    return bytes;
}

QByteArray Pdf(QCustomPlot& plot, ChartSize size, const ChartModel& chart) {
    constexpr int resolution = 1200; // the writer rounds places to its dots
    constexpr double pointsPerInch = 72;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(resolution);
    writer.setTitle(QString::fromStdString(chart.title));
    writer.setCreator("Corvane");
    writer.setPageSize(
        QPageSize(QSizeF(size.width, size.height) * pointsPerInch / pixelsPerInch, QPageSize::Point));
    writer.setPageMargins(QMarginsF());
    PaintVector(plot, size, writer, resolution / pixelsPerInch);
    return bytes;
}

} // namespace

std::optional<ChartFormat> ChartFormatOf(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    const std::string ending = dot == std::string_view::npos ? "" : UpperCase(path.substr(dot + 1));
    if (ending == "SVG")
        return ChartFormat::Svg;
    if (ending == "PNG")
        return ChartFormat::Png;
    if (ending == "PDF")
        return ChartFormat::Pdf;
    if (ending == "BMP")
        return ChartFormat::Bmp;
    return std::nullopt;
}

ChartPicture RenderChart(const ChartModel& chart, ChartFormat format, ChartSize size) {
    if (const std::string reason = PrepareQt(); !reason.empty())
        return {{}, reason};
    QCustomPlot plot;
    plot.resize(size.width, size.height);
    PaintChart(plot, chart, {size.width, size.height});
    QByteArray bytes;
    switch (format) {
    case ChartFormat::Svg:
        bytes = Svg(plot, size, chart);
        break;
    case ChartFormat::Png:
        bytes = Raster(plot, size, "PNG");
        break;
    case ChartFormat::Pdf:
        bytes = Pdf(plot, size, chart);
        break;
    case ChartFormat::Bmp:
        bytes = Raster(plot, size, "BMP");
        break;
    }
    if (bytes.isEmpty())
        return {{}, "the picture could not be made"};
    return {bytes.toStdString(), {}};
}

} // namespace corvane
