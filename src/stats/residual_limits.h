#pragma once

#include <optional>

/// Limits by which deviations and residuals are judged.
namespace corvane::stats {

/// Limits of the size of a deviation, in its unit.
struct SizeLimits {
    double Lower = 0, Upper = 0;
};

/// Limits of the size that a deviation exceeds with probability alpha: root sqrt(chi(1 - alpha, 1) / chi),
/// `root` that of a sum of squares and chi the quantiles at 1 - tail and tail of its DF degrees of freedom:
/// Freese (1960), Forest Science 6, 139-145; Reynolds (1984), Forest Science 30, 454-469. Nothing where a
/// probability has no quantile or a number leaves the range of a double.
std::optional<SizeLimits> FreeseLimits(double root, int DF, double tail, double alpha);

/// The size z SD / sqrt(N) within which a deviation is acceptable, z the one-sided normal quantile of
/// the confidence, a fraction. Nothing where it overflows, as at a confidence of 1, or without pairs.
std::optional<double> AcceptableDeviation(double confidence, double SD, double N);

/// The limits of influence that depend on the number of pairs alone: Neter, Kutner, Nachtsheim and Wasserman
/// (1996), chapter 9.
struct InfluenceLimits {
    double Leverage = 0; ///< 2 p / N
    double DFFITS = 0;   ///< 2 sqrt(p / N)
};

/// For the p = 2 parameters of a line and N > 0 pairs.
InfluenceLimits InfluenceLimitsOf(double N);

} // namespace corvane::stats
