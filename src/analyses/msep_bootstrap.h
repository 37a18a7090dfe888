#pragma once

#include "run/run_state.h"
#include "stats/moments.h"

#include <cstdint>
#include <span>

namespace corvane {

/// Mean and variance of MSEP, and of its variance, over the sub-samples.
struct MsepSeries {
    stats::MeanVarianceResult MSEP, VarMSEP;
};

/// Draws sub-samples of the differences Y - X: each is kept with the given percentage, once or not at all, so
/// that sizes vary. A sub-sample without pairs counts with 0 and 0. A seed gives the same draws on every
/// platform.
MsepSeries BootstrapMSEP(std::int32_t subSamples, double percentage, std::span<const double> differences,
                         std::uint64_t seed);

/// Section "BOOTSTRAP ANALYSIS OF MSEP". An expected size below three pairs is refused; one beyond 16 bits
/// draws nothing: the results are 0, the size has no line, and the run warns.
void WriteMsepBootstrap(RunState& run);

} // namespace corvane
