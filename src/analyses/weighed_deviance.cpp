#include "analyses/weighed_deviance.h"

#include "analyses/run_plot.h"

namespace corvane {
namespace {

constexpr Place places[] = {
    {"X", "pair.predicted", "X", 10, 3},
    {"Y", "pair.observed", "Y", 10, 3},
    {"WtDev", "deviation.weighed", "WtDev", 15, 10},
};

void Write(RunState& run) {
    constexpr std::size_t ruleLength = 36;
    const SharedColumn X = run.Share(run.arrays.X), WtDev = run.Share(run.residuals.WtDev);
    ReportSection& section = run.report.BeginSection(WeighedDevianceSection.frame);
    section.Blank();
    section.BeginTable({"X", "Y", "WtDev"});
    section.TableHead("   X          Y         WtDev     ");
    section.Rule(ruleLength);
    section.List({{{"X", X}, {"Y", run.Share(run.arrays.Y)}, {"WtDev", WtDev}}, run.arrays.Count()});
    section.Rule(ruleLength);
    // The X axis is named after the observed values although the predicted ones are on it.
    OpenPlot(run, ChartKind::WeighedDeviance,
             {"Weighed Deviance vs Model-Predicted", "Observed", "Deviation"}, X, WtDev);
}

} // namespace

const SectionDefinition WeighedDevianceSection{
    .frame = {"weighed_deviance", "WEIGHED DEVIANCE ANALYSIS", {places}},
    .gate = {&AnalysisOptions::WEIGHED_DEVIANCE},
    .meaning = "How much of the total squared deviation each pair contributes.",
    .write = Write,
};

} // namespace corvane
