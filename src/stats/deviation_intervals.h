#pragma once

#include <span>
#include <vector>

#include "stats/cancellation.h"

namespace corvane::stats {

/// A pair of the regression of deviations on X, with limits for the mean deviation at its X (CI) and for a
/// single further deviation there (PI).
struct DeviationIntervalRow {
    double X = 0.0;
    double Deviation = 0.0;
    double Fitted = 0.0;
    double CILower = 0.0;
    double CIUpper = 0.0;
    double PILower = 0.0;
    double PIUpper = 0.0;
};

/// Intervals about the line a + b x of the regression of the deviations (observed minus predicted, handed
/// over as such) on x: Fitted -+ t s sqrt(h) and Fitted -+ t s sqrt(1 + h) with h = 1/N + (x - mean x)^2 /
/// Sxx, s^2 = sum (deviation - Fitted)^2 / (N - 2), and t the quantile of Student's t with N - 2 degrees of
/// freedom that holds Confidence per cent between -t and t (Neter, Kutner, Nachtsheim and Wasserman, 1996,
/// chapter 2). One row a pair, x ascending, equal x in row order. Constant x: h = 1/N. N < 3, or Confidence
/// not above 0: the limits are the fitted value; Confidence of 100 or more: they saturate unless s = 0. Of
/// samples of unequal length the shorter counts.
std::vector<DeviationIntervalRow> DeviationIntervals(double a, double b, std::span<const double> x,
                                                     std::span<const double> deviation, double Confidence,
                                                     const std::stop_token& stop = {});

} // namespace corvane::stats
