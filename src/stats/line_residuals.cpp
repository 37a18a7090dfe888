#include "stats/line_residuals.h"

#include <cmath>

namespace corvane::stats {

LineResiduals ResidualsOfLine(const Pairs& pairs, double a, double b, const std::stop_token& stop) {
    LineResiduals result;
    result.Exponent = pairs.CommonExponent(stop);
    const std::vector<double> x = Scaled(pairs.X, result.Exponent, stop),
                              y = Scaled(pairs.Y, result.Exponent, stop);
    // The coefficients of a saturated line stay far enough from the limit for their sums.
    constexpr double limit = 0x1p1020;
    const double intercept = std::clamp(std::ldexp(Finite(a), -result.Exponent), -limit, limit);
    const double slope = std::clamp(Finite(b), -limit, limit);
    const DoubleDouble start{intercept, 0.0};
    const DoubleDouble slopeExcess = TwoSum(slope, -1.0);

    result.Exact = true;
    for (std::size_t i : Indices(pairs.N, stop)) {
        const DoubleDouble fitted = start + TwoProduct(slope, x[i]);
        const double residue = (DoubleDouble{y[i], 0.0} - fitted).High;
        const double noise = Epsilon * (std::fabs(y[i]) + std::fabs(intercept) + std::fabs(slope * x[i]));
        result.Fitted.push_back(fitted.High);
        result.Residue.push_back(residue);
        result.Excess.push_back((start + slopeExcess * DoubleDouble{x[i], 0.0}).High);
        result.Noise.push_back(noise);
        result.Exact = result.Exact && std::fabs(residue) <= noise;
    }
    if (result.Exact)
        std::fill(result.Residue.begin(), result.Residue.end(), 0.0);
    return result;
}

} // namespace corvane::stats
