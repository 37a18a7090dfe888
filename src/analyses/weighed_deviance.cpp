#include "analyses/weighed_deviance.h"

#include "plots/point_plot.h"

#include <string>

namespace corvane {

void WriteWeighedDeviance(RunState& run) {
    const std::string rule(36, '-');
    const SharedColumn X = run.Share(run.arrays.X), WtDev = run.Share(run.residuals.WtDev);
    ReportSection& section = run.report.BeginSection("weighed_deviance", "WEIGHED DEVIANCE ANALYSIS");
    section.Line();
    section.Line("   X          Y         WtDev     ");
    section.Line(rule);
    section.Table({{{"X", X, 10, 3}, {"Y", run.Share(run.arrays.Y), 10, 3}, {"WtDev", WtDev, 15, 10}},
                   run.arrays.Count()});
    section.Line(rule);
    // The X axis is named after the observed values although the predicted ones are on it.
    run.plots.emplace_back(
        PointPlot({"Weighed Deviance vs Model-Predicted", "Observed", "Deviation"}, X, WtDev, run.session));
}

} // namespace corvane
