#pragma once

#include <array>
#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

/// Six lines y = A + B x with standard errors, in the order: OLS of y on x, OLS of x on y, OLS bisector,
/// orthogonal regression, reduced major axis, mean of the two OLS slopes.
struct LineFamily {
    std::array<double, 6> A{};
    std::array<double, 6> B{};
    std::array<double, 6> SDA{};
    std::array<double, 6> SDB{};
};

/// Lines 1 to 5 with the variances of Isobe, Feigelson, Akritas and Babu (1990), Astrophysical Journal 364,
/// 104-113, line 6 after Feigelson and Babu (1992), Astrophysical Journal 397, 55-67. The variance weights of
/// the orthogonal line are positive for either sign of the slope, so that flipping the sign of y (or x)
/// changes no SD.
///
/// Uncorrelated samples (Sxy = 0, Syy > 0): slopes 2 and 6 are the largest double, as are the SDs of lines 2
/// to 6; the bisector is 1, the orthogonal line 0 or the largest double, whichever sample spreads less, and
/// the reduced major axis takes the positive sign. Constant y: all slopes and SDs 0.
/// N < 2 gives slopes and SDs 0 and A = mean(y).
LineFamily FitLineFamily(std::span<const double> x, std::span<const double> y,
                         const std::stop_token& stop = {});

} // namespace corvane::stats
