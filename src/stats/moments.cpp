#include "stats/moments.h"

#include "stats/sums.h"

namespace corvane::stats {

MeanVarianceResult MeanVariance(std::span<const double> sample, const std::stop_token& stop) {
    const CentredSample centred = Centre(sample, stop);
    const double divisor = static_cast<double>(sample.size()) - 1.0;
    const double variance = Ratio(centred.SumSquares.High, divisor);
    return {Unscale(centred.Mean.High, centred.Exponent), Unscale(variance, 2 * centred.Exponent),
            Unscale(std::sqrt(variance), centred.Exponent)};
}

} // namespace corvane::stats
