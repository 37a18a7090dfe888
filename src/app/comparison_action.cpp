#include "app/comparison_action.h"

#include "core/format/text_lists.h"

#include <algorithm>
#include <filesystem>

namespace corvane {

OpenOutcome FillComparison(const std::vector<std::string>& paths, ComparisonList& list,
                           const FileStore& files) {
    if (paths.size() == 1 && KindOfFile(paths.front()) == FileKind::Comparison)
        return OpenComparison(paths.front(), list, files);
    std::vector<std::string> added;
    for (const std::string& path : paths) {
        std::string reason;
        const std::string absolute = AbsolutePath(path, reason);
        if (absolute.empty())
            return {.end = OpenEnd::Refused, .file = QuotedForMessage(path), .reason = reason};
        added.push_back(std::filesystem::path(absolute).lexically_normal().string());
    }
    list.Add(added);
    for (std::size_t row = 0; row < list.Rows().size(); ++row)
        list.Select(row, true);
    return {.file = paths.empty() ? "" : paths.front()};
}

std::string TickOnly(std::span<const std::size_t> positions, ComparisonList& list) {
    const std::size_t count = list.Rows().size();
    for (const std::size_t position : positions)
        if (position < 1 || position > count)
            return std::to_string(position) + ": the list has " + std::to_string(count) +
                   (count == 1 ? " file" : " files");
    for (std::size_t row = 0; row < count; ++row)
        list.Select(row, std::ranges::count(positions, row + 1) > 0);
    return {};
}

void ChangeSettings(const SettingsChange& change, ComparisonSettings& settings) {
    if (change.longDigits)
        settings.DigitsLong = std::to_string(*change.longDigits);
    if (change.shortDigits)
        settings.DigitsShort = std::to_string(*change.shortDigits);
    if (change.decimals) {
        settings.DecimalsStatistics = change.decimals->at(0);
        settings.DecimalsProbability = change.decimals->at(1);
        settings.DecimalsCorrelations = change.decimals->at(2);
    }
}

ComparisonSnapshot TakeSnapshot(const ComparisonList& list, bool references, const Clock& clock) {
    return {list.Rows(), list.settings, references, clock.Now()};
}

} // namespace corvane
