#pragma once

#include "comparison/comparison_report.h"
#include "core/dataset.h"
#include "core/session_state.h"
#include "evaluation/calculate.h"

#include <string>
#include <vector>

namespace corvane {

/// A finished run and what its JSON tells of it beside the report.
struct JsonRun {
    const Dataset& dataset;
    const SessionState& session;
    const RunResult& result;
    std::string file;                  ///< The dataset's path as the user gave it.
    std::vector<std::string> messages; ///< What the run told the user, in order.
};

/// The run as a JSON document in UTF-8 with a line end after it; docs/json.md describes it. Every number is
/// the double that the section computed, whatever the text shows of it. Bytes that are no UTF-8 become
/// U+FFFD. A number without a name, or a name or section id that occurs twice, is a programming error:
/// std::logic_error.
std::string JsonReport(const JsonRun& run);

/// A finished comparison and what its JSON tells of it beside the report.
struct JsonComparison {
    const ComparisonResult& result;
    bool references = false;           ///< Whether they were asked for.
    std::string file;                  ///< The comparison file as the user gave it; empty: none.
    std::vector<std::string> messages; ///< What the comparison told the user, in order.
};

/// The comparison as a JSON document, by the same rules.
std::string JsonReport(const JsonComparison& comparison);

} // namespace corvane
