#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QImage>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace corvane::testing {

/// Relative luminance of sRGB, WCAG 2.1.
inline double Luminance(const QColor& colour) {
    const auto linear = [](double share) {
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// From 1 to 21, WCAG 2.1.
inline double Contrast(const QColor& one, const QColor& other) {
    const double a = Luminance(one), b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// A widget as it is painted when all that was asked of it has come through.
inline QImage PictureOf(QWidget& widget) {
    QCoreApplication::processEvents();
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// The colour that most pixels have.
inline QColor GroundOf(const QImage& picture) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    return std::max_element(counts.keyValueBegin(), counts.keyValueEnd(),
                            [](const auto& a, const auto& b) { return a.second < b.second; })
        ->first;
}

/// How far two colours lie apart, at most 765.
inline int Distance(const QColor& one, const QColor& other) {
    return std::abs(one.red() - other.red()) + std::abs(one.green() - other.green()) +
           std::abs(one.blue() - other.blue());
}

/// How many pixels have a colour, exactly or nearly.
inline int CountOf(const QImage& picture, const QColor& colour, int within = 0) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            count += Distance(picture.pixelColor(x, y), colour) <= within;
    return count;
}

} // namespace corvane::testing
