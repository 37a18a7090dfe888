#include "stats/residual_limits.h"

#include "stats/checked.h"
#include "stats/distributions.h"

#include <cmath>

namespace corvane::stats {
namespace {

std::optional<double> FiniteSize(double size) {
    return size >= 0 && size < Largest ? std::optional(size) : std::nullopt;
}

} // namespace

std::optional<SizeLimits> FreeseLimits(double root, int DF, double tail, double alpha) {
    if (!FiniteSize(root))
        return std::nullopt;
    const double of = InverseChiSquare(1 - alpha, 1);
    const auto limit = [&](double P) -> std::optional<double> {
        const auto ratio = CheckedQuotient(of, InverseChiSquare(P, DF));
        const auto factor = ratio ? CheckedRoot(*ratio) : std::nullopt;
        return factor ? FiniteSize(root * *factor) : std::nullopt;
    };
    const auto lower = limit(1 - tail), upper = limit(tail);
    return lower && upper ? std::optional(SizeLimits{*lower, *upper}) : std::nullopt;
}

std::optional<double> AcceptableDeviation(double confidence, double SD, double N) {
    const auto error = CheckedQuotient(SD, std::sqrt(N));
    // At a confidence of 1 the quantile is the largest double.
    const double size = error ? InverseNormal(confidence) * *error : Largest;
    return std::isfinite(size) && std::abs(size) < Largest ? std::optional(size) : std::nullopt;
}

InfluenceLimits InfluenceLimitsOf(double N) {
    constexpr double p = 2;
    return {2 * p / N, 2 * std::sqrt(p / N)};
}

} // namespace corvane::stats
