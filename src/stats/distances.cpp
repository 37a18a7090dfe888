#include "stats/distances.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "stats/pairs.h"

namespace corvane::stats {

namespace {

/// base^order, order > 0, by repeated multiplication.
double WholePower(double base, int order) {
    double result = order % 2 != 0 ? base : 1.0;
    while ((order /= 2) > 0) {
        base *= base;
        if (order % 2 != 0)
            result *= base;
    }
    return result;
}

/// (sum d^M)^(1/M) of d >= 0, the largest of them in [1/2, 1).
double Norm(const std::vector<double>& deviations, double M, const std::stop_token& stop) {
    if (!(M > 0.0))
        return 0.0;
    double largest = 0.0;
    for (double d : Elements(deviations, stop))
        largest = std::max(largest, d);
    if (std::isinf(M) || largest == 0.0)
        return largest;
    Sum sum;
    if (M == std::floor(M) && M <= 64.0) {
        for (double d : Elements(deviations, stop))
            sum.Add(WholePower(d, static_cast<int>(M)));
        return M == 1.0 ? sum.Value() : M == 2.0 ? std::sqrt(sum.Value()) : std::pow(sum.Value(), 1.0 / M);
    }
    for (double d : Elements(deviations, stop))
        sum.Add(std::pow(d / largest, M));
    return largest * Finite(std::pow(sum.Value(), Finite(1.0 / M)));
}

double CanberraTerm(double x, double y) {
    double sum = std::fabs(x) + std::fabs(y), difference = y - x;
    if (sum > Largest) {
        sum = 0.5 * std::fabs(x) + 0.5 * std::fabs(y);
        difference = 0.5 * y - 0.5 * x;
    }
    return sum == 0.0 ? 0.0 : std::fabs(difference) / sum;
}

/// rho ln(rho) - delta >= 0 for rho = 1 + delta > 0; by its series delta^2/2 - delta^3/6 + delta^4/12 - ...
/// where the two terms would cancel.
double Divergence(double rho, double delta) {
    if (std::fabs(delta) >= 0.5)
        return rho * std::log(rho) - delta;
    if (std::fabs(delta) >= 0x1p-6)
        return rho * std::log1p(delta) - delta;
    double series = 0.0;
    for (int k = 9; k >= 2; --k)
        series = 1.0 / (k * (k - 1)) - delta * series;
    return delta * delta * series;
}

/// Values times 2^-exponent; in two steps, since that factor alone may be out of range.
class Scale {
public:
    explicit Scale(int exponent)
        : first(std::ldexp(1.0, -exponent / 2)), second(std::ldexp(1.0, -exponent - -exponent / 2)) {}
    double operator()(double value) const { return value * first * second; }

private:
    double first, second;
};

double KullbackLeiblerDivergence(const Pairs& pairs, const std::stop_token& stop) {
    const auto positive = [&](std::size_t i) { return pairs.X[i] > 0.0 && pairs.Y[i] > 0.0; };
    double largestX = 0.0, largestY = 0.0;
    for (std::size_t i : Indices(pairs.N, stop))
        if (positive(i)) {
            largestX = std::max(largestX, pairs.X[i]);
            largestY = std::max(largestY, pairs.Y[i]);
        }
    if (largestX == 0.0)
        return 0.0;
    const int exponentX = ScaleExponent({&largestX, 1}), exponentY = ScaleExponent({&largestY, 1});
    const Scale scaleX(exponentX), scaleY(exponentY);
    Sum sumX, sumY;
    for (std::size_t i : Indices(pairs.N, stop))
        if (positive(i)) {
            sumX.Add(scaleX(Finite(pairs.X[i])));
            sumY.Add(scaleY(Finite(pairs.Y[i])));
        }
    const double wholeX = sumX.Value(), wholeY = sumY.Value();
    Sum divergence;
    for (std::size_t i : Indices(pairs.N, stop)) {
        if (!positive(i))
            continue;
        constexpr double tiny = 1e-280;
        const double x = scaleX(Finite(pairs.X[i])), y = scaleY(Finite(pairs.Y[i]));
        const double p = x / wholeX, q = y / wholeY;
        if (y <= tiny) {
            divergence.Add(p); // q ln q is gone
        } else if (x <= tiny) {
            const double logRatio =
                std::log(q) + std::log(wholeX) + exponentX * std::numbers::ln2 - std::log(Finite(pairs.X[i]));
            divergence.Add(q * logRatio - q + p);
        } else {
            const double crossX = x * wholeY;
            const double excess = (TwoProduct(y, wholeX) - TwoProduct(x, wholeY)).High;
            divergence.Add(p * Divergence(y * wholeX / crossX, excess / crossX));
        }
    }
    return Finite(divergence.Value());
}

} // namespace

Distances DistanceMeasures(std::span<const double> x, std::span<const double> y, double M,
                           const std::stop_token& stop) {
    const Pairs pairs(x, y);
    Distances result;
    if (pairs.N == 0)
        return result;
    const int exponent = pairs.CommonExponent(stop);
    const Scale scale(exponent);
    std::vector<double> deviations(pairs.N);
    Sum size, canberra;
    for (std::size_t i : Indices(pairs.N, stop)) {
        const double xi = Finite(pairs.X[i]), yi = Finite(pairs.Y[i]);
        const double sx = scale(xi), sy = scale(yi);
        deviations[i] = std::fabs(sy - sx);
        size.Add(std::fabs(sx) + std::fabs(sy));
        canberra.Add(CanberraTerm(xi, yi));
    }
    const int own = ScaleExponent(deviations, stop);
    const Scale ownScale(own);
    Sum total;
    for (double& d : Elements(deviations, stop)) {
        total.Add(d);
        d = ownScale(d);
    }
    result.Euclidean = Unscale(Norm(deviations, 2.0, stop), exponent + own);
    result.Minkowski = M == 2.0 ? result.Euclidean : Unscale(Norm(deviations, M, stop), exponent + own);
    result.Canberra = canberra.Value();
    result.Czekanowski = Ratio(total.Value(), size.Value());
    result.KullbackLeibler = KullbackLeiblerDivergence(pairs, stop);
    return result;
}

} // namespace corvane::stats
