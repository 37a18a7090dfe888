#include "desktop/window_places.h"

#include "desktop/measures.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QSplitter>
#include <QWidget>
#include <algorithm>

namespace corvane {
namespace {

constexpr int stepBetweenWindows = 24;

QList<QRect> Screens() {
    QList<QRect> areas;
    for (const QScreen* screen : QGuiApplication::screens())
        areas.append(screen->availableGeometry());
    return areas;
}

QString Key(const QString& kind, const QString& name) {
    return kind + "/" + name;
}

QString SplitterKey(const QString& kind, const QSplitter& splitter) {
    return Key(kind, "splitter " + splitter.objectName());
}

QList<QSplitter*> NamedSplitters(QWidget& window) {
    QList<QSplitter*> named = window.findChildren<QSplitter*>();
    named.removeIf([](const QSplitter* splitter) { return splitter->objectName().isEmpty(); });
    return named;
}

} // namespace

QRect MovedIn(const QRect& place, const QList<QRect>& screens) {
    if (screens.isEmpty())
        return place;
    const auto shared = [&place](const QRect& screen) {
        const QRect common = screen & place;
        return common.isEmpty() ? qint64(0) : qint64(common.width()) * common.height();
    };
    const QRect& screen = *std::max_element(
        screens.begin(), screens.end(), [&](const auto& a, const auto& b) { return shared(a) < shared(b); });
    const QSize size = place.size().boundedTo(screen.size());
    return {QPoint(std::clamp(place.left(), screen.left(), screen.right() - size.width() + 1),
                   std::clamp(place.top(), screen.top(), screen.bottom() - size.height() + 1)),
            size};
}

WindowPlaces::WindowPlaces(const QString& file) : settings(file, QSettings::IniFormat) {}

QString WindowPlaces::DefaultFile(const QString& configurationFolder) {
    return configurationFolder + "/corvane/windows.ini";
}

void WindowPlaces::Restore(QWidget& window, const QString& kind, const QSize& size) {
    QList<QPointer<QWidget>>& others = open[kind];
    others.removeAll(nullptr);
    const QRect kept = settings.value(Key(kind, "place")).toRect();
    const QSize wanted(Scaled(size.width()), Scaled(size.height()));
    QRect place(QPoint(), kept.isValid() ? kept.size() : wanted);
    place.setSize(place.size().expandedTo(window.minimumSize()));
    const bool known = kept.isValid() || !others.isEmpty();
    if (!others.isEmpty())
        place.moveTopLeft(others.last()->pos() + QPoint(stepBetweenWindows, stepBetweenWindows));
    else if (kept.isValid())
        place.moveTopLeft(kept.topLeft());
    const QRect inside =
        MovedIn(known ? place : QRect(Screens().value(0).topLeft(), place.size()), Screens());
    window.resize(inside.size());
    if (known)
        window.move(inside.topLeft());
    if (others.isEmpty() && settings.value(Key(kind, "maximised")).toString() == "true")
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
    for (QSplitter* splitter : NamedSplitters(window))
        splitter->restoreState(settings.value(SplitterKey(kind, *splitter)).toByteArray());
    if (auto* main = qobject_cast<QMainWindow*>(&window))
        main->restoreState(settings.value(Key(kind, "docks")).toByteArray());
    others.append(&window);
}

void WindowPlaces::Keep(QWidget& window, const QString& kind) {
    open[kind].removeAll(&window);
    const bool maximised = window.isMaximized() || window.isFullScreen();
    // With the frame its place, without it its size: what move() and resize() take.
    const QRect normal = maximised ? window.normalGeometry() : QRect(window.pos(), window.size());
    settings.setValue(Key(kind, "place"), normal);
    settings.setValue(Key(kind, "maximised"), window.isMaximized());
    for (const QSplitter* splitter : NamedSplitters(window))
        settings.setValue(SplitterKey(kind, *splitter), splitter->saveState());
    if (auto* main = qobject_cast<QMainWindow*>(&window))
        settings.setValue(Key(kind, "docks"), main->saveState());
    settings.sync();
}

QVariant WindowPlaces::Habit(const QString& kind, const QString& name, const QVariant& byDefault) const {
    return settings.value(Key(kind, name), byDefault);
}

void WindowPlaces::SetHabit(const QString& kind, const QString& name, const QVariant& value) {
    settings.setValue(Key(kind, name), value);
}

} // namespace corvane
