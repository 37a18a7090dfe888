#pragma once

#include <QColor>
#include <QFont>
#include <algorithm>
#include <string>

namespace corvane {

inline constexpr double pixelsPerInch = 96, pixelsPerPoint = pixelsPerInch / 72;

/// Of texts, frames and ticks.
inline const QColor ink(40, 40, 40);

/// A font of so many points, which has the same size on screen, in SVG and on paper.
inline QFont FontOf(const std::string& family, double points) {
    QFont font(QString::fromStdString(family));
    font.setPixelSize(std::max(1, qRound(points * pixelsPerPoint)));
    return font;
}

/// How Qt places a text, which may reach over its rectangle.
inline int TextFlags(Qt::Alignment alignment) {
    return static_cast<int>(alignment) | static_cast<int>(Qt::TextDontClip);
}

} // namespace corvane
