#include "desktop/single_instance.h"

#include <QDataStream>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QPointer>
#include <QStandardPaths>
#include <QThread>

namespace corvane {
namespace {

// The sender writes its line as a QByteArray of QDataStream; the answer is a byte when the line was taken and
// another when it has been carried out.
constexpr char taken = 't', carriedOut = 'd';
constexpr auto streamVersion = QDataStream::Qt_6_0;

/// Whether the next byte is the expected one; waits for it until the deadline.
bool WaitForByte(QLocalSocket& socket, char expected, QDeadlineTimer deadline) {
    while (socket.bytesAvailable() == 0)
        if (!socket.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return false;
    char byte = 0;
    return socket.getChar(&byte) && byte == expected;
}

bool Connect(QLocalSocket& socket, const QString& path) {
    constexpr int tries = 20, pauseInMilliseconds = 50;
    for (int i = 0; i < tries; ++i) {
        socket.connectToServer(path);
        if (socket.waitForConnected(pauseInMilliseconds))
            return true;
        QThread::msleep(pauseInMilliseconds);
    }
    return false;
}

} // namespace

QString SingleInstance::DefaultFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

SingleInstance::SingleInstance(const QString& folder, QObject* parent)
    : QObject(parent), socketPath(folder + "/corvane.socket"), lock(folder + "/corvane.lock") {
    lock.setStaleLockTime(0); // old is not dead: only the end of its process frees it
    first = folder.isEmpty() || lock.tryLock() || lock.error() != QLockFile::LockFailedError;
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::Listen(Handler newHandler, QString& fault) {
    if (!lock.isLocked()) {
        fault = tr("Other starts of the program cannot reach this one: '%1' cannot be written.")
                    .arg(QDir::toNativeSeparators(socketPath));
        return false;
    }
    handler = std::move(newHandler);
    // The lock is ours, so a socket in this place is one that a dead process left.
    QLocalServer::removeServer(socketPath);
    server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server, &QLocalServer::newConnection, this, &SingleInstance::Receive);
    if (server.listen(socketPath))
        return true;
    fault = server.errorString();
    return false;
}

void SingleInstance::Receive() {
    while (QLocalSocket* socket = server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { Read(*socket); });
        Read(*socket); // it may have come with the connection
    }
}

void SingleInstance::Read(QLocalSocket& socket) {
    constexpr qsizetype streamOverhead = 8;
    QDataStream stream(&socket);
    stream.setVersion(streamVersion);
    stream.startTransaction();
    QByteArray line;
    stream >> line;
    if (!stream.commitTransaction()) {
        if (stream.status() != QDataStream::ReadPastEnd ||
            socket.bytesAvailable() > mostBytes + streamOverhead)
            socket.abort();
        return;
    }
    disconnect(&socket, &QLocalSocket::readyRead, this, nullptr);
    socket.putChar(taken);
    socket.flush();
    handler(line, [sender = QPointer<QLocalSocket>(&socket)] {
        if (!sender)
            return;
        sender->putChar(carriedOut);
        sender->flush();
        sender->disconnectFromServer();
    });
}

SingleInstance::HandOver SingleInstance::Send(const QByteArray& line, std::chrono::milliseconds patience) {
    QLocalSocket socket;
    if (line.size() > mostBytes || !Connect(socket, socketPath))
        return HandOver::NoAnswer;
    QDataStream stream(&socket);
    stream.setVersion(streamVersion);
    stream << line;
    socket.flush();
    if (!WaitForByte(socket, taken, QDeadlineTimer(patience)))
        return HandOver::NoAnswer;
    return WaitForByte(socket, carriedOut, QDeadlineTimer(QDeadlineTimer::Forever)) ? HandOver::Done
                                                                                    : HandOver::Lost;
}

} // namespace corvane
