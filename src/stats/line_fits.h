#pragma once

#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

/// A line y = a + b x with its standard errors and goodness of fit.
struct LineFit {
    double a = 0.0;
    double b = 0.0;
    double SDa = 0.0;
    double SDb = 0.0;
    double Chi2 = 0.0;
    double Q = 1.0;        ///< GammaQ(0.5 (N - 2), 0.5 Chi2); 1 where N < 3
    double RootChi2 = 0.0; ///< in range where Chi2 is not
};

/// Ordinary least squares. Chi2 = SSE = sum of (y - a - b x)^2; with s^2 = SSE / (N - 2),
/// SDb = s / sqrt(Sxx) and SDa = s sqrt(1/N + mean(x)^2 / Sxx).
/// Constant x: b = 0, a = mean(y), SDb (and SDa unless mean(x) is 0) the largest double, 0 where s is 0.
/// N = 2 has s = 0, N = 1 is the constant y, N = 0 all 0. Of samples of unequal length the shorter counts.
LineFit FitLine(std::span<const double> x, std::span<const double> y, const std::stop_token& stop = {});

/// The line that minimises Chi2 = sum of (y - a - b x)^2 / (SDy^2 + b^2 SDx^2): York, Evensen, Lopez Martinez
/// and Delgado (2004), American Journal of Physics 72, 367-375, with uncorrelated errors. SDa and SDb are
/// theirs, taken at the adjusted points and not scaled by the goodness of fit.
///
/// Chi2 can have several minima in b. All of them are bracketed over the half circle of directions, each is
/// refined to the relative Tolerance (values below the resolution of a double mean that resolution), and the
/// lowest is returned. An SD counts by its size, one that is 0 or not finite as 1e-30. Constant x gives b = 0
/// and the weighted mean of y, constant y b = 0; a minimum on the vertical line has b saturated. N < 2 as
/// FitLine.
LineFit FitLineXYErrors(std::span<const double> x, std::span<const double> y, std::span<const double> sdx,
                        std::span<const double> sdy, double Tolerance = 1e-30,
                        const std::stop_token& stop = {});

} // namespace corvane::stats
