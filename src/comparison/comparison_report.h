#pragma once

#include "comparison/adequacy_table.h"
#include "comparison/comparison_list.h"
#include "platform/clock.h"
#include "platform/file_store.h"
#include "platform/progress.h"
#include "report/report.h"
#include "run/section_definition.h"

#include <cstddef>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

namespace corvane {

/// Everything that a comparison reads beside the files themselves.
struct ComparisonSnapshot {
    std::vector<ListedFile> files; ///< The list; those that are ticked are compared.
    ComparisonSettings settings;
    bool references = false; ///< Whether the report ends with them.
    ClockTime time{};        ///< For the report's header.
};

/// A model in the list of a report.
struct ComparisonEntry {
    std::string tag;
    std::string path;
};

struct ComparisonResult {
    bool finished = false;
    bool cancelled = false; ///< It was asked to stop; nothing else is in the result.
    std::string fault{};    ///< Why there is no report, naming the file; empty where a message says it all.
    std::vector<std::string> messages{};   ///< What was told while it went on.
    std::vector<std::string> warnings{};   ///< What the user should know and the report does not say.
    ComparisonSettings settings{};         ///< With numbers of digits out of range set right.
    Report report{};                       ///< Complete where the comparison finished, otherwise empty.
    std::vector<ComparisonEntry> models{}; ///< In their order.
    std::size_t rows = 0;                  ///< How many take part in the pairwise tables.
    ReportColumns columns{};               ///< As the report used them.
};

inline constexpr const char* ComparisonWindowCaption = "Results - Model Comparison";

/// Compares the ticked models. A number of digits out of its range is set right in the result's settings,
/// which the caller takes over, a negative number of decimals for this report only. A failure leaves no
/// report. A run that is asked to stop ends at the next file, model or pair of models.
ComparisonResult CompareModels(const ComparisonSnapshot& snapshot, const FileStore& files, Progress& progress,
                               const std::stop_token& stop = {});

/// The sections of a comparison's report that tell of themselves, in their order.
std::span<const SectionDefinition* const> ComparisonSections();

} // namespace corvane
