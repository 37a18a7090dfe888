#include "stats/edf_normality.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "stats/sorting.h"
#include "stats/sums.h"

namespace corvane::stats {

namespace {

/// Table 4.9: P = 1 - exp(q) below the second limit, exp(q) above, q = c0 + c1 z + c2 z^2.
struct Significance {
    std::array<double, 3> Limits;
    std::array<std::array<double, 3>, 4> Coefficients;

    double operator()(double z) const {
        const auto range =
            static_cast<std::size_t>(std::upper_bound(Limits.begin(), Limits.end(), z) - Limits.begin());
        const auto& [c0, c1, c2] = Coefficients[range];
        if (range == 3)
            z = std::min(z, -0.5 * c1 / c2); // from where q would rise again
        const double q = c0 + (c1 + c2 * z) * z;
        return std::clamp(range < 2 ? -std::expm1(q) : std::exp(q), 0.0, 1.0);
    }
};

constexpr Significance CramerVonMises{{0.0275, 0.051, 0.092},
                                      {{{-13.953, 775.5, -12542.61},
                                        {-5.903, 179.546, -1515.29},
                                        {0.886, -31.62, 10.897},
                                        {1.111, -34.242, 12.832}}}};
constexpr Significance Watson{{0.0262, 0.048, 0.094},
                              {{{-13.642, 766.31, -12432.74},
                                {-6.3328, 214.57, -2022.28},
                                {0.8510, -32.006, -3.45},
                                {1.325, -38.918, 16.45}}}};
constexpr Significance AndersonDarling{{0.2, 0.34, 0.6},
                                       {{{-13.436, 101.14, -223.73},
                                         {-8.318, 42.796, -59.938},
                                         {0.9177, -4.279, -1.38},
                                         {1.2937, -5.709, 0.0186}}}};

/// ln(tail) for tail = Phi(-distance).
double LogTail(double tail, double distance) {
    if (distance < 30.0)
        return std::log(tail);
    // Asymptotic series of the tail over its density; its fifth term is below 1e-12 of the whole.
    const double square = 1.0 / (distance * distance);
    const double series = square * (-1.0 + square * (3.0 + square * (-15.0 + square * 105.0)));
    return -0.5 * distance * distance - std::log(distance * std::sqrt(2.0 * std::numbers::pi)) +
           std::log1p(series);
}

} // namespace

EDFResult EDFNormalityStatistics(std::span<const double> sample, int Mode, bool Adjusted,
                                 const std::stop_token& stop) {
    (void)Mode, (void)Adjusted;
    EDFResult result;
    const std::size_t count = sample.size();
    std::vector<double> x = Scaled(sample, ScaleExponent(sample, stop), stop);
    Sort(x, stop);
    if (count < 2 || x.front() == x.back())
        return result;

    const double n = static_cast<double>(count);
    // From the smallest value on, in units of the range: the offset is gone before anything is squared.
    const double lowest = x.front(), range = x.back() - lowest;
    Sum sum, squares;
    for (double& value : Elements(x, stop)) {
        value = (value - lowest) / range;
        sum.Add(value);
    }
    const DoubleDouble mean = sum.Total() / DoubleDouble{n, 0.0};
    for (double& value : Elements(x, stop)) {
        value = (value - mean.High) - mean.Low;
        squares.AddProduct(value, value);
    }
    const double sd = std::sqrt(squares.Value() / (n - 1.0));

    double above = 0.0, below = 0.0;
    Sum distances, excess, logarithms;
    for (std::size_t i : Indices(count, stop)) {
        const double w = x[i] / sd, distance = std::fabs(w);
        const double tail = 0.5 * std::erfc(distance / std::numbers::sqrt2);
        const double z = w < 0.0 ? tail : 1.0 - tail;
        const double rank = static_cast<double>(i);
        above = std::max(above, (rank + 1.0) / n - z);
        below = std::max(below, z - rank / n);
        const double gap = z - (rank + 0.5) / n;
        distances.AddProduct(gap, gap);
        excess.Add(w < 0.0 ? tail - 0.5 : 0.5 - tail);
        // ln z_i and ln(1 - z_i) with their weights, of which the value on this side of the mean is the tail.
        const double lower = 2.0 * rank + 1.0, upper = 2.0 * (n - rank) - 1.0;
        const double logTail = LogTail(tail, distance), logRest = std::log1p(-tail);
        logarithms.AddProduct(w < 0.0 ? lower : upper, logTail);
        logarithms.AddProduct(w < 0.0 ? upper : lower, logRest);
    }
    result.D = std::max(above, below);
    result.V = above + below;
    result.W2 = 1.0 / (12.0 * n) + distances.Value();
    result.U2 = result.W2 - Square(excess.Value()) / n;
    const DoubleDouble average = logarithms.Total() / DoubleDouble{n, 0.0};
    result.A2 = -(DoubleDouble{n, 0.0} + average).High;
    result.PW2 = CramerVonMises(result.W2 * (1.0 + 0.5 / n));
    result.PU2 = Watson(result.U2 * (1.0 + 0.5 / n));
    result.PA2 = AndersonDarling(result.A2 * (1.0 + 0.75 / n + 2.25 / (n * n)));
    return result;
}

} // namespace corvane::stats
