#pragma once

#include "core/format/paths.h"

#include <string>

namespace corvane {

/// What one run hands to the next.
struct RunMemory {
    // Acceptance limits; 0 means not set. One that a run derives stays for later runs.
    double DeviationLower = 0, DeviationUpper = 0;
    double ResidueLower = 0, ResidueUpper = 0;
    double RStdtResLower = 0, RStdtResUpper = 0;

    double DeviationCIProb = 0.95; ///< Confidence as a fraction, set again by every run.
    double MeanY = 0;              ///< Mean of Y of the last run, for the limits that are a percentage of it.

    bool operator==(const RunMemory&) const = default;
};

/// What outlives a run. A window keeps one for the life of the process; a subcommand makes a fresh one.
struct SessionState : RunMemory {
    std::string CurrentDatasetName; ///< Path of the dataset's file; empty until one was opened or saved.
    std::string rememberedFolder;   ///< Where the last file dialog was.
};

/// The dataset's name in the captions of windows.
inline std::string DatasetTitle(const SessionState& session) {
    const std::string name = FileNameOf(session.CurrentDatasetName);
    return name.empty() ? "Untitled" : name;
}

} // namespace corvane
