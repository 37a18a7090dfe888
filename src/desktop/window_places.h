#pragma once

#include <QHash>
#include <QList>
#include <QPointer>
#include <QRect>
#include <QSettings>
#include <QWidget>

namespace corvane {

/// A place moved, and where need be made smaller, so that all of it lies on the screen with which it shares
/// most; on the first screen where it shares nothing with any.
QRect MovedIn(const QRect& place, const QList<QRect>& screens);

/// Where the windows of each kind stood, in a small file of their own: size and place, whether they filled
/// the screen, splitters and docks. A file that cannot be read is as none; one that cannot be written costs
/// the memory of places and nothing else.
class WindowPlaces {
public:
    explicit WindowPlaces(const QString& file);

    /// "<the user's configuration folder>/corvane/windows.ini".
    static QString DefaultFile(const QString& configurationFolder);

    /// Gives a window that is not yet shown the size and place of its kind, otherwise `size` and the
    /// desktop's choice of place. While others of the kind are open, each further one stands 24 px off the
    /// last.
    void Restore(QWidget& window, const QString& kind, const QSize& size);

    /// Remembers the window, and its splitters and docks by their object names; call it when it closes.
    void Keep(QWidget& window, const QString& kind);

    /// Folds, column widths and other such habits of a kind of window.
    QVariant Habit(const QString& kind, const QString& name, const QVariant& byDefault = {}) const;
    void SetHabit(const QString& kind, const QString& name, const QVariant& value);

private:
    mutable QSettings settings;
    QHash<QString, QList<QPointer<QWidget>>> open; ///< By kind, in the order of opening.
};

} // namespace corvane
