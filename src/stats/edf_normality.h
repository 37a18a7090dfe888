#pragma once

#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

/// Distances between the empirical distribution function of a sample and the normal law with its mean and SD.
struct EDFResult {
    double D = 0.0;  ///< Kolmogorov-Smirnov
    double V = 0.0;  ///< Kuiper
    double W2 = 0.0; ///< Cramer-von Mises
    double PW2 = 1.0;
    double U2 = 0.0; ///< Watson
    double PU2 = 1.0;
    double A2 = 0.0; ///< Anderson-Darling
    double PA2 = 1.0;
};

/// Statistics after Davis and Stephens (1989), Applied Statistics 38, 535-543 (AS 248). With the ordered
/// sample x_1..x_N, i from 1, and z_i = Phi((x_i - mean) / SD), SD of divisor N - 1:
///     D+ = max(i/N - z_i), D- = max(z_i - (i - 1)/N), D = max(D+, D-), V = D+ + D-,
///     W2 = 1/(12 N) + sum (z_i - (2 i - 1)/(2 N))^2, U2 = W2 - N (mean z - 1/2)^2,
///     A2 = -N - sum (2 i - 1) (ln z_i + ln(1 - z_(N+1-i))) / N.
/// The statistics are unmodified; their P are those of Stephens in D'Agostino and Stephens (1986),
/// Goodness-of-Fit Techniques, Table 4.9 (mean and variance unknown). Both tails of Phi are taken to full
/// relative accuracy, and ln z stays finite however far out a value lies.
/// Mode 2, mean and SD estimated from the sample, is the only mode, and the statistics are never adjusted:
/// both arguments are unused. Fewer than 2 values or no spread: statistics 0 with P = 1.
EDFResult EDFNormalityStatistics(std::span<const double> sample, int Mode = 2, bool Adjusted = false,
                                 const std::stop_token& stop = {});

} // namespace corvane::stats
