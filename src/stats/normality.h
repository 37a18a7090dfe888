#pragma once

#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

struct ShapiroWilkResult {
    double W = 0.0;
    double P = 1.0; ///< probability of a smaller W from a normal sample
    /// 0: none; 1: fewer than 3 values; 2: more than 5000, so that P extrapolates; 6: no spread
    int IFault = 0;
};

/// Shapiro and Wilk's test of normality with the coefficients and the P of Royston (1992, Statistics and
/// Computing 2, 117-119; 1995, Applied Statistics 44, 547-551, algorithm AS R94); N = 3 is exact.
/// The squared correlation W of the ordered sample and its coefficients does not depend on unit, offset and
/// row order. 1 - W, on which P rests, is summed from the residuals of that correlation.
/// Fewer than 3 values or no spread: W = 0, P = 1.
ShapiroWilkResult ShapiroWilk(std::span<const double> sample, const std::stop_token& stop = {});

} // namespace corvane::stats
