#include "stats/robust_scale.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <limits>

#include "stats/order.h"
#include "stats/sorting.h"
#include "stats/sums.h"

namespace corvane::stats {

namespace {

/// The sorted sample, quartered (exactly, at that size) where its differences would leave the range of a
/// double.
struct SortedSample {
    std::vector<double> Value;
    int Exponent = 0; ///< the unit is 2^Exponent

    SortedSample(std::span<const double> sample, const std::stop_token& stop)
        : Value(SortedFinite(sample, stop)) {
        if (Value.empty() || Value.back() - Value.front() <= Largest)
            return;
        Exponent = 2;
        for (double& value : Elements(Value, stop))
            value *= 0.25;
    }
};

double FactorSn(std::size_t count) {
    constexpr std::array<double, 8> small{0.743, 1.851, 0.954, 1.351, 0.993, 1.198, 1.005, 1.131};
    const double n = static_cast<double>(count);
    if (count <= 9)
        return small[count - 2];
    return count % 2 != 0 ? n / (n - 0.9) : 1.0;
}

double FactorQn(std::size_t count) {
    constexpr std::array<double, 11> small{0.399356, 0.99365, 0.51321, 0.84401, 0.61220, 0.85877,
                                           0.66993,  0.87344, 0.72014, 0.88906, 0.75743};
    const double n = static_cast<double>(count);
    if (count <= 12)
        return small[count - 2];
    const double c = count % 2 != 0 ? 1.60188 + (-2.1284 - 5.172 / n) / n
                                    : 3.67561 + (1.9654 + (6.987 - 77.0 / n) / n) / n;
    return 1.0 / (1.0 + c / n);
}

/// Pairs j < i of a sorted sample with x_i - x_j <= bound, and the differences next to the bound. Rounded
/// differences are as monotone as exact ones, so that the first j of each i only moves up.
struct Within {
    std::uint64_t Count = 0;
    double Largest = 0.0;                                    ///< of the differences counted
    double Beyond = std::numeric_limits<double>::infinity(); ///< the smallest of the others
};

Within CountWithin(const std::vector<double>& x, double bound, const std::stop_token& stop) {
    Within within;
    std::size_t j = 0;
    for (std::size_t i : Indices(x.size(), stop)) {
        while (x[i] - x[j] > bound)
            ++j;
        within.Count += i - j;
        within.Largest = std::max(within.Largest, x[i] - x[j]);
        if (j > 0)
            within.Beyond = std::min(within.Beyond, x[i] - x[j - 1]);
    }
    return within;
}

/// The differences in (low, high].
std::vector<double> DifferencesBetween(const std::vector<double>& x, double low, double high,
                                       std::uint64_t count, const std::stop_token& stop) {
    std::vector<double> differences;
    differences.reserve(count);
    std::size_t first = 0, last = 0;
    Looks looks(stop);
    for (std::size_t i = 1; i < x.size(); ++i) {
        while (x[i] - x[first] > high)
            ++first;
        while (x[i] - x[last] > low)
            ++last;
        looks.Handled(last - first + 1);
        for (std::size_t j = first; j < last; ++j)
            differences.push_back(x[i] - x[j]);
    }
    return differences;
}

/// The double halfway in the order of doubles: 64 steps lead from any bracket to one number.
double Halfway(double low, double high) {
    const auto a = std::bit_cast<std::uint64_t>(low), b = std::bit_cast<std::uint64_t>(high);
    return std::bit_cast<double>(a + (b - a) / 2);
}

/// The wanted-th smallest of the differences of a sorted sample, counted from 1. A bracket [first, high]
/// around it, both of them differences that occur, is narrowed by counting until it holds no more differences
/// than the sample has values, which are then selected from directly, or one value however often. Of three
/// steps two interpolate the count, the second of them to twice the distance so as to land beyond; the third
/// halves the bracket whatever the data.
double SelectDifference(const std::vector<double>& x, std::uint64_t wanted, const std::stop_token& stop) {
    const std::uint64_t n = x.size();
    const Within none = CountWithin(x, 0.0, stop);
    if (none.Count >= wanted)
        return 0.0;
    double low = 0.0, high = x.back() - x.front(), first = none.Beyond;
    std::uint64_t below = none.Count, within = n * (n - 1) / 2;
    // A third of the interquartile range is where normal data have it.
    double next = (x[n - n / 4 - 1] - x[n / 4]) / 3.0;
    for (int step = 0; within - below > n && first < high; ++step) {
        if (!(next >= first && next < high))
            next = Halfway(first, high);
        const Within at = CountWithin(x, next, stop);
        if (at.Count < wanted) {
            low = next;
            first = at.Beyond;
            below = at.Count;
        } else {
            high = at.Largest;
            within = at.Count;
        }
        if (step % 3 == 2) {
            next = Halfway(first, high);
            continue;
        }
        double share = static_cast<double>(wanted - below) / static_cast<double>(within - below);
        if (step % 3 == 1)
            share = share < 0.5 ? 2.0 * share : 2.0 * share - 1.0;
        next = first + (high - first) * share;
    }
    if (first >= high)
        return high;
    std::vector<double> rest = DifferencesBetween(x, low, high, within - below, stop);
    Select(rest, wanted - below - 1, stop);
    return rest[wanted - below - 1];
}

} // namespace

double RobustSn(std::span<const double> sample, const std::stop_token& stop) {
    const std::size_t n = sample.size();
    if (n < 2)
        return 0.0;
    const SortedSample sorted(sample, stop);
    const std::vector<double>& x = sorted.Value;
    // The k nearest of x_i, itself among them, are k neighbours in the order: of the windows of k the one
    // whose farther end is nearest. Its start only moves up with i.
    const std::size_t k = n / 2 + 1;
    std::vector<double> medians(n);
    std::size_t start = 0;
    for (std::size_t i : Indices(n, stop)) {
        while (start + k < n && x[start + k] - x[i] < x[i] - x[start])
            ++start;
        medians[i] = std::max(x[i] - x[start], x[start + k - 1] - x[i]);
    }
    const std::size_t middle = (n + 1) / 2 - 1;
    Select(medians, middle, stop);
    return Unscale(FactorSn(n) * 1.1926 * medians[middle], sorted.Exponent);
}

double RobustQn(std::span<const double> sample, const std::stop_token& stop) {
    const std::size_t n = sample.size();
    if (n < 2)
        return 0.0;
    const SortedSample sorted(sample, stop);
    const std::uint64_t h = n / 2 + 1;
    return Unscale(FactorQn(n) * 2.21914 * SelectDifference(sorted.Value, h * (h - 1) / 2, stop),
                   sorted.Exponent);
}

} // namespace corvane::stats
