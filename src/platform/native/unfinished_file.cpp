#include "platform/native/unfinished_file.h"

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <sys/random.h>
#include <utility>

namespace corvane {
namespace {

/// Where the system shows an open file under a name, even one that has none.
std::string InProc(int descriptor) {
    return "/proc/self/fd/" + std::to_string(descriptor);
}

} // namespace

UnfinishedFile::UnfinishedFile(std::string folder, mode_t mode, Nameless nameless)
    : inFolder(folder.empty() ? "." : std::move(folder)) {
    if (nameless == Nameless::IfPossible) {
        file.Take(::open(inFolder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode));
        // The way back to a name leads through /proc, which a restricted environment may lack.
        if (file.Valid() && ::access(InProc(file.Get()).c_str(), F_OK) != 0)
            file.Close();
        if (file.Valid())
            return;
    }
    own.emplace(OwnPath());
    file.Take(::open(own->Path().c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
}

/// A short name that nobody else takes; the target's own may already be as long as names can be.
std::string UnfinishedFile::OwnPath() const {
    auto number = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
    if (::getrandom(&number, sizeof number, GRND_NONBLOCK) != static_cast<ssize_t>(sizeof number))
        number ^= static_cast<std::uint64_t>(::getpid()) << 40U;
    char name[17];
    std::snprintf(name, sizeof name, "%016llx", static_cast<unsigned long long>(number));
    return inFolder + "/.corvane-" + name;
}

bool UnfinishedFile::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file.Get(), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

void UnfinishedFile::TakeOver(const struct stat& replaced) {
    struct stat now {};
    if (::fstat(file.Get(), &now) != 0)
        return;
    constexpr auto same = static_cast<uid_t>(-1);
    mode_t bits = replaced.st_mode & 0777U;
    if (now.st_gid != replaced.st_gid && ::fchown(file.Get(), same, replaced.st_gid) != 0)
        bits = (bits & 0707U) | ((bits & 07U) << 3U);
    // The owner last: a file given away can no longer be changed. What fails leaves a file that is ours and
    // closed to others.
    if (::fchmod(file.Get(), bits) == 0 && now.st_uid != replaced.st_uid)
        static_cast<void>(::fchown(file.Get(), replaced.st_uid, static_cast<gid_t>(-1)) == 0);
}

bool UnfinishedFile::Flush() {
    return ::fsync(file.Get()) == 0;
}

bool UnfinishedFile::LinkTo(const std::string& path) const {
    return ::linkat(AT_FDCWD, InProc(file.Get()).c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

bool UnfinishedFile::NameIt(const std::string& path) {
    if (!own)
        return LinkTo(path) && file.Close();
    if (!file.Close())
        return false;
    if (::renameat2(AT_FDCWD, own->Path().c_str(), AT_FDCWD, path.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    // Not every file system knows that call; a second name can be given on most others.
    return errno != EEXIST && ::link(own->Path().c_str(), path.c_str()) == 0;
}

bool UnfinishedFile::TakePlaceOf(const std::string& path) {
    if (own)
        return file.Close() && ::rename(own->Path().c_str(), path.c_str()) == 0;
    // Only what has a name can be renamed.
    const VanishingName between(OwnPath());
    return LinkTo(between.Path()) && file.Close() && ::rename(between.Path().c_str(), path.c_str()) == 0;
}

} // namespace corvane
