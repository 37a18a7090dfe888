#include "analyses/histogram_plot.h"

#include "plots/histogram.h"
#include "stats/cancellation.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace corvane {
namespace {

/// A sample of the dataset; one that the run has in order and tested already is not treated again.
HistogramSample SampleOfRun(RunState& run, std::vector<double> values) {
    stats::ThrowIfCancelled(run.stop);
    if (values == run.arrays.X)
        return {run.SortedX(), run.NormalityX().P};
    if (values == run.arrays.Y)
        return {run.SortedY(), run.NormalityY().P};
    return SampleOf(std::move(values));
}

void Write(RunState& run) {
    ChartOutcome outcome = HistogramPlots(
        run.dataset, [&](std::vector<double> values) { return SampleOfRun(run, std::move(values)); });
    if (!outcome.message.empty())
        run.Tell(MessageStyle::Critical, outcome.message);
    std::ranges::move(outcome.charts, std::back_inserter(run.plots));
}

} // namespace

const SectionDefinition HistogramPlot{
    .frame = {"histogram_plot", ""},
    .gate = {&AnalysisOptions::HISTOGRAM_PLOT},
    .write = Write,
};

} // namespace corvane
