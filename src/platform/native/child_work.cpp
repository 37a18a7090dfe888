#include "platform/native/child_work.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <new>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace corvane {
namespace {

// The pipe carries whatever the work writes on standard error, then its bytes or its reason, then the length
// of those; the child's exit tells which of the two they are.
using Length = std::uint64_t;

bool WriteAll(int descriptor, const char* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t written = ::write(descriptor, bytes, count);
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0) {
            bytes += written;
            count -= static_cast<std::size_t>(written);
        }
    }
    return true;
}

[[noreturn]] void EndChild(int descriptor, const std::string& content, bool done) {
    const Length length = content.size();
    std::array<char, sizeof length> trailer{};
    std::memcpy(trailer.data(), &length, sizeof length);
    const bool written = WriteAll(descriptor, content.data(), content.size()) &&
                         WriteAll(descriptor, trailer.data(), trailer.size());
    ::_exit(done && written ? 0 : 1); // the streams' buffers are the parent's to write
}

[[noreturn]] void RunChild(const std::function<FileResult(std::string&)>& work, int descriptor) {
    const rlimit noCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    ::dup2(descriptor, STDERR_FILENO);
    std::string bytes;
    try {
        const FileResult result = work(bytes);
        EndChild(descriptor, result.done ? bytes : result.reason, result.done);
    } catch (const std::bad_alloc&) {
        EndChild(descriptor, "there is not enough memory", false);
    } catch (const std::exception& error) {
        EndChild(descriptor, error.what(), false);
    }
}

std::string ReadAll(int descriptor) {
    std::string content;
    std::array<char, 1 << 16> buffer{};
    for (;;) {
        const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return content;
        content.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

/// Leaves what lies between the chatter and the length. False where the child did not come that far.
bool TakeContent(std::string& stream) {
    Length length = 0;
    if (stream.size() < sizeof length)
        return false;
    std::memcpy(&length, stream.data() + stream.size() - sizeof length, sizeof length);
    stream.resize(stream.size() - sizeof length);
    if (length > stream.size())
        return false;
    stream.erase(0, stream.size() - static_cast<std::size_t>(length));
    return true;
}

FileResult Ended(int status, const std::string& chatter) {
    std::string reason =
        WIFSIGNALED(status)
            ? std::string("its process ended by a signal (") + ::strsignal(WTERMSIG(status)) + ")"
            : "its process ended with code " + std::to_string(WEXITSTATUS(status));
    if (!chatter.empty())
        reason += ": " + chatter.substr(0, chatter.find('\n'));
    return {false, reason};
}

FileResult SystemFailure() {
    return {false, std::generic_category().message(errno)};
}

} // namespace

FileResult DoInChild(const std::function<FileResult(std::string&)>& work, std::string& bytes) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return SystemFailure();
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(ends[0]);
        RunChild(work, ends[1]);
    }
    const FileResult unstarted = SystemFailure();
    ::close(ends[1]);
    bytes.clear();
    if (child > 0)
        bytes = ReadAll(ends[0]);
    ::close(ends[0]);
    if (child < 0)
        return unstarted;

    int status = 0;
    while (::waitpid(child, &status, 0) < 0)
        if (errno != EINTR)
            return SystemFailure();
    const bool ended = WIFEXITED(status) && WEXITSTATUS(status) <= 1;
    if (!ended || !TakeContent(bytes))
        return Ended(status, bytes);
    return WEXITSTATUS(status) == 0 ? FileResult{true, {}} : FileResult{false, bytes};
}

} // namespace corvane
