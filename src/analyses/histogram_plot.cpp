#include "analyses/histogram_plot.h"

#include "plots/histogram.h"

#include <utility>

namespace corvane {
namespace {

void Write(RunState& run) {
    HistogramOutcome outcome = HistogramPlots(run.dataset);
    if (!outcome.message.empty())
        run.Tell(MessageStyle::Critical, outcome.message);
    for (HistogramRequest& request : outcome.requests)
        run.plots.emplace_back(std::move(request));
}

} // namespace

const SectionDefinition HistogramPlot{
    .frame = {"histogram_plot", ""},
    .gate = {&AnalysisOptions::HISTOGRAM_PLOT},
    .write = Write,
};

} // namespace corvane
