#include "app/run_folder.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace corvane {
namespace {

/// Takes a beginning of the text off, and the digits after it, at least `fewest`. Whether both were there.
bool TakeNumbered(std::string_view& text, std::string_view beginning, std::size_t fewest) {
    if (!text.starts_with(beginning))
        return false;
    text.remove_prefix(beginning.size());
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    text.remove_prefix(digits);
    return digits >= fewest;
}

} // namespace

bool IsSavedName(std::string_view name) {
    if (name == "results.txt" || name == "residue.txt" || name == "deviation.txt")
        return true;
    return TakeNumbered(name, "plot-", 2) && name.starts_with('-') && name.ends_with(".svg");
}

bool IsRunName(std::string_view name) {
    return IsSavedName(name) || (TakeNumbered(name, "Residue", 4) && name == ".TXT");
}

std::vector<std::string> NamesIn(const std::string& folder, bool (*wanted)(std::string_view)) {
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        if (const std::string name = entry->path().filename().string(); wanted(name))
            names.push_back(name);
    std::ranges::sort(names);
    return names;
}

std::string OldFiles(const std::string& folder, const std::vector<std::string>& written) {
    std::string old;
    for (const std::string& name : NamesIn(folder, IsRunName))
        if (std::ranges::find(written, name) == written.end())
            old += (old.empty() ? "" : ", ") + name;
    return old;
}

OutputFolder::~OutputFolder() {
    std::error_code ignored; // a folder that somebody uses meanwhile stays
    for (; !made.empty(); made.pop_back())
        std::filesystem::remove(made.back(), ignored);
}

std::string OutputFolder::Make(const std::string& folder) {
    std::error_code error, ignored;
    std::vector<std::filesystem::path> missing;
    for (std::filesystem::path path = folder; !path.empty() && !std::filesystem::exists(path, ignored);
         path = path.parent_path())
        missing.push_back(path);
    std::filesystem::create_directories(folder, error);
    made.assign(missing.rbegin(), missing.rend());
    return error ? folder + ": " + error.message() : "";
}

} // namespace corvane
