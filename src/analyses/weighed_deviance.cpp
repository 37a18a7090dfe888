#include "analyses/weighed_deviance.h"

#include "report/transition.h"

#include "plots/point_plot.h"

#include <string>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"X", "pair.predicted", "X", 10, 3},
    {"Y", "pair.observed", "Y", 10, 3},
    {"WtDev", "deviation.weighed", "WtDev", 15, 10},
};

} // namespace

void WriteWeighedDeviance(RunState& run) {
    const std::string rule(36, '-');
    const SharedColumn X = run.Share(run.arrays.X), WtDev = run.Share(run.residuals.WtDev);
    ReportSection& section =
        run.report.BeginSection({"weighed_deviance", "WEIGHED DEVIANCE ANALYSIS", {places}});
    section.Blank();
    Line(section, "   X          Y         WtDev     ");
    Line(section, rule);
    section.List({{{"X", X}, {"Y", run.Share(run.arrays.Y)}, {"WtDev", WtDev}}, run.arrays.Count()});
    Line(section, rule);
    // The X axis is named after the observed values although the predicted ones are on it.
    run.plots.emplace_back(
        PointPlot({"Weighed Deviance vs Model-Predicted", "Observed", "Deviation"}, X, WtDev, run.session));
}

} // namespace corvane
