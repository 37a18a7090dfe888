#pragma once

#include <span>
#include <vector>

#include "stats/cancellation.h"

namespace corvane::stats {

struct SpearmanResult {
    std::vector<double> RankX; ///< 1 to N in row order, equal values at their mean rank
    std::vector<double> RankY;
    std::vector<double> Order; ///< the row numbers 1 to N
    double D = 0.0;            ///< sum of squared rank differences
    double Z = 0.0;            ///< of D: (D - E D) / SD D, negative for a positive correlation
    double P = 1.0;            ///< of Z, two-sided
    double rs = 0.0;
    double T = 0.0;  ///< of H0: rs = 0, N - 2 degrees of freedom
    double P2 = 1.0; ///< of T, two-sided
};

/// Spearman's rank correlation (Kendall, 1975, Rank Correlation Methods): rs is Pearson's r of the mean
/// ranks, T = rs sqrt((N - 2) / (1 - rs^2)). With the tie corrections in mean and variance of D its Z is -rs
/// sqrt(N - 1). An inverted side has the ranks N + 1 - rank. All numbers are pure. Equal or opposite ranks:
/// rs = 1 or -1, T saturated, P2 = 0, but T = 0 and P2 = 1 at N = 2. A constant sample, or N < 2: rs = Z = T
/// = 0, P = P2 = 1. Of unequal lengths the shorter counts.
SpearmanResult SpearmanRank(std::span<const double> x, std::span<const double> y, bool InvertX = false,
                            bool InvertY = false, const std::stop_token& stop = {});

} // namespace corvane::stats
