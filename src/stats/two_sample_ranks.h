#pragma once

#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

// Tests that two samples, which may differ in length, come from one distribution. Ties are counted exactly.
// An empty sample gives statistics 0 and the P of no evidence.

struct KolmogorovSmirnovResult {
    double D = 0.0;      ///< largest distance of the two empirical distribution functions
    double NValue = 0.0; ///< NX NY / (NX + NY)
    double P = 1.0;
};

/// Two-sample Kolmogorov-Smirnov test: P of the Kolmogorov distribution at
/// (sqrt(NValue) + 0.12 + 0.11 / sqrt(NValue)) D (Stephens, 1970, JRSS B 32, 115-122); D = 0: P = 1.
KolmogorovSmirnovResult KolmogorovSmirnov2(std::span<const double> x, std::span<const double> y,
                                           const std::stop_token& stop = {});

struct MannWhitneyResult {
    double WD = 0.0; ///< P(Y > X) - P(Y < X) over all NX NY pairs
    double Z = 0.0;  ///< of U, sign of WD
    double TwoSidedP = 1.0;
    double OneSidedP = 0.5; ///< 1 - Phi(|Z|)
};

/// Mann-Whitney test. Z = (U - NX NY / 2) / sqrt(Var U) without continuity correction, Var U =
/// NX NY / 12 [N + 1 - sum (t^3 - t) / (N (N - 1))] over the tie groups of t of all N = NX + NY values
/// (Lehmann, 1975, Nonparametrics, chapter 1). All values equal: WD = Z = 0.
MannWhitneyResult MannWhitney(std::span<const double> x, std::span<const double> y,
                              const std::stop_token& stop = {});

} // namespace corvane::stats
