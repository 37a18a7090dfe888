#include "stats/information_criteria.h"

#include "stats/line_fits.h"
#include "stats/sums.h"

#include <cmath>
#include <numbers>

namespace corvane::stats {

std::optional<InformationCriteria> LineInformationCriteria(std::span<const double> x,
                                                           std::span<const double> y) {
    const double n = static_cast<double>(y.size());
    // In units of a power of two, since SSE itself may be out of a double's range where its logarithm is not.
    const int exponent = ScaleExponent(y);
    const double SSE = FitLine(x, Scaled(y, exponent)).Chi2;
    if (n < 4 || !(SSE > 0))
        return InformationCriteria{};
    if (n == 4)
        return std::nullopt;
    constexpr double parameters = 3, twicePi = 6.283186; // to these digits: the report's AIC rests on them
    const double c = std::log(twicePi) + 1;
    const double q = std::log(SSE / n) + 2 * exponent * std::numbers::ln2;
    const double correction = 2 * parameters * (parameters + 1) / (n - parameters - 1);
    return InformationCriteria{n * (q + c) + 2 * parameters, correction + n * (q + c) + 2 * parameters,
                               correction + n * q + 2 * parameters};
}

double AkaikeWeight(double difference) {
    // The form that ends at 0 and 1 where the exponential leaves the range of a double.
    return 1 / (1 + std::exp(0.5 * difference));
}

std::optional<double> EvidenceRatio(double difference) {
    const double weight = AkaikeWeight(difference);
    const bool firstIsBetter = difference >= 0;
    const double better = firstIsBetter ? 1 - weight : weight, worse = firstIsBetter ? weight : 1 - weight;
    if (!(worse > 0))
        return std::nullopt;
    return better / worse;
}

} // namespace corvane::stats
