#include "platform/native/native_file_store.h"

#include "platform/native/descriptor.h"
#include "platform/native/unfinished_file.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <new>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace corvane {
namespace {

FileResult Failed(int error) {
    return {false, std::generic_category().message(error), false};
}

ByteSource Whole(const std::string& bytes) {
    return [&bytes](const std::function<void(std::string_view)>& sink) { sink(bytes); };
}

/// Whether a file of so many bytes can be worked with: read, it takes as much again and more.
bool FitsIntoMemory(std::size_t bytes) {
    const long pages = ::sysconf(_SC_PHYS_PAGES), size = ::sysconf(_SC_PAGESIZE);
    return pages <= 0 || size <= 0 ||
           bytes / static_cast<std::size_t>(size) <= static_cast<std::size_t>(pages) / 2;
}

/// How a file that is whole gets its name.
using Naming = bool (UnfinishedFile::*)(const std::string& path);

/// Writes a new file beside the target, flushes it to the disk and gives it the target's name. Nothing of it
/// is left on failure. `replaced` is the file whose owner and permissions it takes over, if any.
FileResult WriteOnce(const std::string& target, const ByteSource& source, const struct stat* replaced,
                     Naming naming, UnfinishedFile::Nameless nameless, bool& worthAnotherTry) {
    const std::string folder = std::filesystem::path(target).parent_path().string();
    UnfinishedFile file(folder, replaced ? 0600 : 0666, nameless);
    if (!file.IsOpen())
        return Failed(errno);
    int failure = 0;
    source([&](std::string_view piece) {
        if (failure == 0 && !file.Write(piece))
            failure = errno;
    });
    if (failure != 0)
        return Failed(failure);
    if (replaced)
        file.TakeOver(*replaced);
    if (!file.Flush())
        return Failed(errno);
    if (!(file.*naming)(target)) {
        failure = errno;
        worthAnotherTry = !file.HasName() && failure != EEXIST;
        return Failed(failure);
    }
    // The name itself reaches the disk with the folder; a folder that cannot be flushed is no failure.
    if (const Descriptor opened(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC));
        opened.Valid())
        ::fsync(opened.Get());
    return {true, {}, false};
}

/// Not every file system that makes files without a name lets them have one.
FileResult WriteBeside(const std::string& target, const ByteSource& source, const struct stat* replaced,
                       Naming naming) {
    bool again = false;
    FileResult written =
        WriteOnce(target, source, replaced, naming, UnfinishedFile::Nameless::IfPossible, again);
    return again ? WriteOnce(target, source, replaced, naming, UnfinishedFile::Nameless::Never, again)
                 : written;
}

/// Why something cannot be replaced by a file; no reason for a file.
FileResult Refusal(const struct stat& status) {
    if (S_ISDIR(status.st_mode))
        return {false, "this is a folder, not a file", false};
    if (!S_ISREG(status.st_mode))
        return {false, "this is a device or a pipe, not a file", false};
    return {};
}

/// Puts a new file in place of what has the name.
FileResult PutInPlace(const std::string& target, const ByteSource& source) {
    struct stat old {};
    const bool replaces = ::lstat(target.c_str(), &old) == 0 && !S_ISLNK(old.st_mode);
    if (FileResult refused = Refusal(old); replaces && !refused.reason.empty())
        return refused;
    return WriteBeside(target, source, replaces ? &old : nullptr, &UnfinishedFile::TakePlaceOf);
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

    const auto tooLarge = [] { return FileResult{false, NotEnoughMemory, false}; };
    if (!FitsIntoMemory(static_cast<std::size_t>(status.st_size)))
        return tooLarge();

    constexpr std::size_t step = std::size_t{1} << 16;
    try {
        std::string read;
        // One byte more than the size, so that the end shows without another allocation.
        read.resize(static_cast<std::size_t>(status.st_size) + (S_ISREG(status.st_mode) ? 1 : step));
        std::size_t filled = 0;
        for (;;) {
            if (!FitsIntoMemory(filled))
                return tooLarge();
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
    } catch (const std::bad_alloc&) {
        return tooLarge();
    }
}

FileResult NativeFileStore::Replace(const std::string& path, const std::string& bytes) {
    return ReplaceFrom(path, Whole(bytes));
}

FileResult NativeFileStore::ReplaceFrom(const std::string& path, const ByteSource& source) {
    struct stat status {};
    // A link that leads nowhere is replaced itself.
    if (::lstat(path.c_str(), &status) != 0 || !S_ISLNK(status.st_mode) || ::stat(path.c_str(), &status) != 0)
        return PutInPlace(path, source);
    if (FileResult refused = Refusal(status); !refused.reason.empty())
        return refused;
    std::error_code error;
    const auto real = std::filesystem::canonical(path, error);
    return error ? Failed(error.value()) : PutInPlace(real.string(), source);
}

FileResult NativeFileStore::ReplaceEntry(const std::string& path, const ByteSource& source) {
    return PutInPlace(path, source);
}

FileResult NativeFileStore::Create(const std::string& path, const std::string& bytes) {
    struct stat status {};
    const auto taken = [&] { return ::lstat(path.c_str(), &status) == 0; };
    if (taken())
        return {false, std::generic_category().message(EEXIST), true};
    FileResult created = WriteBeside(path, Whole(bytes), nullptr, &UnfinishedFile::NameIt);
    created.taken = !created.done && taken();
    return created;
}

FileResult NativeFileStore::Remove(const std::string& path) {
    return ::unlink(path.c_str()) == 0 ? FileResult{true, {}, false} : Failed(errno);
}

} // namespace corvane
