#pragma once

#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

struct MedianFit {
    double a = 0.0;
    double b = 0.0;
    double AbsDev = 0.0; ///< mean absolute residual, the minimum
    double Chi2 = 0.0;   ///< sum of squared residuals of the same line
};

/// The line y = a + b x of least absolute deviations: an exact minimiser of the sum of |y - a - b x|.
///
/// The minimisers form a convex polygon in (a, b), most often a single point. Of a larger one this returns
/// the slope in the middle of its slopes, and the middle of the intercepts at that slope: a function of the
/// set of points, whatever their order. AbsDev and Chi2 belong to that line before a and b are rounded to
/// doubles. Constant x gives b = 0, a = median(y); N = 1 the constant y, N = 0 all 0. Time O(N log N).
MedianFit FitMedian(std::span<const double> x, std::span<const double> y, const std::stop_token& stop = {});

} // namespace corvane::stats
