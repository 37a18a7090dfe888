#include "platform/native/child_work.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <new>
#include <optional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace corvane {
namespace {

// The pipe carries whatever the work writes on standard error; then the pieces, or the reason as the only
// one; then their lengths and their number. The child's exit tells pieces from a reason.
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

bool WriteLength(int descriptor, std::size_t count) {
    const Length length = count;
    std::array<char, sizeof length> bytes{};
    std::memcpy(bytes.data(), &length, sizeof length);
    return WriteAll(descriptor, bytes.data(), bytes.size());
}

[[noreturn]] void EndChild(int descriptor, const Pieces& pieces, bool done) {
    bool written = true;
    for (const std::string& piece : pieces)
        written = written && WriteAll(descriptor, piece.data(), piece.size());
    for (const std::string& piece : pieces)
        written = written && WriteLength(descriptor, piece.size());
    written = written && WriteLength(descriptor, pieces.size());
    ::_exit(done && written ? 0 : 1); // the streams' buffers are the parent's to write
}

[[noreturn]] void RunChild(const std::function<FileResult(Pieces&)>& work, int descriptor) {
    const rlimit noCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    ::dup2(descriptor, STDERR_FILENO);
    Pieces pieces;
    try {
        const FileResult result = work(pieces);
        EndChild(descriptor, result.done ? pieces : Pieces{result.reason}, result.done);
    } catch (const std::bad_alloc&) {
        EndChild(descriptor, {"there is not enough memory"}, false);
    } catch (const std::exception& error) {
        EndChild(descriptor, {error.what()}, false);
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

std::optional<Length> TakeLength(std::string& stream) {
    Length length = 0;
    if (stream.size() < sizeof length)
        return std::nullopt;
    std::memcpy(&length, stream.data() + stream.size() - sizeof length, sizeof length);
    stream.resize(stream.size() - sizeof length);
    return length;
}

/// Takes the pieces from the stream's end. False where the child did not come that far.
bool TakePieces(std::string& stream, Pieces& pieces) {
    const auto count = TakeLength(stream);
    if (!count || *count > stream.size() / sizeof(Length))
        return false;
    std::vector<Length> lengths(static_cast<std::size_t>(*count));
    for (Length& length : lengths)
        length = TakeLength(stream).value_or(0);
    for (const Length length : lengths) { // the last one first
        if (length > stream.size())
            return false;
        const std::size_t start = stream.size() - static_cast<std::size_t>(length);
        pieces.push_back(stream.substr(start));
        stream.resize(start);
    }
    std::reverse(pieces.begin(), pieces.end());
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

FileResult DoInChild(const std::function<FileResult(Pieces&)>& work, Pieces& pieces) {
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
    std::string stream;
    if (child > 0)
        stream = ReadAll(ends[0]);
    ::close(ends[0]);
    if (child < 0)
        return unstarted;

    int status = 0;
    while (::waitpid(child, &status, 0) < 0)
        if (errno != EINTR)
            return SystemFailure();
    const bool ended = WIFEXITED(status) && WEXITSTATUS(status) <= 1;
    pieces.clear();
    if (!ended || !TakePieces(stream, pieces))
        return Ended(status, stream);
    if (WEXITSTATUS(status) == 0)
        return {true, {}};
    return pieces.empty() ? Ended(status, stream) : FileResult{false, pieces.front()};
}

} // namespace corvane
