#pragma once

#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

struct KendallResult {
    double Tau = 0.0;
    double Z = 0.0;
    double P = 1.0; ///< two-sided
};

/// Kendall's tau-b: S / sqrt((n0 - n1)(n0 - n2)), S the concordant minus the discordant pairs, n0 =
/// N (N - 1)/2, n1 and n2 the pairs tied in x and in y. Z = S / sqrt(Var S) with the full correction for ties
/// (Kendall, 1975, Rank Correlation Methods, chapter 4), over tie groups of t values in x and u in y:
///   Var S = [N (N - 1)(2N + 5) - sum t (t - 1)(2t + 5) - sum u (u - 1)(2u + 5)] / 18
///           + sum t (t - 1) sum u (u - 1) / (2 N (N - 1))
///           + sum t (t - 1)(t - 2) sum u (u - 1)(u - 2) / (9 N (N - 1)(N - 2)).
/// Inversions are counted by merge sort (Knight, 1966, JASA 61, 436-439): O(N log N).
/// A constant sample, or N < 2: Tau = Z = 0, P = 1. Of unequal lengths the shorter counts.
KendallResult KendallTau(std::span<const double> x, std::span<const double> y,
                         const std::stop_token& stop = {});

} // namespace corvane::stats
