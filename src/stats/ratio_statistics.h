#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <stop_token>

namespace corvane::stats {

/// Mean and SD (divisor N - 1) of the ratios X / Y of N pairs, both without unit.
struct RatioStatistics {
    std::size_t N = 0;
    double Mean = 0.0;
    double SD = 0.0;
};

/// Limits of the mean ratio.
struct RatioLimits {
    double Lower = 0.0;
    double Upper = 0.0;
};

/// The ratio of each pair, 0 where Y = 0, described as by MomentStatistics. Nothing where a ratio has no
/// finite value.
std::optional<RatioStatistics> RatioMoments(std::span<const double> x, std::span<const double> y,
                                            const std::stop_token& stop = {});

/// The two-sided P of H0: the mean ratio is this one, t = (Mean - ratio) / (SD / sqrt N). It has N - 2
/// degrees of freedom although this is a test of one sample: a convention of this analysis. Nothing where t
/// has no finite value, as where the ratios are all the same.
std::optional<double> RatioTest(const RatioStatistics& ratios, double ratio);

/// Mean ± t SD / sqrt N, t the quantile that has the probability P beyond it: 2 P lies outside both limits.
/// N degrees of freedom, unlike the test.
RatioLimits RatioInterval(const RatioStatistics& ratios, double P);

} // namespace corvane::stats
