#include "stats/power_kernels.h"

#include <algorithm>
#include <cmath>

namespace corvane::stats {

namespace {

/// Binomial coefficients are made on the way; terms below a quarter of an ulp of the sum end the series.
double BinomialSeries(double power, double u, double firstDegree, double first, int step) {
    double term = first, sum = 0.0;
    for (double k = firstDegree; std::fabs(term) > 0.5e-17 * std::fabs(sum); k += step) {
        sum += term;
        for (int i = 0; i < step; ++i)
            term *= (power - (k + i)) / (k + i + 1.0) * u;
    }
    return sum;
}

} // namespace

double PowerKernel::operator()(double z) const {
    const double value = std::min(std::fabs(z), Cap) * Unit;
    return Power == 1.5 ? value * std::sqrt(value) : std::pow(value, Power);
}

double PowerBeyondTangent::operator()(double t) const {
    const double u = t / Pivot;
    const double excess = std::fabs(u) < 0.25
                              ? BinomialSeries(Power, u, 2.0, 0.5 * Power * (Power - 1.0) * u * u, 1)
                              : std::pow(std::fabs(1.0 + u), Power) - 1.0 - Power * u;
    return std::pow(std::fabs(Pivot), Power) * excess;
}

double PowerBeyondTangent::Tangent(double t) const {
    return std::pow(std::fabs(Pivot), Power) * (1.0 + Power * (t / Pivot));
}

double EvenPowerExcess(double power, double u) {
    if (std::fabs(u) < 0.25)
        return BinomialSeries(power, u, 2.0, 0.5 * power * (power - 1.0) * u * u, 2);
    return 0.5 * (std::pow(std::fabs(1.0 + u), power) + std::pow(std::fabs(1.0 - u), power)) - 1.0;
}

} // namespace corvane::stats
