#pragma once

#include "core/analysis_options.h"
#include "core/run_state.h"

#include <span>

namespace corvane {

/// One section of the report: the tick box that lets it run, the text of the progress line while it runs, and
/// what writes it.
struct CatalogEntry {
    std::int16_t AnalysisOptions::*gate; ///< Null: the section always runs.
    const char* progress;                ///< Null: the last text stays.
    void (*write)(RunState&);
    bool greyCounts = false; ///< Whether a grey tick, 2, lets it run as well.
};

/// The sections in the order of the report.
std::span<const CatalogEntry> SectionCatalog();

} // namespace corvane
