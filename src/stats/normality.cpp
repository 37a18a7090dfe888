#include "stats/normality.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "stats/distributions.h"
#include "stats/sorting.h"
#include "stats/sums.h"

namespace corvane::stats {

namespace {

template<std::size_t Size>
double Polynomial(const std::array<double, Size>& coefficients, double x) {
    double value = 0.0;
    for (std::size_t i = Size; i-- > 0;)
        value = value * x + coefficients[i];
    return value;
}

/// The upper half of the antisymmetric coefficients, the largest first. Their sum of squares is 1/2 up to
/// rounding. The outer one or two are polynomials in 1 / sqrt(N), the others normal scores rescaled.
std::vector<double> Coefficients(std::size_t count, const std::stop_token& stop) {
    const double n = static_cast<double>(count);
    std::vector<double> a(count / 2);
    Sum squares;
    for (std::size_t i : Indices(a.size(), stop)) {
        a[i] = -InverseNormal((static_cast<double>(i) + 0.625) / (n + 0.25));
        squares.AddProduct(a[i], a[i]);
    }
    const double sum = 2.0 * squares.Value(), root = std::sqrt(sum), x = 1.0 / std::sqrt(n);
    const std::size_t outer = count > 5 ? 2 : 1;
    constexpr std::array first = {0.0, 0.221157, -0.147981, -2.07119, 4.434685, -2.706056};
    constexpr std::array second = {0.0, 0.042981, -0.293762, -1.752461, 5.682633, -3.582633};
    double rest = sum, share = 1.0;
    for (std::size_t i = 0; i < outer; ++i) {
        const double coefficient = a[i] / root + Polynomial(i == 0 ? first : second, x);
        rest -= 2.0 * Square(a[i]);
        share -= 2.0 * Square(coefficient);
        a[i] = coefficient;
    }
    const double factor = std::sqrt(share / rest);
    const auto others = std::span(a).subspan(std::min(outer, a.size()));
    for (double& coefficient : Elements(others, stop))
        coefficient *= factor;
    return a;
}

/// Probability of a smaller W, N > 3, from 1 - W.
double Significance(double n, double complement) {
    const double logarithm = std::log(complement);
    if (n <= 11.0) {
        // Above every logarithm: 1 - W <= 1 - N a_1^2 / (N - 1), which is 0.37 at N = 4 and below 1 always.
        const double gamma = -2.273 + 0.459 * n;
        const double mean = Polynomial(std::array{0.544, -0.39978, 0.025054, -6.714e-4}, n);
        const double sd = std::exp(Polynomial(std::array{1.3822, -0.77857, 0.062767, -0.0020322}, n));
        return ProbNormal((mean + std::log(gamma - logarithm)) / sd, false);
    }
    const double logN = std::log(n);
    const double mean = Polynomial(std::array{-1.5861, -0.31082, -0.083751, 0.0038915}, logN);
    const double sd = std::exp(Polynomial(std::array{-0.4803, -0.082676, 0.0030302}, logN));
    return ProbNormal((mean - logarithm) / sd, false);
}

/// With the spacings s <= l, W = 3/4 (s + l)^2 / q and P = 6/pi (asin sqrt(W) - asin sqrt(3/4)) =
/// 6/pi asin(sqrt(3/4 / q) s), where q = s^2 + s l + l^2.
ShapiroWilkResult OfThree(const std::vector<double>& ordered) {
    const auto [small, large] = std::minmax({ordered[1] - ordered[0], ordered[2] - ordered[1]});
    const double q = small * small + small * large + large * large;
    ShapiroWilkResult result;
    result.W = std::min(1.0, 0.75 * Square(small + large) / q);
    result.P = std::min(1.0, 6.0 / std::numbers::pi * std::asin(small * std::sqrt(0.75 / q)));
    return result;
}

} // namespace

ShapiroWilkResult ShapiroWilk(std::span<const double> sample, const std::stop_token& stop) {
    ShapiroWilkResult result;
    const std::size_t count = sample.size();
    if (count < 3) {
        result.IFault = 1;
        return result;
    }
    std::vector<double> x = Scaled(sample, ScaleExponent(sample, stop), stop);
    Sort(x, stop);
    // From the smallest value on, in units of the range: the offset is gone before anything is squared.
    const double lowest = x.front(), range = x.back() - lowest;
    if (range == 0.0) {
        result.IFault = 6;
        return result;
    }
    for (double& value : Elements(x, stop))
        value = (value - lowest) / range;
    if (count == 3)
        return OfThree(x);

    const double n = static_cast<double>(count);
    const std::vector<double> a = Coefficients(count, stop);
    Sum sum, products, weights, squares, residuals;
    for (double value : Elements(x, stop))
        sum.Add(value);
    const DoubleDouble mean = sum.Total() / DoubleDouble{n, 0.0};
    for (double& value : Elements(x, stop)) {
        value = (value - mean.High) - mean.Low;
        squares.AddProduct(value, value);
    }
    for (std::size_t i : Indices(a.size(), stop)) {
        products.AddProduct(a[i], x[count - 1 - i] - x[i]);
        weights.AddProduct(a[i], a[i]);
    }
    // What the line slope a_i through the ordered sample leaves over.
    const double weight = 2.0 * weights.Value(), slope = products.Value() / weight;
    for (std::size_t i : Indices(a.size(), stop)) {
        const double below = x[i] + slope * a[i], above = x[count - 1 - i] - slope * a[i];
        residuals.AddProduct(below, below);
        residuals.AddProduct(above, above);
    }
    if (count % 2 != 0)
        residuals.AddProduct(x[count / 2], x[count / 2]);
    const double complement = residuals.Value() / squares.Value();
    result.W = std::clamp(Square(products.Value()) / (weight * squares.Value()), 0.0, 1.0);
    result.P = Significance(n, complement);
    result.IFault = count > 5000 ? 2 : 0;
    return result;
}

} // namespace corvane::stats
