#include "core/format/paths.h"

#include <algorithm>
#include <filesystem>

namespace corvane {

namespace {

#ifdef _WIN32
constexpr char PlatformSeparator = '\\';
#else
constexpr char PlatformSeparator = '/';
#endif

/// The length of the path up to and with its last separator; 0 where it has none.
std::size_t FolderLength(std::string_view path) {
    const auto last = std::find_if(path.rbegin(), path.rend(), IsPathSeparator);
    return static_cast<std::size_t>(path.rend() - last);
}

} // namespace

bool IsPathSeparator(char character) {
    return character == '\\' || character == PlatformSeparator;
}

bool FileExists(const std::string& path) {
    // The system would look for what comes before the NUL.
    if (path.empty() || path.find('\0') != std::string::npos)
        return false;
    try {
        std::error_code error;
        const auto status = std::filesystem::status(path, error);
        return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
    } catch (const std::exception&) {
        // A path that has no form in the characters of the operating system names no file.
        return false;
    }
}

std::string FileNameOf(std::string_view path) {
    const std::size_t folder = FolderLength(path);
    return folder == 0 ? std::string() : std::string(path.substr(folder));
}

std::string FolderOf(std::string_view path) {
    const std::size_t folder = FolderLength(path);
    return folder == 0 ? std::string(path) + PlatformSeparator : std::string(path.substr(0, folder));
}

std::string NativePath(std::string_view path) {
    std::string native(path);
    std::replace(native.begin(), native.end(), '\\', PlatformSeparator);
    return native;
}

} // namespace corvane
