#pragma once

#include "desktop/theme_colours.h"

#include <QDBusConnection>
#include <QObject>
#include <memory>

class QAbstractButton;

namespace corvane {

class DesktopScheme;
class FocusRing;

enum class ThemeChoice { Desktop, Light, Dark };

/// The look of all windows: style, focus ring and palettes, switched while they are open. There is one, made
/// after the application and before the first window.
class Theme : public QObject {
    Q_OBJECT

public:
    explicit Theme(QDBusConnection bus = QDBusConnection::sessionBus(), QObject* parent = nullptr);
    ~Theme() override;

    void Choose(ThemeChoice newChoice);
    ThemeChoice Choice() const { return choice; }
    const ThemeColours& Colours() const;

signals:
    /// Sent from the event loop after all widgets have their new palette: for what does not follow it by
    /// itself, such as charts and highlighted text.
    void Changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Apply();
    void Finish();

    QDBusConnection connection;
    ThemeChoice choice = ThemeChoice::Light;
    std::unique_ptr<DesktopScheme> scheme; ///< Once the desktop's choice was wanted.
    std::unique_ptr<FocusRing> ring;
};

/// Makes a button the one that does its window's work: filled in the accent, its icon in white. A window has
/// at most one.
void MakeAccent(QAbstractButton& button);

} // namespace corvane
