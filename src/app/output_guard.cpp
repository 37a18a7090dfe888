#include "app/output_guard.h"

#include "app/run_folder.h"

#include <filesystem>
#include <initializer_list>
#include <string_view>
#include <system_error>

namespace corvane {
namespace {

namespace fs = std::filesystem;

/// The path without links, dots and separators at its end, as far as it exists.
fs::path Resolved(fs::path path) {
    std::error_code error;
    // A link may lead to a file that is still to come. The system follows no more links in a row than these.
    for (int links = 0; links < 40 && fs::is_symlink(path, error); ++links)
        path = path.parent_path() / fs::read_symlink(path, error);
    const fs::path absolute = fs::absolute(path, error);
    const fs::path canonical = fs::weakly_canonical(error ? path : absolute, error);
    const fs::path resolved = error ? path.lexically_normal() : canonical;
    return resolved.has_filename() ? resolved : resolved.parent_path(); // "new/" is the folder "new"
}

/// The path of a name itself, even if that is a symbolic link.
fs::path ResolvedEntry(const fs::path& path) {
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    return Resolved(absolute.parent_path()) / absolute.filename();
}

/// Whether two paths lead to one file, which need not exist yet.
bool SameFile(const fs::path& one, const fs::path& other) {
    std::error_code error;
    return fs::equivalent(one, other, error) || Resolved(one) == Resolved(other);
}

std::string Joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts)
        text += part;
    return text;
}

} // namespace

void OutputGuard::Read(const std::string& path, const std::string& what) {
    known.push_back({path, what});
}

std::string OutputGuard::ClaimFolder(const std::string& asker, const std::string& folder) {
    runFolder = folder;
    folderAsker = asker;
    for (const std::string& name : NamesIn(folder, IsSavedName))
        for (const Known& file : known) {
            std::error_code error;
            const fs::path path = fs::path(folder) / name;
            if (ResolvedEntry(path) == ResolvedEntry(file.path) ||
                (!fs::is_symlink(path, error) && SameFile(path, file.path)))
                return Joined({asker, " ", folder, ": ", name, " would replace ", file.what});
        }
    return {};
}

std::string OutputGuard::Claim(const std::string& asker, const std::string& path) {
    for (const Known& file : known)
        if (SameFile(path, file.path) || ResolvedEntry(path) == ResolvedEntry(file.path))
            return Joined({asker, " ", path, " would replace ", file.what});
    for (const fs::path& written : {Resolved(path), ResolvedEntry(path)})
        if (!runFolder.empty() && IsRunName(written.filename().string()) &&
            SameFile(written.parent_path(), runFolder))
            return Joined({asker, " ", path, " would replace a file of ", folderAsker, " ", runFolder});
    known.push_back({path, "the file of " + asker + " " + path});
    return {};
}

} // namespace corvane
