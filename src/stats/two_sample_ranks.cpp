#include "stats/two_sample_ranks.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <numbers>
#include <vector>

#include "stats/distributions.h"
#include "stats/order.h"
#include "stats/sums.h"

namespace corvane::stats {

namespace {

/// Both samples in one ascending order: calls `group` for each distinct value with the number of X and of Y
/// that are smaller, and of those that equal it.
template<class Group>
void ForEachValue(const std::vector<double>& x, const std::vector<double>& y, Group group,
                  const std::stop_token& stop) {
    std::size_t i = 0, j = 0;
    Looks looks(stop);
    while (i < x.size() || j < y.size()) {
        const double value = j == y.size() || (i < x.size() && x[i] < y[j]) ? x[i] : y[j];
        const std::size_t belowX = i, belowY = j;
        for (; i < x.size() && x[i] == value; ++i)
            looks.Handled(1);
        for (; j < y.size() && y[j] == value; ++j)
            looks.Handled(1);
        group(belowX, belowY, i - belowX, j - belowY);
    }
}

/// P(K > z) of the Kolmogorov distribution: 2 sum (-1)^(k-1) exp(-2 k^2 z^2), and for small z from its theta
/// form, 1 - sqrt(2 pi) / z sum exp(-(2k - 1)^2 pi^2 / (8 z^2)) (Kolmogorov, 1933; Feller, 1948).
double KolmogorovTail(double z) {
    if (z < 1.0) {
        double sum = 0.0;
        for (int odd = 1; odd <= 7; odd += 2)
            sum += std::exp(-Square(odd * std::numbers::pi / z) / 8.0);
        return 1.0 - std::sqrt(2.0 * std::numbers::pi) / z * sum;
    }
    double sum = 0.0;
    for (int k = 1; k <= 5; ++k)
        sum += (k % 2 != 0 ? 2.0 : -2.0) * std::exp(-2.0 * Square(k * z));
    return sum;
}

} // namespace

KolmogorovSmirnovResult KolmogorovSmirnov2(std::span<const double> x, std::span<const double> y,
                                           const std::stop_token& stop) {
    KolmogorovSmirnovResult result;
    if (x.empty() || y.empty())
        return result;
    const double nx = static_cast<double>(x.size()), ny = static_cast<double>(y.size());
    // Distances as whole numbers, in units of 1 / (NX NY).
    const auto countX = static_cast<std::int64_t>(x.size()), countY = static_cast<std::int64_t>(y.size());
    std::int64_t largest = 0;
    ForEachValue(
        SortedFinite(x, stop), SortedFinite(y, stop),
        [&](std::size_t belowX, std::size_t belowY, std::size_t equalX, std::size_t equalY) {
            const std::int64_t distance = static_cast<std::int64_t>(belowX + equalX) * countY -
                                          static_cast<std::int64_t>(belowY + equalY) * countX;
            largest = std::max(largest, std::abs(distance));
        },
        stop);
    result.D = static_cast<double>(largest) / (nx * ny);
    result.NValue = nx * ny / (nx + ny);
    const double root = std::sqrt(result.NValue);
    if (largest > 0)
        result.P = std::clamp(KolmogorovTail((root + 0.12 + 0.11 / root) * result.D), 0.0, 1.0);
    return result;
}

MannWhitneyResult MannWhitney(std::span<const double> x, std::span<const double> y,
                              const std::stop_token& stop) {
    MannWhitneyResult result;
    if (x.empty() || y.empty())
        return result;
    const double nx = static_cast<double>(x.size()), ny = static_cast<double>(y.size()), n = nx + ny;
    std::int64_t balance = 0; // pairs with Y > X less those with Y < X
    Sum untied;               // N^3 - N - sum (t^3 - t)
    untied.AddProduct(n * n - 1.0, n);
    ForEachValue(
        SortedFinite(x, stop), SortedFinite(y, stop),
        [&](std::size_t belowX, std::size_t belowY, std::size_t equalX, std::size_t equalY) {
            balance += static_cast<std::int64_t>(belowX) * static_cast<std::int64_t>(equalY);
            balance -= static_cast<std::int64_t>(belowY) * static_cast<std::int64_t>(equalX);
            const double t = static_cast<double>(equalX + equalY);
            if (t > 1.0)
                untied.AddProduct(1.0 - t * t, t);
        },
        stop);
    const double variance = nx * ny / 12.0 * std::max(0.0, untied.Value()) / (n * (n - 1.0));
    result.WD = static_cast<double>(balance) / (nx * ny);
    result.Z = Ratio(0.5 * static_cast<double>(balance), std::sqrt(variance));
    result.TwoSidedP = ProbNormal(result.Z);
    result.OneSidedP = 0.5 * result.TwoSidedP;
    return result;
}

} // namespace corvane::stats
