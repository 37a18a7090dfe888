#include "analyses/residual_plots.h"

#include "analyses/run_plot.h"
#include "core/format/numbers.h"

#include <algorithm>
#include <utility>

namespace corvane {
namespace {

void OpenResidualPlot(RunState& run) {
    const std::vector<double>& residuals = run.residuals.RStdtRes;
    double k = 0;
    run.Statement([&] {
        const auto [min, max] = std::ranges::minmax(residuals);
        k = Integer32(10.0 * Integer32(Divide(50, max - min)));
    });
    std::string axis = "Studentized Residue";
    SharedColumn shown = run.Share(residuals);
    if (k >= 10) {
        axis += " (×" + PlainNumber(k) + ")";
        std::vector<double> stretched = residuals;
        for (double& value : stretched)
            value *= k;
        shown = ShareColumn(std::move(stretched));
    }
    OpenPlot(run, ChartKind::Residual,
             {"Studentized Residue vs Regression-Predicted", "Regression-Predicted", axis},
             run.Share(run.residuals.Fitted), std::move(shown));
}

void OpenDeviationPlot(RunState& run) {
    OpenPlot(run, ChartKind::Deviation, {"Deviation vs Observed", "Observed", "Deviation"},
             run.Share(run.arrays.Y), run.Share(run.residuals.Deviation));
}

void OpenNormalPlot(RunState& run) {
    OpenPlot(run, ChartKind::Normal, {"Expected Normal Residue vs Residue", "Residue", "Normal Residue"},
             run.Share(run.residuals.Residue), run.Share(run.residuals.NormRes));
}

void OpenResidueRegressionPlots(RunState& run) {
    OpenPlot(run, ChartKind::Residue, {"Residue vs Regression-Predicted", "Regression-Predicted", "Residue"},
             run.Share(run.residuals.Fitted), run.Share(run.residuals.Residue));
    OpenPlot(run, ChartKind::DeviationModel, {"Deviation vs Model-Predicted", "Model-Predicted", "Deviation"},
             run.Share(run.arrays.X), run.Share(run.residuals.Deviation));
}

} // namespace

const SectionDefinition ResidualPlot{
    .frame = {"residual_plot", ""},
    .gate = {&AnalysisOptions::SHOW_RESIDUAL_PLOT, &AnalysisOptions::RESIDUAL_ANALYSIS},
    .progress = "Residual plot...",
    .write = OpenResidualPlot,
};

const SectionDefinition DeviationPlot{
    .frame = {"deviation_plot", ""},
    .gate = {&AnalysisOptions::SHOW_DEVIATION_PLOT, &AnalysisOptions::RESIDUAL_ANALYSIS},
    .progress = "Deviation plot...",
    .write = OpenDeviationPlot,
};

const SectionDefinition NormalPlot{
    .frame = {"normal_plot", ""},
    .gate = {&AnalysisOptions::SHOW_NORMAL_PLOT, &AnalysisOptions::RESIDUAL_ANALYSIS},
    .progress = "Normal plot...",
    .write = OpenNormalPlot,
};

const SectionDefinition ResidueRegressionPlots{
    .frame = {"residue_regression_plots", ""},
    .gate = {&AnalysisOptions::RESIDUAL_REGRESSION_PLOT},
    .write = OpenResidueRegressionPlots,
};

} // namespace corvane
