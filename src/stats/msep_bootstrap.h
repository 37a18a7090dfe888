#pragma once

#include "stats/moments.h"

#include <cstdint>
#include <functional>
#include <span>
#include <stop_token>

namespace corvane::stats {

/// Mean and variance of MSEP, and of its variance, over the sub-samples.
struct MsepSeries {
    MeanVarianceResult MSEP, VarMSEP;
};

/// Draws sub-samples of the differences Y - X: each is kept with the given percentage, once or not at all, so
/// that sizes vary. A sub-sample without pairs counts with 0 and 0. A seed gives the same draws on every
/// platform.
///
/// Throws Cancelled where a stop is requested; `share` hears from 0 to 1 how much is done. Both come up at
/// least once in ElementsBetweenLooks draws.
MsepSeries BootstrapMSEP(std::int32_t subSamples, double percentage, std::span<const double> differences,
                         std::uint64_t seed, const std::stop_token& stop = {},
                         const std::function<void(double)>& share = {});

} // namespace corvane::stats
