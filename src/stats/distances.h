#pragma once

#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

/// Distances between two vectors, D = Y - X.
struct Distances {
    double Euclidean = 0.0;       ///< Minkowski of order 2
    double Minkowski = 0.0;       ///< (sum |D|^M)^(1/M)
    double Canberra = 0.0;        ///< sum of |D| / (|X| + |Y|), pairs of zeros left out
    double Czekanowski = 0.0;     ///< sum |D| / sum (|X| + |Y|)
    double KullbackLeibler = 0.0; ///< sum q ln(q/p), in nats
};

/// Euclidean and Minkowski are in units of the sample, the others pure numbers. In the Kullback-Leibler
/// divergence q and p are the Y and the X values over their sums, taken over the pairs with both positive; it
/// is summed as q ln(q/p) - q + p, of which no term is negative.
/// Minkowski of an infinite order is the largest |D|, of one that is not positive 0. No pairs, or only such
/// as a measure leaves out: 0. Beyond the range of a double the result saturates.
Distances DistanceMeasures(std::span<const double> x, std::span<const double> y, double M,
                           const std::stop_token& stop = {});

} // namespace corvane::stats
