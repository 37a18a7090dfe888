#include "desktop/desktop_scheme.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace corvane {
namespace {

// The desktop portal's Settings interface, flatpak.github.io/xdg-desktop-portal.
constexpr auto service = "org.freedesktop.portal.Desktop", path = "/org/freedesktop/portal/desktop",
               interface = "org.freedesktop.portal.Settings", appearance = "org.freedesktop.appearance",
               colourScheme = "color-scheme";
constexpr uint prefersDark = 1; // 0 no preference, 2 light
constexpr int patienceInMilliseconds = 250;

QDBusMessage Question() {
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, "Read");
    message << appearance << colourScheme;
    return message;
}

/// `Read` answers with a variant within a variant, the signal with one.
QVariant Unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

DesktopScheme::DesktopScheme(const QDBusConnection& bus, QObject* parent) : QObject(parent), connection(bus) {
    if (!connection.isConnected())
        return;
    // A slot with a QDBusVariant is refused until somebody has registered that type; this one never is.
    connection.connect(service, path, interface, "SettingChanged", this, SLOT(TakeChange(QDBusMessage)));
    const QDBusMessage answer = connection.call(Question(), QDBus::Block, patienceInMilliseconds);
    if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty())
        Take(answer.arguments().first());
    else if (answer.errorName() == "org.freedesktop.DBus.Error.NoReply")
        AskAgain();
}

void DesktopScheme::AskAgain() {
    auto* watcher = new QDBusPendingCallWatcher(connection.asyncCall(Question()), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (reply.isValid())
            Take(reply.value().variant());
        watcher->deleteLater();
    });
}

void DesktopScheme::TakeChange(const QDBusMessage& message) {
    const QVariantList parts = message.arguments();
    if (parts.size() == 3 && parts[0] == QString(appearance) && parts[1] == QString(colourScheme))
        Take(parts[2]);
}

void DesktopScheme::Take(const QVariant& value) {
    const bool now = Unwrapped(value).toUInt() == prefersDark;
    if (now == dark)
        return;
    dark = now;
    emit Changed();
}

} // namespace corvane
