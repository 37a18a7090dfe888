#include "desktop/single_instance.h"

#include "support/golden.h"
#include "support/temporary_folder.h"

#include <QFileInfo>
#include <QLocalSocket>
#include <QProcess>
#include <QTest>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace corvane::testing {
namespace {

using HandOver = SingleInstance::HandOver;
constexpr int wasFirst = 100;

struct SingleInstanceTest : ::testing::Test {
    std::unique_ptr<QProcess> Start(const QString& line) {
        auto peer = std::make_unique<QProcess>();
        peer->start(CORVANE_PEER, {QString::fromStdString(folder.Path()), line});
        return peer;
    }
    /// Starts one that becomes the first, and waits until it listens.
    std::unique_ptr<QProcess> StartFirst() {
        auto peer = Start("");
        EXPECT_TRUE(peer->waitForReadyRead()) << "it became no first";
        EXPECT_EQ(peer->readLine().trimmed(), "first");
        return peer;
    }
    int ExitOf(QProcess& peer) {
        EXPECT_TRUE(peer.waitForFinished());
        return peer.exitCode();
    }
    HandOver Hand(const QString& line) { return static_cast<HandOver>(ExitOf(*Start(line))); }
    QStringList Lines() {
        return QString::fromStdString(ReadBytes(folder / "lines")).split('\n', Qt::SkipEmptyParts);
    }

    TemporaryFolder folder;
};

TEST_F(SingleInstanceTest, OfManyStartsOneIsFirstAndHearsTheOthers) {
    std::vector<std::unique_ptr<QProcess>> peers;
    for (int i = 0; i < 6; ++i)
        peers.push_back(Start(QStringLiteral("line %1").arg(i)));
    int done = 0;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            done = 0;
            for (const auto& peer : peers)
                done += peer->state() == QProcess::NotRunning;
            return done == 5;
        },
        20000))
        << done;
    EXPECT_EQ(Lines().size(), 5);
    struct stat socket {};
    ASSERT_EQ(::stat((folder / "corvane.socket").c_str(), &socket), 0);
    EXPECT_EQ(socket.st_mode & 0077U, 0U) << "nobody else can open it";
    EXPECT_EQ(Hand("quit"), HandOver::Done);
    for (const auto& peer : peers)
        if (peer->state() != QProcess::NotRunning || peer->exitCode() != 0) {
            EXPECT_EQ(ExitOf(*peer), wasFirst);
        }
}

TEST_F(SingleInstanceTest, TheAnswerComesWhenTheLineIsCarriedOut) {
    auto first = StartFirst();
    EXPECT_EQ(Hand("slow"), HandOver::Done);
    EXPECT_EQ(Lines(), QStringList{"slow"});

    // What speaks otherwise or says nothing is let go, and the next is heard.
    QLocalSocket stranger, silent;
    silent.connectToServer(QString::fromStdString(folder / "corvane.socket"));
    stranger.connectToServer(QString::fromStdString(folder / "corvane.socket"));
    ASSERT_TRUE(stranger.waitForConnected());
    stranger.write(QByteArray(2 << 20, '\x7f'));
    while (stranger.bytesToWrite() > 0 && stranger.waitForBytesWritten(2000)) {
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return stranger.state() == QLocalSocket::UnconnectedState; }));
    EXPECT_EQ(Hand("after"), HandOver::Done);

    EXPECT_EQ(Hand("die"), HandOver::Lost);
    EXPECT_EQ(ExitOf(*first), 9);
}

TEST_F(SingleInstanceTest, ADeadFirstIsReplacedAndAHungOneIsNot) {
    auto first = StartFirst();
    ::kill(static_cast<pid_t>(first->processId()), SIGSTOP);
    EXPECT_EQ(Hand("unheard"), HandOver::NoAnswer);
    first->kill();
    first->waitForFinished();
    EXPECT_TRUE(QFileInfo::exists(QString::fromStdString(folder / "corvane.socket")))
        << "a dead socket is left";
    auto next = StartFirst();
    EXPECT_EQ(Hand("heard"), HandOver::Done);
    EXPECT_EQ(Lines(), QStringList{"heard"});
    EXPECT_EQ(Hand("quit"), HandOver::Done);
    EXPECT_EQ(ExitOf(*next), wasFirst);
}

TEST_F(SingleInstanceTest, WithoutAFolderEveryStartIsFirst) {
    for (const QString& place : {QString(), QString("/proc/nowhere")}) {
        SingleInstance alone(place);
        EXPECT_TRUE(alone.First());
        QString fault;
        EXPECT_FALSE(alone.Listen([](const QByteArray&, const auto&) {}, fault));
        EXPECT_FALSE(fault.isEmpty());
    }
}

} // namespace
} // namespace corvane::testing
