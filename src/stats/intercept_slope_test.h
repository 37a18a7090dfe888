#pragma once

#include <optional>
#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

/// Two forms of the F test of H0: a = 0 and b = 1, with 2 and N - 2 degrees of freedom.
struct InterceptSlopeTest {
    double F1 = 0.0;
    double P1 = 1.0;
    double F2 = 0.0;
    double P2 = 1.0;
};

/// With e = Y - a - b X, D = Y - X and s^2 = sum e^2 / (N - 2):
/// F1 = sum (a + (b - 1) X)^2 / (2 s^2), Dent and Blackie (1979), Systems Simulation in Agriculture; the
/// usual expanded form loses every digit where X has a large offset. F2 = (sum D^2 - sum e^2) / (2 s^2),
/// Mayer, Stuart and Swain (1994), Agricultural Systems 45, 93-104, summed pair by pair. The two agree for
/// the least-squares line; for another F2 may be negative, and then P2 = 1.
///
/// MeanX and MeanY are not needed by this form of F1. s = 0: F saturated and P = 0, or F = 0 and P = 1 where
/// the line is the identity. N < 3: F = 0, P = 1.
InterceptSlopeTest FTestInterceptSlope(std::span<const double> x, std::span<const double> y, double a,
                                       double b, double MeanX, double MeanY,
                                       const std::stop_token& stop = {});

/// F of H0: intercept and slope are 0, with 2 and df degrees of freedom: df / 2 (SS0 - SSE) / SSE, SS0 the
/// sum of squares about the line y = 0 and SSE that about the fitted line, whose degrees of freedom are df
/// (Kleijnen et al., 1998, Management Science 44, 812-819). It takes their roots, which have a place in a
/// double where squares have none. 0 where SSE is 0; nothing where a number leaves the range of a double.
std::optional<double> FTestZeroLine(double rootSS0, double rootSSE, double df);

} // namespace corvane::stats
