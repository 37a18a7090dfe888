#include "platform/native/native_programs.h"

#include "platform/native/descriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace corvane {
namespace {

using Milliseconds = std::chrono::milliseconds;
using Moment = std::chrono::steady_clock::time_point;

/// How often the end of a program is looked for that has closed its output or left it to others.
constexpr Milliseconds glance{10};

Milliseconds Left(Moment end) {
    return std::max(std::chrono::duration_cast<Milliseconds>(end - std::chrono::steady_clock::now()),
                    Milliseconds{0});
}

struct Pipe {
    Descriptor reader{-1}, writer{-1};

    bool Open() {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            return false;
        reader.Take(ends[0]);
        writer.Take(ends[1]);
        return true;
    }
};

class NativeProgram : public RunningProgram {
public:
    NativeProgram(pid_t startedProcess, Pipe& output, Pipe& errors) : process(startedProcess) {
        streams[0].Take(output.reader.Release());
        streams[1].Take(errors.reader.Release());
    }
    ~NativeProgram() override { End(Milliseconds{0}); }
    NativeProgram(const NativeProgram&) = delete;
    NativeProgram& operator=(const NativeProgram&) = delete;

    std::optional<int> Wait(Milliseconds limit, const OutputSink& sink) override;
    void End(Milliseconds grace) override;

private:
    bool Ended();
    bool ReadReady(Milliseconds limit, const OutputSink& sink);

    pid_t process; ///< Also its group. It is not reaped before the group is killed, so that no other gets the
                   ///< number.
    std::array<Descriptor, 2> streams{Descriptor(-1), Descriptor(-1)};
    std::optional<int> exitCode;
    bool reaped = false;
};

std::optional<int> NativeProgram::Wait(Milliseconds limit, const OutputSink& sink) {
    const Moment end = std::chrono::steady_clock::now() + limit;
    for (;;) {
        // What it wrote before its end is in the pipes by now; children that outlive it may write for ever.
        const bool ended = Ended();
        const bool more = ReadReady(ended ? Milliseconds{0} : std::min(glance, Left(end)), sink);
        const bool late = Left(end) == Milliseconds{0};
        if (ended && (!more || late))
            return exitCode;
        if (!ended && late)
            return std::nullopt;
    }
}

void NativeProgram::End(Milliseconds grace) {
    if (reaped)
        return;
    if (grace > Milliseconds{0} && !Ended()) {
        ::kill(-process, SIGTERM);
        const Moment end = std::chrono::steady_clock::now() + grace;
        while (!Ended() && Left(end) > Milliseconds{0})
            ::poll(nullptr, 0, static_cast<int>(std::min(glance, Left(end)).count()));
    }
    ::kill(-process, SIGKILL);
    int status = 0;
    while (::waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    if (!exitCode)
        exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    reaped = true;
}

bool NativeProgram::Ended() {
    siginfo_t info{};
    if (!exitCode && ::waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
        info.si_pid == process)
        exitCode = info.si_code == CLD_EXITED ? info.si_status : 128 + info.si_status;
    return exitCode.has_value();
}

/// Hands over what can be read within the limit, at most a pipe's content of each stream. Whether there was
/// something.
bool NativeProgram::ReadReady(Milliseconds limit, const OutputSink& sink) {
    std::array<pollfd, 2> ready{};
    for (std::size_t i = 0; i < ready.size(); ++i)
        ready[i] = {streams[i].Get(), POLLIN, 0}; // a closed one, -1, is passed over
    if (::poll(ready.data(), ready.size(), static_cast<int>(limit.count())) <= 0)
        return false;
    bool some = false;
    for (std::size_t i = 0; i < ready.size(); ++i) {
        if (ready[i].revents == 0)
            continue;
        std::array<char, 1 << 16> buffer; // NOLINT: only what was read is looked at
        const ssize_t count = ::read(streams[i].Get(), buffer.data(), buffer.size());
        if (count > 0)
            sink(i == 0 ? OutputStream::Output : OutputStream::Error,
                 {buffer.data(), static_cast<std::size_t>(count)});
        else if (count == 0 || errno != EINTR)
            streams[i].Close();
        some = some || count > 0;
    }
    return some;
}

/// Starts the words in a process group of their own. Returns 0, or the system's error.
int Spawn(const ProgramStart& start, const Pipe& output, const Pipe& errors, pid_t& process) {
    std::vector<std::string> words = start.words;
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_adddup2(&actions, output.writer.Get(), STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, errors.writer.Get(), STDERR_FILENO);
    if (!start.folder.empty())
        ::posix_spawn_file_actions_addchdir_np(&actions, start.folder.c_str());
    posix_spawnattr_t attributes;
    ::posix_spawnattr_init(&attributes);
    sigset_t usual, none;
    sigemptyset(&none);
    sigemptyset(&usual);
    for (const int signal : {SIGINT, SIGQUIT, SIGPIPE, SIGXFSZ})
        sigaddset(&usual, signal);
    ::posix_spawnattr_setsigdefault(&attributes, &usual);
    ::posix_spawnattr_setsigmask(&attributes, &none);
    ::posix_spawnattr_setpgroup(&attributes, 0);
    ::posix_spawnattr_setflags(&attributes,
                               POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETPGROUP);
    const int error =
        ::posix_spawnp(&process, arguments[0], &actions, &attributes, arguments.data(), environ);
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&actions);
    return error;
}

} // namespace

std::unique_ptr<RunningProgram> NativePrograms::Start(const ProgramStart& start, std::string& reason) {
    Pipe output, errors;
    pid_t process = 0;
    int error = start.words.empty() ? EINVAL : 0;
    if (error == 0 && !(output.Open() && errors.Open()))
        error = errno;
    if (error == 0)
        error = Spawn(start, output, errors, process);
    if (error == 0)
        return std::make_unique<NativeProgram>(process, output, errors);
    reason = (start.words.empty() ? "" : start.words.front() + ": ") + std::generic_category().message(error);
    return nullptr;
}

} // namespace corvane
