#pragma once

#include <QColor>
#include <QDateTime>
#include <QList>
#include <QObject>
#include <QString>

namespace corvane {

struct ThemeColours;

enum class MessageKind { Information, Warning, Error };

/// The sign that goes with a kind, so that its colour is not the only one.
QString IconNameOf(MessageKind kind);
QColor ColourOf(MessageKind kind, const ThemeColours& colours);

/// What a screen reader says before a message of this kind; empty for information.
QString WordOf(MessageKind kind);

struct KeptMessage {
    QDateTime time;
    MessageKind kind;
    QString title, text;
};

/// All messages that were shown, oldest first, so that one that has gone can be read again.
class MessageLog : public QObject {
    Q_OBJECT

public:
    /// The oldest go when there are more.
    static constexpr qsizetype mostMessages = 1000;

    void Keep(MessageKind kind, const QString& title, const QString& text);
    const QList<KeptMessage>& Messages() const { return messages; }

signals:
    void Kept();

private:
    QList<KeptMessage> messages;
};

} // namespace corvane
