#include "stats/moment_statistics.h"

#include <algorithm>
#include <cmath>

#include "stats/order.h"
#include "stats/sums.h"

namespace corvane::stats {

namespace {

/// G1 and G2 from the central moments, 0 where their divisors are.
double AdjustedSkewness(double n, double m2, double m3) {
    return n < 3.0 ? 0.0 : std::sqrt(n * (n - 1.0)) / (n - 2.0) * (m3 / (m2 * std::sqrt(m2)));
}

double AdjustedKurtosis(double n, double m2, double m4) {
    const double excess = m4 / (m2 * m2) - 3.0;
    return n < 4.0 ? 0.0 : (n - 1.0) / ((n - 2.0) * (n - 3.0)) * ((n + 1.0) * excess + 6.0);
}

} // namespace

MomentStatisticsResult MomentStatistics(std::span<const double> sample, const std::stop_token& stop) {
    MomentStatisticsResult result;
    if (sample.empty())
        return result;
    const double n = static_cast<double>(sample.size());
    const CentredSample centred = Centre(sample, stop);
    const double variance = Ratio(centred.SumSquares.High, n - 1.0);
    result.Mean = Unscale(centred.Mean.High, centred.Exponent);
    result.Variance = Unscale(variance, 2 * centred.Exponent);
    result.SD = Unscale(std::sqrt(variance), centred.Exponent);
    result.Min = ArrayMin(sample, stop);
    result.Max = ArrayMax(sample, stop);

    std::vector<double> values = Scaled(sample, centred.Exponent, stop);
    Sum absolute;
    for (double value : Elements(values, stop))
        absolute.Add(std::fabs(value));
    result.AbsMean = Unscale(absolute.Value() / n, centred.Exponent);
    for (std::size_t i : Indices(sample.size(), stop))
        values[i] = Finite(sample[i]);
    result.Median = Median(std::move(values), stop);

    if (variance > 0.0) {
        // In units of the power of two next to the SD, so that fourth powers stay in range beside a far
        // offset.
        int unit = 0;
        std::frexp(std::sqrt(variance), &unit);
        const double scale = std::ldexp(1.0, -unit);
        Sum cubes, fourths;
        for (const DoubleDouble& deviation : Elements(centred.Deviation, stop)) {
            const double z = deviation.High * scale, square = z * z;
            cubes.AddProduct(square, z);
            fourths.AddProduct(square, square);
        }
        const double m2 = centred.SumSquares.High * Square(scale) / n;
        result.Skewness = AdjustedSkewness(n, m2, cubes.Value() / n);
        result.Kurtosis = AdjustedKurtosis(n, m2, fourths.Value() / n);
    }
    return result;
}

} // namespace corvane::stats
