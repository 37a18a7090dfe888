#include "stats/residual_limits.h"

#include "stats/checked.h"
#include "stats/distributions.h"

#include <cmath>

namespace corvane::stats {
namespace {

std::optional<double> RootOfRatio(double numerator, double denominator) {
    const auto ratio = CheckedQuotient(numerator, denominator);
    return ratio ? CheckedRoot(*ratio) : std::nullopt;
}

} // namespace

std::optional<SizeLimits> FreeseLimits(double sumOfSquares, int DF, double tail, double alpha) {
    const double scaled = InverseChiSquare(1 - alpha, 1) * sumOfSquares;
    const auto lower = RootOfRatio(scaled, InverseChiSquare(1 - tail, DF));
    const auto upper = RootOfRatio(scaled, InverseChiSquare(tail, DF));
    return lower && upper ? std::optional(SizeLimits{*lower, *upper}) : std::nullopt;
}

std::optional<double> AcceptableDeviation(double confidence, double variance, double N) {
    const auto error = RootOfRatio(variance, N);
    if (!error)
        return std::nullopt;
    // At a confidence of 1 the quantile is the largest double.
    const double size = InverseNormal(confidence) * *error;
    return std::isfinite(size) ? std::optional(size) : std::nullopt;
}

InfluenceLimits InfluenceLimitsOf(double N) {
    constexpr double p = 2;
    return {2 * p / N, 2 * std::sqrt(p / N)};
}

} // namespace corvane::stats
