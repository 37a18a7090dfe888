#pragma once

#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

struct MomentStatisticsResult {
    double Mean = 0.0;
    double Median = 0.0;  ///< mean of the two middle values for even N
    double AbsMean = 0.0; ///< mean of |x|
    double SD = 0.0;
    double Variance = 0.0; ///< divisor N - 1
    double Skewness = 0.0; ///< G1 = sqrt(N (N - 1)) / (N - 2) m3 / m2^1.5
    double Kurtosis =
        0.0; ///< G2 = (N - 1) / ((N - 2)(N - 3)) ((N + 1)(m4 / m2^2 - 3) + 6), 0 for normal data
    double Min = 0.0;
    double Max = 0.0;
};

/// One sample described. m2, m3, m4 are the central moments with divisor N; G1 and G2 the bias-adjusted forms
/// of Joanes and Gill (1998, The Statistician 47, 183-189). Variance in squared units, skewness and kurtosis
/// pure numbers, the others in units of the sample.
/// A constant sample has SD, Variance, Skewness and Kurtosis 0 exactly; Skewness is 0 below N = 3, Kurtosis
/// below N = 4, SD and Variance below N = 2; N = 0 gives zeros. Results beyond the range of a double
/// saturate.
MomentStatisticsResult MomentStatistics(std::span<const double> sample, const std::stop_token& stop = {});

} // namespace corvane::stats
