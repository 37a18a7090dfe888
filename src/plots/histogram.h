#pragma once

#include "core/dataset.h"
#include "plots/chart_model.h"

#include <span>
#include <string>
#include <vector>

namespace corvane {

/// Counts an ascending sample into bins of width W from lo: [lo + (k - 1) W, lo + k W[ each, the last one
/// taking all that remains. W = 0 puts all into the last.
std::vector<double> CountBins(std::span<const double> sorted, double lo, double W, std::int32_t bins);

/// The chart of a histogram: a category "R01" and so on for each bin, its counts or percentages, alone or
/// accumulated; in the footnote the probability of a smaller Shapiro-Wilk W for each sample; and the text of
/// the ranges. Samples are not empty. A pie without the 2D flag is a plain bar chart.
ChartModel CreateHistogramPlot(const HistogramRequest& request);

/// The Histo action: up to three histograms of the rows before the first without an X, or the critical
/// message in their place. Rows marked "Y" in the Exclude column stay out unless SHOW_EXCLUDED is set, and so
/// do rows without two numbers. HIST_BINS below 3 counts as 3.
struct HistogramOutcome {
    std::vector<HistogramRequest> requests;
    std::string message;
};
HistogramOutcome HistogramPlots(const Dataset& dataset);

} // namespace corvane
