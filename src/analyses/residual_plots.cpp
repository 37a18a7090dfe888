#include "analyses/residual_plots.h"

#include "core/format/numbers.h"
#include "plots/point_plot.h"

#include <algorithm>
#include <utility>

namespace corvane {
namespace {

void Request(RunState& run, PlotTitles titles, const SharedColumn& x, SharedColumn y) {
    run.plots.emplace_back(PointPlot(std::move(titles), x, std::move(y), run.session));
}

void RequestResidualPlot(RunState& run) {
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
    Request(run, {"Studentized Residue vs Regression-Predicted", "Regression-Predicted", axis},
            run.Share(run.residuals.Fitted), std::move(shown));
}

void RequestDeviationPlot(RunState& run) {
    Request(run, {"Deviation vs Observed", "Observed", "Deviation"}, run.Share(run.arrays.Y),
            run.Share(run.residuals.Deviation));
}

void RequestNormalPlot(RunState& run) {
    Request(run, {"Expected Normal Residue vs Residue", "Residue", "Normal Residue"},
            run.Share(run.residuals.Residue), run.Share(run.residuals.NormRes));
}

void RequestResidueRegressionPlots(RunState& run) {
    Request(run, {"Residue vs Regression-Predicted", "Regression-Predicted", "Residue"},
            run.Share(run.residuals.Fitted), run.Share(run.residuals.Residue));
    Request(run, {"Deviation vs Model-Predicted", "Model-Predicted", "Deviation"}, run.Share(run.arrays.X),
            run.Share(run.residuals.Deviation));
}

} // namespace

const SectionDefinition ResidualPlot{
    .frame = {"residual_plot", ""},
    .gate = {&AnalysisOptions::SHOW_RESIDUAL_PLOT, &AnalysisOptions::RESIDUAL_ANALYSIS},
    .progress = "Residual plot...",
    .write = RequestResidualPlot,
};

const SectionDefinition DeviationPlot{
    .frame = {"deviation_plot", ""},
    .gate = {&AnalysisOptions::SHOW_DEVIATION_PLOT, &AnalysisOptions::RESIDUAL_ANALYSIS},
    .progress = "Deviation plot...",
    .write = RequestDeviationPlot,
};

const SectionDefinition NormalPlot{
    .frame = {"normal_plot", ""},
    .gate = {&AnalysisOptions::SHOW_NORMAL_PLOT, &AnalysisOptions::RESIDUAL_ANALYSIS},
    .progress = "Normal plot...",
    .write = RequestNormalPlot,
};

const SectionDefinition ResidueRegressionPlots{
    .frame = {"residue_regression_plots", ""},
    .gate = {&AnalysisOptions::RESIDUAL_REGRESSION_PLOT},
    .write = RequestResidueRegressionPlots,
};

} // namespace corvane
