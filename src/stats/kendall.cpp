#include "stats/kendall.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "stats/distributions.h"
#include "stats/pairs.h"
#include "stats/sorting.h"

namespace corvane::stats {

namespace {

/// Sums over the groups of t equal values.
struct Ties {
    std::int64_t Pairs = 0; ///< t (t - 1) / 2
    Sum Fives;              ///< t (t - 1)(2t + 5)
    Sum Triples;            ///< t (t - 1)(t - 2)

    void Add(std::size_t group) {
        if (group < 2)
            return;
        const double t = static_cast<double>(group);
        Pairs += static_cast<std::int64_t>(group) * static_cast<std::int64_t>(group - 1) / 2;
        Fives.AddProduct(t * (t - 1.0), 2.0 * t + 5.0);
        Triples.AddProduct(t * (t - 1.0), t - 2.0);
    }
};

/// The tie groups of n elements in order, of which Equal(i, j) tells whether two are equal.
template<class Equal>
Ties TiesOf(std::size_t n, Equal equal, const std::stop_token& stop) {
    Ties ties;
    std::size_t first = 0;
    for (std::size_t i : Indices(n, stop))
        if (!equal(first, i)) {
            ties.Add(i - first);
            first = i;
        }
    ties.Add(n - first);
    return ties;
}

/// Sorts the values and returns the number of inversions: the exchanges of neighbours that it takes.
std::int64_t SortCountingInversions(std::vector<double>& values, const std::stop_token& stop) {
    constexpr std::size_t run = 8;
    const std::size_t n = values.size();
    std::int64_t inversions = 0;
    Looks looks(stop);
    for (std::size_t begin = 0; begin < n; begin += run) {
        const std::size_t end = std::min(begin + run, n);
        for (std::size_t i = begin + 1; i < end; ++i) {
            const double value = values[i];
            std::size_t at = i;
            for (; at > begin && values[at - 1] > value; --at)
                values[at] = values[at - 1];
            values[at] = value;
            inversions += static_cast<std::int64_t>(i - at);
        }
        looks.Handled(run);
    }
    std::vector<double> merged(n);
    for (std::size_t width = run; width < n; width *= 2) {
        for (std::size_t begin = 0; begin < n; begin += 2 * width) {
            const std::size_t middle = std::min(begin + width, n), end = std::min(begin + 2 * width, n);
            std::size_t left = begin, right = middle, out = begin;
            while (left < middle && right < end) {
                const std::size_t start = out, pause = std::min(end, start + ElementsBetweenLooks);
                while (left < middle && right < end && out < pause) {
                    // Without a branch: which side is next cannot be predicted.
                    const double a = values[left], b = values[right];
                    const bool fromRight = b < a;
                    merged[out++] = fromRight ? b : a;
                    inversions += fromRight ? static_cast<std::int64_t>(middle - left) : 0;
                    right += fromRight;
                    left += !fromRight;
                }
                looks.Handled(out - start);
            }
            const auto begins = values.begin();
            const auto at = [&](std::size_t i) { return begins + static_cast<std::ptrdiff_t>(i); };
            const auto rest =
                std::copy(at(left), at(middle), merged.begin() + static_cast<std::ptrdiff_t>(out));
            std::copy(at(right), at(end), rest);
        }
        values.swap(merged);
    }
    return inversions;
}

double VarianceOfS(double n, const Ties& x, const Ties& y) {
    const auto whole = [](double value) { return DoubleDouble{value, 0.0}; };
    // With heavy ties the terms cancel, so they are taken to twice the digits.
    Sum fives;
    fives.AddProduct(n * (n - 1.0), 2.0 * n + 5.0);
    fives.Add(-x.Fives.Total());
    fives.Add(-y.Fives.Total());
    DoubleDouble variance = fives.Total() / whole(18.0);
    const double tiedX = static_cast<double>(x.Pairs), tiedY = static_cast<double>(y.Pairs);
    variance = variance + TwoProduct(2.0 * tiedX, 2.0 * tiedY) / whole(2.0 * n * (n - 1.0));
    if (n > 2.0)
        variance = variance +
                   x.Triples.Total() * y.Triples.Total() / (whole(9.0) * TwoProduct(n * (n - 1.0), n - 2.0));
    return std::max(0.0, variance.High);
}

} // namespace

KendallResult KendallTau(std::span<const double> x, std::span<const double> y, const std::stop_token& stop) {
    const Pairs pairs(x, y);
    const std::size_t n = pairs.N;
    KendallResult result;
    if (n < 2)
        return result;
    struct Pair {
        double X, Y;
    };
    std::vector<Pair> sorted(n);
    for (std::size_t i : Indices(n, stop))
        sorted[i] = {Finite(pairs.X[i]), Finite(pairs.Y[i])};
    Sort(std::span(sorted), stop,
         [](const Pair& a, const Pair& b) { return a.X == b.X ? a.Y < b.Y : a.X < b.X; });
    const Ties tiesX = TiesOf(
        n, [&](std::size_t i, std::size_t j) { return sorted[i].X == sorted[j].X; }, stop);
    const Ties both = TiesOf(
        n,
        [&](std::size_t i, std::size_t j) {
            return sorted[i].X == sorted[j].X && sorted[i].Y == sorted[j].Y;
        },
        stop);
    std::vector<double> inOrderOfX(n);
    for (std::size_t i : Indices(n, stop))
        inOrderOfX[i] = sorted[i].Y;
    const std::int64_t discordant = SortCountingInversions(inOrderOfX, stop);
    const std::vector<double>& sortedY = inOrderOfX;
    const Ties tiesY = TiesOf(
        n, [&](std::size_t i, std::size_t j) { return sortedY[i] == sortedY[j]; }, stop);

    const std::int64_t all = static_cast<std::int64_t>(n) * static_cast<std::int64_t>(n - 1) / 2;
    const std::int64_t untiedX = all - tiesX.Pairs, untiedY = all - tiesY.Pairs;
    if (untiedX == 0 || untiedY == 0)
        return result;
    const std::int64_t untied = untiedX - tiesY.Pairs + both.Pairs; // in neither
    const double S = static_cast<double>(untied - 2 * discordant);
    const double shared = untiedX == untiedY ? static_cast<double>(untiedX)
                                             : std::sqrt(static_cast<double>(untiedX)) *
                                                   std::sqrt(static_cast<double>(untiedY));
    result.Tau = std::clamp(S / shared, -1.0, 1.0);
    result.Z = Ratio(S, std::sqrt(VarianceOfS(static_cast<double>(n), tiesX, tiesY)));
    result.P = ProbNormal(result.Z);
    return result;
}

} // namespace corvane::stats
