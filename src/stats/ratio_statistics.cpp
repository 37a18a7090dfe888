#include "stats/ratio_statistics.h"

#include "stats/cancellation.h"
#include "stats/checked.h"
#include <cmath>
#include <vector>

#include "stats/distributions.h"
#include "stats/moment_statistics.h"
#include "stats/pairs.h"

namespace corvane::stats {

std::optional<RatioStatistics> RatioMoments(std::span<const double> x, std::span<const double> y,
                                            const std::stop_token& stop) {
    const Pairs pairs(x, y);
    std::vector<double> ratios(pairs.N);
    for (std::size_t i : Indices(pairs.N, stop)) {
        if (pairs.Y[i] == 0.0)
            continue;
        const std::optional<double> ratio = CheckedQuotient(pairs.X[i], pairs.Y[i]);
        if (!ratio)
            return std::nullopt;
        ratios[i] = *ratio;
    }
    const MomentStatisticsResult moments = MomentStatistics(ratios, stop);
    return RatioStatistics{pairs.N, moments.Mean, moments.SD};
}

std::optional<double> RatioTest(const RatioStatistics& ratios, double ratio) {
    const double n = static_cast<double>(ratios.N);
    const std::optional<double> error = CheckedQuotient(ratios.SD, std::sqrt(n));
    const std::optional<double> t = error ? CheckedQuotient(ratios.Mean - ratio, *error) : std::nullopt;
    return t ? std::optional(TailT(*t, n - 2.0)) : std::nullopt;
}

RatioLimits RatioInterval(const RatioStatistics& ratios, double P) {
    const double n = static_cast<double>(ratios.N);
    // The quantile of the lower tail is negative, so that this is the way down to the lower limit.
    const double half = InverseT(P, n) * ratios.SD / std::sqrt(n);
    return {ratios.Mean + half, ratios.Mean - half};
}

} // namespace corvane::stats
