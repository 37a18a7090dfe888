#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace corvane {

/// What became of one action on a file.
struct FileResult {
    bool done = false;
    std::string reason; ///< Why not, in words for the user, when it was not done.
    bool taken = false; ///< It was not done since the name is taken.
};

/// The reason of a read that memory does not suffice for.
inline constexpr const char* NotEnoughMemory = "there is not enough memory for it";

/// Gives a file's bytes out in pieces, and the same again when it is asked again.
using ByteSource = std::function<void(const std::function<void(std::string_view)>& sink)>;

/// Whole files, as bytes. Paths are native.
class FileStore {
public:
    virtual ~FileStore() = default;

    /// Reads a file whole into `bytes`, which is left alone on failure.
    virtual FileResult Read(const std::string& path, std::string& bytes) const = 0;

    /// Replaces the file as one step: it holds the old bytes or the new ones, never a part of them.
    virtual FileResult Replace(const std::string& path, const std::string& bytes) = 0;

    /// The same with bytes that are made while they are written, so that a long text need not be held whole.
    virtual FileResult ReplaceFrom(const std::string& path, const ByteSource& source) {
        std::string bytes;
        source([&](std::string_view piece) { bytes += piece; });
        return Replace(path, bytes);
    }

    /// The same, but a symbolic link of this name is replaced itself and never followed.
    virtual FileResult ReplaceEntry(const std::string& path, const ByteSource& source) {
        return ReplaceFrom(path, source);
    }

    /// Replace for a name that must be free: of several programs that try it at once, one succeeds.
    virtual FileResult Create(const std::string& path, const std::string& bytes) = 0;

    /// Removes a file.
    virtual FileResult Remove(const std::string& path) = 0;
};

} // namespace corvane
