#pragma once

#include <vector>

#include "stats/cancellation.h"
#include "stats/power_kernels.h"
#include "stats/power_tree.h"

/// Sums of |a_i - b_j|^p over all pairs of two samples in linear time: a fast multipole method on the line
/// (Greengard and Rokhlin, 1987, Journal of Computational Physics 73, 325-348) that interpolates the kernel
/// at Chebyshev points (Dutt, Gu and Rokhlin, 1996, SIAM Journal on Numerical Analysis 33, 1689-1711).
namespace corvane::stats {

struct PowerSumsResult {
    std::vector<double> Rows;    ///< for each value of the first sample, over the second
    std::vector<double> Columns; ///< for each value of the second, over the first
};

/// Sums of (min(|a - b|, Cap) Unit)^Power - (Cap Unit)^Power; without a cap of (|a - b| Unit)^Power.
/// Relative error about 1e-13 of the largest sums. An empty sample has no sums.
PowerSumsResult PowerSums(const PowerTree& a, const PowerTree& b, const PowerKernel& kernel,
                          const std::stop_token& stop = {});

/// Whether two samples lie so far apart, for their width, that PowerSumsBeyondTangent can be used.
bool FarApart(const PowerTree& a, const PowerTree& b);

/// Sums over the pairs of two samples far apart, the pivot the distance of the centres of their ranges.
PowerSumsResult PowerSumsBeyondTangent(const PowerTree& a, const PowerTree& b, double power,
                                       const std::stop_token& stop = {});

} // namespace corvane::stats
