#include "desktop/messages.h"

#include "desktop/theme_colours.h"

namespace corvane {

QString IconNameOf(MessageKind kind) {
    switch (kind) {
    case MessageKind::Warning:
        return QStringLiteral("warning");
    case MessageKind::Error:
        return QStringLiteral("error");
    case MessageKind::Information:
        break;
    }
    return QStringLiteral("info");
}

QColor ColourOf(MessageKind kind, const ThemeColours& colours) {
    switch (kind) {
    case MessageKind::Warning:
        return colours.warning;
    case MessageKind::Error:
        return colours.error;
    case MessageKind::Information:
        break;
    }
    return colours.ring;
}

QString WordOf(MessageKind kind) {
    switch (kind) {
    case MessageKind::Warning:
        return MessageLog::tr("Warning");
    case MessageKind::Error:
        return MessageLog::tr("Error");
    case MessageKind::Information:
        break;
    }
    return {};
}

void MessageLog::Keep(MessageKind kind, const QString& title, const QString& text) {
    if (messages.size() == mostMessages)
        messages.removeFirst();
    messages.append({QDateTime::currentDateTime(), kind, title, text});
    emit Kept();
}

} // namespace corvane
