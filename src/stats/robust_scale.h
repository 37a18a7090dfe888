#pragma once

#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

// Robust estimates of scale, in the units of the sample and consistent for the standard deviation of normal
// data; half of the sample may be arbitrary before either breaks down. Time O(N log N), 16 bytes an element.
// N < 2 gives 0, as does a sample of which more than half is one value. Differences are those of the doubles,
// rounded to double; a result beyond the range of a double saturates; NaN counts as 0, infinity as the
// largest double.

/// Sn = c 1.1926 lomed_i himed_j |x_i - x_j| (Croux and Rousseeuw, 1992, Computational Statistics 1,
/// 411-428): himed the (floor(N/2) + 1)-th of the N distances from x_i, its own 0 included, lomed the
/// floor((N + 1)/2)-th of N values. c: their factors for N = 2 to 9, N / (N - 0.9) for odd N above, else 1.
double RobustSn(std::span<const double> sample, const std::stop_token& stop = {});

/// Qn = d 2.21914 times the k-th smallest of the differences |x_i - x_j|, i < j, k = h (h - 1)/2 with
/// h = floor(N/2) + 1 (Rousseeuw and Croux, 1993, JASA 88, 1273-1283). d is tabulated for N = 2 to 12, else
/// 1 / (1 + c/N) with c = 1.60188 + (-2.1284 - 5.172/N)/N for odd and 3.67561 + (1.9654 + (6.987 - 77/N)/N)/N
/// for even N. The order statistic is exact.
double RobustQn(std::span<const double> sample, const std::stop_token& stop = {});

} // namespace corvane::stats
