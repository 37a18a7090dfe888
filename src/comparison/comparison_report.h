#pragma once

#include "comparison/adequacy_table.h"
#include "comparison/comparison_list.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/feedback.h"
#include "platform/file_store.h"
#include "report/report.h"

#include <cstddef>
#include <string>
#include <vector>

namespace corvane {

/// The services of a comparison. They must outlive it.
struct ComparisonServices {
    Dialogs& dialogs;
    Feedback& feedback;
    const Clock& clock;
    const FileStore& files;
};

/// A model in the list of a report.
struct ComparisonEntry {
    std::string tag;
    std::string path;
};

struct ComparisonResult {
    bool finished = false;
    std::string fault; ///< Why there is no report, naming the file; empty where a message has said all of it.
    std::vector<std::string> warnings;     ///< What the user should know and the report does not say.
    Report report{};                       ///< Complete where the comparison finished, otherwise empty.
    std::vector<ComparisonEntry> models{}; ///< In their order.
    std::size_t rows = 0;                  ///< How many take part in the pairwise tables.
    ReportColumns columns{};               ///< As the report used them.
};

inline constexpr const char* ComparisonWindowCaption = "Results - Model Comparison";

/// Compares the list's ticked models. A number of digits out of its range is set right in the list's own
/// settings, a negative number of decimals for this report only. Messages go to the dialogs; a failure leaves
/// no report.
ComparisonResult CompareModels(ComparisonList& list, bool showReferences, const ComparisonServices& services);

} // namespace corvane
