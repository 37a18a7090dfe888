#pragma once

#include "core/dataset.h"
#include "plots/dataset_plots.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace corvane {

/// Counts an ascending sample into bins of width W from lo: [lo + (k - 1) W, lo + k W[ each, the last one
/// taking all that remains. W = 0 puts all into the last.
std::vector<double> CountBins(std::span<const double> sorted, double lo, double W, std::int32_t bins);

/// A sample in ascending order, not empty, with the probability of a smaller Shapiro-Wilk W.
struct HistogramSample {
    std::vector<double> sorted;
    double normality = 1;
};
HistogramSample SampleOf(std::vector<double> values);

/// Where the samples come from: a caller that knows some in order already hands them out.
using SampleSource = std::function<HistogramSample(std::vector<double> values)>;

/// The Histo action: up to three histograms of the rows before the first without an X, or the critical
/// message in their place. Rows marked "Y" in the Exclude column stay out unless SHOW_EXCLUDED is set, and so
/// do rows without two numbers. HIST_BINS below 3 counts as 3.
///
/// A histogram has a category "R01" and so on for each bin, the counts or percentages of one or two samples
/// over common bins, alone or accumulated; in the footnote the probability of a smaller Shapiro-Wilk W for
/// each sample; and the text of the ranges. A pie without the 2D flag is a plain bar chart.
ChartOutcome HistogramPlots(const Dataset& dataset, const SampleSource& sampleOf = SampleOf);

} // namespace corvane
