#pragma once

#include "core/analysis_options.h"
#include "report/place.h"
#include "run/run_state.h"

#include <string_view>
#include <utility>

namespace corvane {

/// Which tick boxes let a section run.
struct Gate {
    std::int16_t AnalysisOptions::*option = nullptr; ///< Null: the section always runs.
    std::int16_t AnalysisOptions::*second = nullptr; ///< Where given, it must be set as well.
    bool greyCounts = false;                         ///< Whether a grey tick, 2, lets it run as well.

    bool IsOpen(const AnalysisOptions& options) const {
        if (second && !IsSet(options.*second))
            return false;
        if (!option)
            return true;
        return greyCounts ? options.*option != 0 : IsSet(options.*option);
    }
};

/// A section of the report, or a plot, as it tells of itself. The unit that writes it defines one.
struct SectionDefinition {
    SectionFrame frame; ///< A plot's has an id alone.
    Gate gate{};
    const char* progress =
        nullptr;                ///< The text of the progress line while it runs; null: the last one stays.
    std::string_view meaning{}; ///< What it computes, in one sentence; empty for a plot without text.
    std::string_view papers{};  ///< Keys of the papers that it follows, separated by "; ".
    void (*write)(RunState&) = nullptr; ///< Null: a comparison's, which writes its sections itself.
    bool nested = false;                ///< Another section runs it.
};

/// Runs a section under its own name: what fails in it is filed with it.
inline void RunSection(RunState& run, const SectionDefinition& section) {
    if (section.progress)
        run.progress.ShowStage(section.progress);
    const std::string_view outer = std::exchange(run.sectionId, section.frame.id);
    run.Statement([&] { section.write(run); });
    run.sectionId = outer;
}

} // namespace corvane
