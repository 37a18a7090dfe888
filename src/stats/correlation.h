#pragma once

#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

struct CentredSample;

struct Pearson {
    double r = 0.0;
    double T = 0.0; ///< of H0: r = 0, N - 2 degrees of freedom
    double P = 1.0; ///< two-sided
    double RSquared = 0.0;
    double AdjRSquared = 0.0;
};

/// Pearson's r; T = r sqrt((N - 2) / (1 - r^2)); AdjRSquared = 1 - (1 - r^2)(N - 1)/(N - 2).
/// 1 - r^2 is taken as SSE / Syy of the least-squares line, so that T keeps its digits near |r| = 1.
/// Points exactly on a line: |r| = 1, T saturated, P = 0. A constant sample: r = T = 0, P = 1.
/// N = 2: T = 0, P = 1; N < 2: r = 0.
Pearson PearsonCorrelation(std::span<const double> x, std::span<const double> y,
                           const std::stop_token& stop = {});

/// The same of samples of one length that were centred before, for a caller that correlates each of many with
/// every other.
Pearson PearsonCorrelation(const CentredSample& x, const CentredSample& y, const std::stop_token& stop = {});

struct ResistantFit {
    double ResistantR2 = 0.0;
    double AdjResistantR2 = 0.0;
};

/// Resistant r^2 of a fit (Kvalseth, 1985, American Statistician 39, 279-285):
/// 1 - (median |y - fitted| / median |y - MeanY|)^2, adjusted as Pearson's r^2 is.
/// Denominator 0: saturated at the lowest double, or 0 where the numerator is 0 as well.
ResistantFit ResistantRSquared(std::span<const double> y, double MeanY, std::span<const double> fitted,
                               const std::stop_token& stop = {});

} // namespace corvane::stats
