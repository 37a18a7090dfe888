#include "evaluation/calculate.h"

#include "analyses/regression.h"
#include "core/evaluation_arrays.h"
#include "core/format/numbers.h"
#include "core/option_changes.h"
#include "evaluation/report_header.h"
#include "evaluation/section_catalog.h"

#include <utility>

namespace corvane {
namespace {

constexpr std::size_t fewestRows = 3;

/// Whether the weighted fit would divide by an SD of 0.
bool SomeWeightMissing(const EvaluationArrays& arrays, const AnalysisOptions& options) {
    for (std::size_t i = 0; i < arrays.Count(); ++i)
        if ((arrays.SDX[i] == 0 && options.UNCERTAINTY_X == 0) ||
            (arrays.SDY[i] == 0 && options.UNCERTAINTY_Y == 0))
            return true;
    return false;
}

void CorrectMethod(RunState& run, Dialogs& dialogs) {
    const AnalysisOptions& options = run.Options();
    const auto useRegular = [&](const char* message) {
        dialogs.ShowMessage(MessageStyle::Information, message, "");
        ChangeOption(run.dataset, run.session, OptionOf(&AnalysisOptions::LSM), true);
    };
    if (IsSet(options.UNCERTAINTY_X) && IsSet(options.UNCERTAINTY_Y) && options.WLSM)
        useRegular("Because both uncertainties are being ignored, the Regular Least-Squares Regression will "
                   "be used");
    if (options.WLSM && SomeWeightMissing(run.arrays, options))
        useRegular(
            "Because at least one SD X or SD Y is zero, the Regular Least-Squares Regression will be used");
}

/// The confidence of the deviation sections: per cent or a fraction; 0 or nothing means 0.95.
void SetDeviationConfidence(RunState& run) {
    const std::string& text = run.Options().DEVIATION_CI_PROB;
    double& probability = run.session.DeviationCIProb;
    if (!text.empty()) {
        probability = LeadingNumber(text);
        if (probability >= 1)
            probability /= 100;
    }
    if (probability == 0)
        probability = 0.95;
}

bool GateIsOpen(const CatalogEntry& entry, const AnalysisOptions& options) {
    if (entry.secondGate && !IsSet(options.*entry.secondGate))
        return false;
    if (!entry.gate)
        return true;
    const std::int16_t tick = options.*entry.gate;
    return entry.greyCounts ? tick != 0 : IsSet(tick);
}

void WriteSections(RunState& run, Feedback& feedback) {
    for (const CatalogEntry& entry : SectionCatalog()) {
        if (!GateIsOpen(entry, run.Options()))
            continue;
        if (entry.progress)
            feedback.ShowProgress(entry.progress);
        run.Statement([&] { entry.write(run); });
    }
}

} // namespace

RunResult Calculate(Dataset& dataset, SessionState& session, const RunServices& services) {
    RunState run{dataset, session, services};
    run.arrays = SelectRows(dataset.cells);
    const int rows = static_cast<int>(run.arrays.Count());
    const auto endWith = [&](RunEnd end) { return RunResult{.end = end, .rows = rows}; };
    if (run.arrays.Count() < fewestRows)
        return endWith(RunEnd::TooFewRows);
    if (!run.arrays.XYDiffer) {
        services.dialogs.ShowMessage(MessageStyle::Critical, IdenticalValuesMessage, "");
        return endWith(RunEnd::IdenticalValues);
    }
    IgnoreUncertainties(run.arrays, dataset.options);
    CorrectMethod(run, services.dialogs);

    services.feedback.ShowProgress("Regression...");
    if (!FitRegression(run)) {
        services.dialogs.ShowMessage(MessageStyle::Critical, NoMethodMessage, "");
        return endWith(RunEnd::NoMethod);
    }
    WriteReportHeader(run, services.clock.Now());
    SetDeviationConfidence(run);
    WriteSections(run, services.feedback);
    services.feedback.HideProgress();
    return {RunEnd::Finished,        rows,
            std::move(run.report),   std::move(run.windows),
            std::move(run.plots),    std::move(run.residueFile),
            std::move(run.warnings), std::move(run.notSaved)};
}

} // namespace corvane
