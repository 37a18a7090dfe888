#include "desktop/icons.h"

#include "desktop/theme_colours.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace corvane {
namespace {

/// Renders an icon when it is painted, so that it has the colours of that moment.
class ThemedIconEngine : public QIconEngine {
public:
    ThemedIconEngine(QString iconPath, QColor fixedColour)
        : path(std::move(iconPath)), fixed(std::move(fixedColour)) {}

    void paint(QPainter* painter, const QRect& box, QIcon::Mode mode, QIcon::State state) override {
        const double ratio = painter->device()->devicePixelRatio();
        painter->drawPixmap(box, scaledPixmap(box.size() * ratio, mode, state, ratio));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1);
    }

    /// `size` counts the device's pixels.
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal ratio) override {
        const QColor colour = ColourIn(mode);
        const QString key = QStringLiteral("%1 %2x%3 %4 %5")
                                .arg(path)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(colour.rgba())
                                .arg(ratio);
        QPixmap picture;
        if (QPixmapCache::find(key, &picture))
            return picture;
        picture = QPixmap(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        QSvgRenderer(path).render(&painter, QRectF(QPointF(), size));
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(), colour);
        painter.end();
        picture.setDevicePixelRatio(ratio);
        QPixmapCache::insert(key, picture);
        return picture;
    }

    QIconEngine* clone() const override { return new ThemedIconEngine(*this); }
    QString key() const override { return QStringLiteral("corvane"); }
    bool isNull() override { return false; }

private:
    QColor ColourIn(QIcon::Mode mode) const {
        const QPalette palette = QGuiApplication::palette();
        if (mode == QIcon::Disabled)
            return ColoursOf(palette).quiet;
        return fixed.isValid() ? fixed : palette.color(QPalette::ButtonText);
    }

    QString path;
    QColor fixed;
};

} // namespace

QIcon ThemedIcon(const QString& name) {
    return ColouredIcon(name, {});
}

QIcon ColouredIcon(const QString& name, const QColor& colour) {
    const QString path = QStringLiteral(":/corvane/icons/%1.svg").arg(name);
    return QFile::exists(path) ? QIcon(new ThemedIconEngine(path, colour)) : QIcon();
}

} // namespace corvane
