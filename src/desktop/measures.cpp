#include "desktop/measures.h"

#include <QApplication>
#include <QFont>
#include <QScreen>
#include <algorithm>

namespace corvane {

int Scaled(int length) {
    const QFont font = QApplication::font();
    const QScreen* screen = QGuiApplication::primaryScreen();
    constexpr double pointsPerInch = 72, usualDpi = 96, usualPoints = 10;
    const double dpi = screen ? screen->logicalDotsPerInch() : usualDpi;
    const double points = font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() * pointsPerInch / dpi;
    return qRound(length * std::max(1.0, points / usualPoints * dpi / usualDpi));
}

} // namespace corvane
