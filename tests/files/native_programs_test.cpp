#include "platform/native/native_programs.h"

#include "platform/native/interruption.h"
#include "support/golden.h"
#include "support/port_fakes.h" // compiled here until a window uses them
#include "support/temporary_folder.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace corvane {
namespace {

using std::chrono::milliseconds;
constexpr milliseconds ample{20000};

struct Kept {
    std::string output, errors;
    OutputSink Sink() {
        return [this](OutputStream stream, std::string_view piece) {
            (stream == OutputStream::Output ? output : errors) += piece;
        };
    }
};

TEST(NativeProgramsTest, HandsOutputOverAndTellsHowItEnded) {
    const testing::TemporaryFolder folder;
    NativePrograms programs;
    struct Case {
        const char* script;
        std::size_t output;
        std::string errors;
        int exit;
    };
    for (const Case& c : {Case{"cat; pwd -P | head -c 3; echo oops >&2; exit 3", 3, "oops\n", 3},
                          {"head -c 500000 /dev/zero", 500000, "", 0},    // more than a pipe holds
                          {"exec >&- 2>&-; sleep 0.1; exit 4", 0, "", 4}, // the streams end first
                          {"sleep 60 & printf x", 1, "", 0},              // a child keeps them open
                          {"kill -KILL $$", 0, "", 128 + SIGKILL}}) {
        std::string reason;
        const auto program = programs.Start({{"sh", "-c", c.script}, folder.Path()}, reason);
        ASSERT_TRUE(program) << reason;
        Kept kept;
        EXPECT_EQ(program->Wait(ample, kept.Sink()), c.exit) << c.script;
        EXPECT_EQ(kept.output.size(), c.output) << c.script;
        EXPECT_EQ(kept.errors, c.errors) << c.script;
        EXPECT_EQ(program->Wait(milliseconds{0}, kept.Sink()), c.exit) << c.script;
    }
    std::string reason;
    EXPECT_FALSE(programs.Start({{"no-such-program-here"}}, reason));
    EXPECT_EQ(reason, "no-such-program-here: No such file or directory");
    EXPECT_FALSE(programs.Start({}, reason));
}

/// Whether the process has gone within a second or so.
bool Gone(pid_t process) {
    for (int i = 0; i < 200; ++i) {
        if (::kill(process, 0) != 0)
            return true;
        // A killed orphan may wait for the system's reaper; it is a zombie by then.
        const std::string state = testing::ReadBytes("/proc/" + std::to_string(process) + "/stat");
        if (state.find(") Z ") != std::string::npos)
            return true;
        std::this_thread::sleep_for(milliseconds{10});
    }
    return false;
}

TEST(NativeProgramsTest, WaitHasALimitAndTheEndTakesTheChildrenToo) {
    NativePrograms programs;
    // It answers the request to end by itself, its child is deaf to it; then one that is deaf itself.
    for (const auto& [script, exit] :
         {std::pair{"trap 'exit 7' TERM; (trap '' TERM; sleep 60) & echo $!; while :; do sleep 0.01; done",
                    7},
          {"trap '' TERM; sleep 60 & echo $!; while :; do sleep 0.01; done", 128 + SIGKILL}}) {
        std::string reason;
        auto program = programs.Start({{"sh", "-c", script}}, reason);
        ASSERT_TRUE(program) << reason;
        Kept kept;
        while (kept.output.find('\n') == std::string::npos)
            ASSERT_EQ(program->Wait(milliseconds{20}, kept.Sink()), std::nullopt);
        program->End(milliseconds{exit == 7 ? 20000 : 50});
        EXPECT_EQ(program->Wait(milliseconds{0}, kept.Sink()), exit) << script;
        EXPECT_TRUE(Gone(static_cast<pid_t>(std::stol(kept.output)))) << script;
    }
}

TEST(InterruptionTest, TheFirstSignalAsksForAStopAndTheSecondEnds) {
    const pid_t child = ::fork();
    if (child == 0) {
        std::signal(SIGTERM, SIG_IGN);
        std::signal(SIGINT, SIG_DFL);
        Interruption interruption;
        std::raise(SIGTERM); // stays ignored
        if (Interruption::Requested())
            ::_exit(1);
        std::raise(SIGINT);
        while (!interruption.Token().stop_requested())
            std::this_thread::yield();
        std::raise(SIGINT); // one wish that comes twice
        std::this_thread::sleep_for(milliseconds{150});
        std::raise(Interruption::Requested() ? SIGINT : SIGKILL);
        ::_exit(2);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT) << status;
}

} // namespace
} // namespace corvane
