#pragma once

#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

struct MeanVarianceResult {
    double Mean = 0.0;
    double Variance = 0.0; ///< divisor N - 1, in squared units of the sample
    double SD = 0.0;
};

/// Mean and sample variance. The mean is summed to about 30 digits and the variance taken around it, so that
/// 1e9 + small values keep their digits; a constant sample has variance 0 exactly.
/// N = 0 gives 0 and 0, N = 1 the value and 0. Results beyond the range of a double saturate.
MeanVarianceResult MeanVariance(std::span<const double> sample, const std::stop_token& stop = {});

} // namespace corvane::stats
