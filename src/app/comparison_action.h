#pragma once

#include "app/open_file.h"
#include "comparison/comparison_report.h"
#include "platform/clock.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace corvane {

/// Fills the list from a comparison file, the only path, or from dataset files, which are all ticked.
OpenOutcome FillComparison(const std::vector<std::string>& paths, ComparisonList& list,
                           const FileStore& files);

/// Ticks the rows at these positions, from 1, and no other. Why that cannot be done, or "": then nothing is
/// changed.
std::string TickOnly(std::span<const std::size_t> positions, ComparisonList& list);

/// What a comparison shall have in place of its list's settings; none: as they are.
struct SettingsChange {
    std::optional<int> longDigits, shortDigits;
    std::optional<std::array<std::string, 3>> decimals; ///< Of statistics, probabilities, correlations.
};
void ChangeSettings(const SettingsChange& change, ComparisonSettings& settings);

/// Everything that a comparison of the list reads, for `CompareModels` on any thread. The caller takes the
/// result's settings over.
ComparisonSnapshot TakeSnapshot(const ComparisonList& list, bool references, const Clock& clock);

} // namespace corvane
