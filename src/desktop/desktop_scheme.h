#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

namespace corvane {

/// Whether the desktop prefers dark windows, as its settings portal tells on D-Bus. Without a bus or a portal
/// it does not.
class DesktopScheme : public QObject {
    Q_OBJECT

public:
    /// Asks at once and waits 250 ms at most, so that the first window has its colours from the start; a
    /// portal that has yet to be started answers later, by `Changed`.
    explicit DesktopScheme(const QDBusConnection& bus, QObject* parent = nullptr);

    bool PrefersDark() const { return dark; }

signals:
    void Changed();

private slots:
    void TakeChange(const QDBusMessage& message);

private:
    void AskAgain();
    void Take(const QVariant& value);

    QDBusConnection connection;
    bool dark = false;
};

} // namespace corvane
