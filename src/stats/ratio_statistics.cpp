#include "stats/ratio_statistics.h"

#include <cmath>
#include <vector>

#include "stats/distributions.h"
#include "stats/moment_statistics.h"
#include "stats/pairs.h"

namespace corvane::stats {

namespace {

/// A quotient that has a finite value. A saturated operand stands for one that has none.
std::optional<double> Quotient(double numerator, double denominator) {
    const double quotient = numerator / denominator;
    if (std::fabs(numerator) == Largest || std::fabs(denominator) == Largest || !std::isfinite(quotient))
        return std::nullopt;
    return quotient;
}

} // namespace

std::optional<RatioStatistics> RatioMoments(std::span<const double> x, std::span<const double> y) {
    const Pairs pairs(x, y);
    std::vector<double> ratios(pairs.N);
    for (std::size_t i = 0; i < pairs.N; ++i) {
        if (pairs.Y[i] == 0.0)
            continue;
        const std::optional<double> ratio = Quotient(pairs.X[i], pairs.Y[i]);
        if (!ratio)
            return std::nullopt;
        ratios[i] = *ratio;
    }
    const MomentStatisticsResult moments = MomentStatistics(ratios);
    return RatioStatistics{pairs.N, moments.Mean, moments.SD};
}

std::optional<double> RatioTest(const RatioStatistics& ratios, double ratio) {
    const double n = static_cast<double>(ratios.N);
    const std::optional<double> error = Quotient(ratios.SD, std::sqrt(n));
    const std::optional<double> t = error ? Quotient(ratios.Mean - ratio, *error) : std::nullopt;
    return t ? std::optional(TailT(*t, n - 2.0)) : std::nullopt;
}

RatioLimits RatioInterval(const RatioStatistics& ratios, double P) {
    const double n = static_cast<double>(ratios.N);
    // The quantile of the lower tail is negative, so that this is the way down to the lower limit.
    const double half = InverseT(P, n) * ratios.SD / std::sqrt(n);
    return {ratios.Mean + half, ratios.Mean - half};
}

} // namespace corvane::stats
