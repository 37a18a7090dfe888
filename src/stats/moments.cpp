#include "stats/moments.h"

#include "stats/sums.h"

namespace corvane::stats {

MeanVarianceResult MeanVariance(std::span<const double> sample, const std::stop_token& stop) {
    const CentredSample centred = Centre(sample, stop);
    const double divisor = static_cast<double>(sample.size()) - 1.0;
    return {Unscale(centred.Mean.High, centred.Exponent),
            Unscale(Ratio(centred.SumSquares.High, divisor), 2 * centred.Exponent)};
}

} // namespace corvane::stats
