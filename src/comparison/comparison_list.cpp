#include "comparison/comparison_list.h"

#include "core/format/code_page.h"
#include "core/format/paths.h"
#include "core/version.h"

#include <algorithm>
#include <utility>

namespace corvane {

std::string ComparisonList::ListCaption() const {
    return rows.empty() ? "File names" : "File names (" + std::to_string(rows.size()) + " files)";
}

std::string ComparisonList::WindowCaption() const {
    const std::string name = FileNameOf(comparisonPath);
    return "Corvane Comparison v. " + VersionText() + (name.empty() ? "" : " - " + name);
}

bool ComparisonList::Holds(const std::string& path) const {
    return std::ranges::find(rows, path, &ListedFile::path) != rows.end();
}

void ComparisonList::Add(std::span<const std::string> paths) {
    for (const std::string& path : paths)
        if (!Holds(path))
            rows.push_back({path});
}

void ComparisonList::RemoveCurrent() {
    if (!current)
        return;
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(*current));
    if (rows.empty())
        current.reset();
    else
        current = std::min(*current, rows.size() - 1);
}

void ComparisonList::RemoveAll() {
    rows.clear();
    current.reset();
}

void ComparisonList::MoveUp() {
    if (!current)
        return;
    if (*current > 0) {
        std::swap(rows[*current].path, rows[*current - 1].path);
        --*current;
        return;
    }
    for (std::size_t row = 0; row + 1 < rows.size(); ++row)
        std::swap(rows[row].path, rows[row + 1].path);
    current = rows.size() - 1;
}

void ComparisonList::MoveDown() {
    if (!current)
        return;
    if (*current + 1 < rows.size()) {
        std::swap(rows[*current].path, rows[*current + 1].path);
        ++*current;
        return;
    }
    for (std::size_t row = rows.size() - 1; row > 0; --row)
        std::swap(rows[row].path, rows[row - 1].path);
    current = 0;
}

std::optional<KocOutcome> ComparisonList::Drop(std::span<const std::string> paths, const FileStore& files) {
    for (const std::string& path : paths) {
        if (Holds(path))
            continue;
        if (path.find(".KOC") != std::string::npos)
            return Open(path, files);
        rows.push_back({path});
    }
    return std::nullopt;
}

KocOutcome ComparisonList::Open(const std::string& path, const FileStore& files) {
    KocOutcome outcome = ReadKocFile(path, files, settings, rows);
    if (outcome.Complete() || outcome.line > 0) {
        comparisonPath = path;
        current.reset();
    }
    return outcome;
}

std::optional<FileResult> ComparisonList::Save(const std::string& path, FileStore& files, Dialogs& dialogs) {
    if (FileExists(path) &&
        !dialogs.AskYesNo("The file '" + path + "' already exists. Do you want to overwrite it?", "", false))
        return std::nullopt;
    comparisonPath = path;
    return files.Replace(path, EncodeText(KocFileText(settings, rows)));
}

} // namespace corvane
