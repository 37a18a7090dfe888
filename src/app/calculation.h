#pragma once

#include "core/dataset.h"
#include "core/session_state.h"
#include "evaluation/calculate.h"
#include "platform/clock.h"
#include "platform/file_store.h"
#include "platform/random.h"

#include <stop_token>
#include <string>

namespace corvane {

/// One press of Calculate. It takes its snapshot and reserves the residue file's number when it is made, runs
/// on any thread, and is brought to its end by the caller on its own.
class Calculation {
public:
    /// `residueFolder`: where a residue file goes; empty: none is written.
    Calculation(const Dataset& dataset, const SessionState& session, const Clock& clock, Random& random,
                FileStore& fileStore, const std::string& residueFolder);
    /// Frees the reserved number where no file was written.
    ~Calculation();
    Calculation(const Calculation&) = delete;
    Calculation& operator=(const Calculation&) = delete;

    /// Runs, once. The document may change meanwhile.
    RunResult Run(Progress& progress, const std::stop_token& stop = {});

    /// Writes the residue file, if the run has one. What cannot be saved is told in `result.notSaved`.
    void SaveResidueFile(RunResult& result);

    /// Removes the residue file again.
    void DiscardResidueFile();

    /// The residue file that was written; empty: none.
    const std::string& ResidueFile() const { return residueFile; }

private:
    void FreeReserved();

    FileStore& files;
    Snapshot snapshot;
    std::string reserved, residueFile;
};

} // namespace corvane
