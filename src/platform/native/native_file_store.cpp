#include "platform/native/native_file_store.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace corvane {
namespace {

FileResult Failed(int error) {
    return {false, std::generic_category().message(error), false};
}

/// An open file that closes itself.
class Descriptor {
public:
    explicit Descriptor(int opened) : number(opened) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool Valid() const { return number >= 0; }
    int Get() const { return number; }
    bool Close() { return number < 0 || ::close(std::exchange(number, -1)) == 0; }

private:
    int number;
};

bool WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

ByteSource Whole(const std::string& bytes) {
    return [&bytes](const std::function<void(std::string_view)>& sink) { sink(bytes); };
}

/// The permissions that the replaced file shall have: those it has, or those of any new file.
mode_t ModeFor(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0)
        return status.st_mode & 07777U;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666U & ~mask;
}

/// Writes a new file beside the target, flushes it to the disk and gives it the target's name by `name`.
/// Nothing of it is left on failure.
template<class Name>
FileResult WriteBeside(const std::string& target, const ByteSource& source, Name&& name) {
    // A short name of its own, since the target's may already be as long as names can be.
    const std::filesystem::path folder = std::filesystem::path(target).parent_path();
    std::string beside = (folder / ".corvane-XXXXXX").string();
    Descriptor file(::mkostemp(beside.data(), O_CLOEXEC));
    if (!file.Valid())
        return Failed(errno);
    int failure = 0;
    try {
        source([&](std::string_view piece) {
            if (failure == 0 && !WriteAll(file.Get(), piece))
                failure = errno;
        });
    } catch (...) {
        ::unlink(beside.c_str());
        throw;
    }
    if (!(failure == 0 && ::fchmod(file.Get(), ModeFor(target)) == 0 && ::fsync(file.Get()) == 0 &&
          file.Close() && name(beside.c_str()))) {
        const int reason = failure != 0 ? failure : errno;
        ::unlink(beside.c_str());
        return Failed(reason);
    }
    // The name itself reaches the disk with the folder; a folder that cannot be flushed is no failure.
    if (const Descriptor opened(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC));
        opened.Valid())
        ::fsync(opened.Get());
    return {true, {}, false};
}

} // namespace

FileResult NativeFileStore::Read(const std::string& path, std::string& bytes) const {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.Valid())
        return Failed(errno);
    struct stat status {};
    if (::fstat(file.Get(), &status) != 0)
        return Failed(errno);
    if (S_ISDIR(status.st_mode))
        return {false, "this is a folder, not a file", false};
    if (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode))
        return {false, "this is a device, not a file", false};

    constexpr std::size_t step = std::size_t{1} << 16;
    std::string read;
    // One byte more than the size, so that the end shows without another allocation.
    read.resize(static_cast<std::size_t>(status.st_size) + (S_ISREG(status.st_mode) ? 1 : step));
    std::size_t filled = 0;
    for (;;) {
        if (filled == read.size())
            read.resize(read.size() + read.size() / 2 + step);
        const ssize_t count = ::read(file.Get(), read.data() + filled, read.size() - filled);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return Failed(errno);
        if (count == 0)
            break;
        filled += static_cast<std::size_t>(count);
    }
    read.resize(filled);
    bytes = std::move(read);
    return {true, {}, false};
}

FileResult NativeFileStore::Replace(const std::string& path, const std::string& bytes) {
    return ReplaceFrom(path, Whole(bytes));
}

FileResult NativeFileStore::ReplaceFrom(const std::string& path, const ByteSource& source) {
    std::error_code error;
    std::string target = path;
    if (std::filesystem::is_symlink(path, error))
        if (const auto real = std::filesystem::canonical(path, error); !error)
            target = real.string();
    const auto status = std::filesystem::status(target, error);
    if (std::filesystem::is_directory(status))
        return {false, "this is a folder, not a file", false};
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        return {false, "this is a device or a pipe, not a file", false};

    return WriteBeside(target, source,
                       [&](const char* written) { return ::rename(written, target.c_str()) == 0; });
}

FileResult NativeFileStore::Create(const std::string& path, const std::string& bytes) {
    FileResult created = WriteBeside(path, Whole(bytes), [&](const char* written) {
        if (::renameat2(AT_FDCWD, written, AT_FDCWD, path.c_str(), RENAME_NOREPLACE) == 0)
            return true;
        if (errno == EEXIST)
            return false;
        // Not every file system knows that call; a second name can be given on most others.
        return ::link(written, path.c_str()) == 0 && ::unlink(written) == 0;
    });
    struct stat status {};
    created.taken = !created.done && ::lstat(path.c_str(), &status) == 0;
    return created;
}

FileResult NativeFileStore::Remove(const std::string& path) {
    return ::unlink(path.c_str()) == 0 ? FileResult{true, {}, false} : Failed(errno);
}

} // namespace corvane
