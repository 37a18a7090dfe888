#pragma once

#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

struct PairSummary {
    double MeanX = 0.0;
    double MeanY = 0.0;
    double VarX = 0.0;
    double VarY = 0.0;
    double MeanDiff = 0.0; ///< of X - Y
    double VarDiff = 0.0;  ///< of X - Y
    double CovXY = 0.0;
    double SDX = 0.0; ///< the roots of the variances, which are in range where those are not
    double SDY = 0.0;
    double SDDiff = 0.0;
};

/// Means, sample variances and sample covariance (divisor N - 1) of N pairs and of their differences X - Y.
/// Samples of unequal length: the pairs of the shorter. N < 2 gives variances 0, N = 0 all 0.
/// Results beyond the range of a double saturate at its largest value.
PairSummary PairStatistics(std::span<const double> x, std::span<const double> y,
                           const std::stop_token& stop = {});

/// The mean of x - y over the pairs, by the sum of the differences: 0 exactly where two equal means, each
/// rounded, might differ. N = 0 gives 0.
double MeanDifference(std::span<const double> x, std::span<const double> y);

} // namespace corvane::stats
