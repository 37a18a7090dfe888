#include "core/format/failure.h"

#include "core/format/numbers.h"

#include <cmath>
#include <limits>

namespace corvane {

namespace {

constexpr double saturated = std::numeric_limits<double>::max();

} // namespace

double Divide(double numerator, double denominator) {
    if (denominator == 0)
        throw RunFailure("division by zero");
    if (std::abs(numerator) == saturated || std::abs(denominator) == saturated)
        throw RunFailure("division of a saturated value");
    const double quotient = numerator / denominator;
    if (!std::isfinite(quotient))
        throw RunFailure("overflow in a division");
    return quotient;
}

double Percent(double part, double whole) {
    const double hundredfold = part * 100;
    const double percent =
        std::isfinite(hundredfold) ? Divide(hundredfold, whole) : Divide(part, whole) * 100;
    if (!std::isfinite(percent))
        throw RunFailure("overflow in a percentage");
    return percent;
}

double TStatistic(double estimate, double sd) {
    return std::abs(sd) == saturated && std::abs(estimate) < saturated ? 0.0 : Divide(estimate, sd);
}

double SquareRoot(double radicand) {
    if (!(radicand >= 0 && radicand < saturated))
        throw RunFailure("square root of " + NumberText(radicand));
    return std::sqrt(radicand);
}

double Logarithm(double argument) {
    if (!(argument > 0 && argument < saturated))
        throw RunFailure("logarithm of " + NumberText(argument));
    return std::log(argument);
}

std::int16_t Integer16(double value) {
    if (const auto count = ToInteger16(value))
        return *count;
    throw RunFailure(NumberText(value) + " is too large for a 16-bit count");
}

std::int32_t Integer32(double value) {
    if (const auto count = ToInteger32(value))
        return *count;
    throw RunFailure(NumberText(value) + " is too large for a 32-bit count");
}

} // namespace corvane
