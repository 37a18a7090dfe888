#include "app/calculation.h"

#include "app/numbered_file.h"

#include <utility>

namespace corvane {
namespace {

constexpr const char* residualSection = "residual_analysis";

/// The report that holds the residual section.
Report& ResidualReport(RunResult& result) {
    for (RunWindow& window : result.windows)
        if (window.content.Find(residualSection))
            return window.content;
    return result.report;
}

} // namespace

Calculation::Calculation(const Dataset& dataset, const SessionState& session, const Clock& clock,
                         Random& random, FileStore& fileStore, const std::string& residueFolder)
    : files(fileStore), snapshot{dataset, session, clock.Now(), random.Seed(), {}} {
    const AnalysisOptions& options = dataset.options;
    if (residueFolder.empty() || !IsSet(options.RESIDUAL_ANALYSIS) || !IsSet(options.SAVE_RESIDUE_TEXT))
        return;
    // The name is in the report's text even where it cannot be taken; saving then says why.
    if (CreateNumbered(residueFolder, "Residue", 0, "", files, snapshot.residueFile).done)
        reserved = snapshot.residueFile;
}

Calculation::~Calculation() {
    FreeReserved();
}

void Calculation::FreeReserved() {
    if (!reserved.empty() && residueFile.empty())
        files.Remove(reserved);
    reserved.clear();
}

RunResult Calculation::Run(Progress& progress, const std::stop_token& stop) {
    return Calculate(snapshot, progress, stop);
}

void Calculation::SaveResidueFile(RunResult& result) {
    if (result.residueText.empty())
        return;
    const FileResult saved = files.Replace(snapshot.residueFile, result.residueText);
    if (saved.done) {
        residueFile = snapshot.residueFile;
        return;
    }
    FreeReserved();
    const std::string reason = snapshot.residueFile + ": " + saved.reason;
    ResidualReport(result).FileFailure(residualSection, reason);
    result.notSaved.push_back("the residual listing was not saved: " + reason);
}

void Calculation::DiscardResidueFile() {
    if (!residueFile.empty())
        files.Remove(residueFile);
    residueFile.clear();
    reserved.clear();
}

} // namespace corvane
