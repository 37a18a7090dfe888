#include "platform/native/native_processes.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace corvane {
namespace {

/// While it lives, interrupts from the keyboard pass this program by.
class InterruptsIgnored {
public:
    InterruptsIgnored() {
        struct sigaction ignore {};
        ignore.sa_handler = SIG_IGN;
        ::sigaction(SIGINT, &ignore, &interrupt);
        ::sigaction(SIGQUIT, &ignore, &quit);
    }
    ~InterruptsIgnored() {
        ::sigaction(SIGINT, &interrupt, nullptr);
        ::sigaction(SIGQUIT, &quit, nullptr);
    }
    InterruptsIgnored(const InterruptsIgnored&) = delete;
    InterruptsIgnored& operator=(const InterruptsIgnored&) = delete;

private:
    struct sigaction interrupt {};
    struct sigaction quit {};
};

/// Starts the words as a program; its output goes to `output` unless that is negative.
std::optional<pid_t> Start(std::vector<std::string> words, int output) {
    if (words.empty())
        return std::nullopt;
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    if (output >= 0)
        for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
            ::posix_spawn_file_actions_adddup2(&actions, output, stream);
    // The program takes interrupts as usual, although this one may ignore them.
    posix_spawnattr_t attributes;
    ::posix_spawnattr_init(&attributes);
    sigset_t usual;
    sigemptyset(&usual);
    for (const int signal : {SIGINT, SIGQUIT, SIGXFSZ})
        sigaddset(&usual, signal);
    ::posix_spawnattr_setsigdefault(&attributes, &usual);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    pid_t process = 0;
    const int error =
        ::posix_spawnp(&process, arguments[0], &actions, &attributes, arguments.data(), environ);
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        return std::nullopt;
    return process;
}

std::optional<int> ExitCode(pid_t process) {
    int status = 0;
    while (::waitpid(process, &status, 0) < 0)
        if (errno != EINTR)
            return std::nullopt;
    // As a shell reports it: a signal counts from 128.
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

} // namespace

std::vector<std::string> CommandLineWords(const std::string& commandLine) {
    std::vector<std::string> words;
    std::string word;
    bool inWord = false, inQuotes = false;
    for (const char c : commandLine) {
        if (c == '"') {
            inQuotes = !inQuotes;
            inWord = true;
        } else if (c == ' ' && !inQuotes) {
            if (inWord)
                words.push_back(std::move(word));
            word.clear();
            inWord = false;
        } else {
            word += c;
            inWord = true;
        }
    }
    if (inWord)
        words.push_back(std::move(word));
    return words;
}

std::optional<int> NativeProcesses::RunAndWait(const std::vector<std::string>& words) {
    const InterruptsIgnored guard;
    const auto process = Start(words, -1);
    return process ? ExitCode(*process) : std::nullopt;
}

std::optional<int> NativeProcesses::RunAndWait(const std::string& commandLine) {
    return RunAndWait(CommandLineWords(commandLine));
}

std::optional<int> NativeProcesses::RunAndWait(const std::string& commandLine, std::string& console) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return std::nullopt;
    const auto process = Start(CommandLineWords(commandLine), ends[1]);
    ::close(ends[1]);
    std::array<char, 4096> buffer{};
    while (process) {
        const ssize_t count = ::read(ends[0], buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        console.append(buffer.data(), static_cast<std::size_t>(count));
    }
    ::close(ends[0]);
    return process ? ExitCode(*process) : std::nullopt;
}

} // namespace corvane
