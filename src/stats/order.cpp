#include "stats/order.h"

#include <algorithm>
#include <cmath>

#include "stats/sorting.h"
#include "stats/sums.h"

namespace corvane::stats {

void SortRange(std::span<double> A, std::size_t First, std::size_t Last, int, int,
               const std::stop_token& stop) {
    First = std::max<std::size_t>(First, 1);
    Last = std::min(Last, A.size());
    if (First >= Last)
        return;
    const std::span<double> range = A.subspan(First - 1, Last - First + 1);
    // NaN has no place in the order that the sort relies on.
    const std::size_t numbers = MoveToFront(
        range, [](double value) { return !std::isnan(value); }, stop);
    Sort(range.first(numbers), stop);
}

double ArrayMax(std::span<const double> A, const std::stop_token& stop) {
    double most = A.empty() ? 0.0 : Finite(A.front());
    for (double value : Elements(A, stop))
        most = std::max(most, Finite(value));
    return most;
}

double ArrayMin(std::span<const double> A, const std::stop_token& stop) {
    double least = A.empty() ? 0.0 : Finite(A.front());
    for (double value : Elements(A, stop))
        least = std::min(least, Finite(value));
    return least;
}

double MinOfTwo(double A, double B) {
    return std::min(Finite(A), Finite(B));
}

double MaxOfTwo(double A, double B) {
    return std::max(Finite(A), Finite(B));
}

std::vector<double> SortedFinite(std::span<const double> sample, const std::stop_token& stop) {
    std::vector<double> sorted(sample.size());
    for (std::size_t i : Indices(sample.size(), stop))
        sorted[i] = Finite(sample[i]);
    Sort(sorted, stop);
    return sorted;
}

} // namespace corvane::stats
