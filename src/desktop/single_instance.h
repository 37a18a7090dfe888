#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <functional>
#include <memory>

namespace corvane {

/// Sees to it that one process of a user has the windows. A lock file decides who that is; the others hand
/// their lines to it over a socket that only the user can open. A process that was killed leaves nothing
/// that stands in the way of the next.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    /// `folder` is private to the user; empty or unusable, every process is the first and hears nobody.
    explicit SingleInstance(const QString& folder = DefaultFolder(), QObject* parent = nullptr);
    ~SingleInstance() override;

    static QString DefaultFolder();

    bool First() const { return first; }

    /// Called in the first process with each line, which may be any bytes; it calls `done` when all that the
    /// line asks for has been carried out, then or later.
    using Handler = std::function<void(const QByteArray& line, std::function<void()> done)>;

    /// Begins to hear; false, with a reason, where no socket can be made.
    bool Listen(Handler newHandler, QString& fault);

    enum class HandOver {
        Done,     ///< The first process has carried the line out.
        NoAnswer, ///< It could not be reached, or did not take the line in time.
        Lost      ///< It took the line and ended before it was done.
    };

    /// Hands a line over and waits until it has been carried out, however long that takes once the first
    /// process has taken it. It may be about to listen, so reaching it is tried for a second.
    HandOver Send(const QByteArray& line, std::chrono::milliseconds patience = std::chrono::seconds(10));

    /// A line is at most this long.
    static constexpr qsizetype mostBytes = 1 << 20;

private:
    void Receive();
    void Read(QLocalSocket& socket);

    QString socketPath;
    QLockFile lock;
    bool first = false;
    QLocalServer server;
    Handler handler;
};

} // namespace corvane
