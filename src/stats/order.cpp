#include "stats/order.h"

#include <algorithm>
#include <cmath>

#include "stats/sums.h"

namespace corvane::stats {

void SortRange(std::span<double> A, std::size_t First, std::size_t Last, int, int) {
    First = std::max<std::size_t>(First, 1);
    Last = std::min(Last, A.size());
    if (First >= Last)
        return;
    const std::span<double> range = A.subspan(First - 1, Last - First + 1);
    // NaN has no place in the order that the sort relies on.
    const auto end =
        std::partition(range.begin(), range.end(), [](double value) { return !std::isnan(value); });
    std::sort(range.begin(), end);
}

double ArrayMax(std::span<const double> A) {
    double most = A.empty() ? 0.0 : Finite(A.front());
    for (double value : A)
        most = std::max(most, Finite(value));
    return most;
}

double ArrayMin(std::span<const double> A) {
    double least = A.empty() ? 0.0 : Finite(A.front());
    for (double value : A)
        least = std::min(least, Finite(value));
    return least;
}

double MinOfTwo(double A, double B) {
    return std::min(Finite(A), Finite(B));
}

double MaxOfTwo(double A, double B) {
    return std::max(Finite(A), Finite(B));
}

void SortUnlessSorted(std::vector<double>& values) {
    if (!std::is_sorted(values.begin(), values.end()))
        std::sort(values.begin(), values.end());
}

std::vector<double> SortedFinite(std::span<const double> sample) {
    std::vector<double> sorted(sample.size());
    std::transform(sample.begin(), sample.end(), sorted.begin(), Finite);
    SortUnlessSorted(sorted);
    return sorted;
}

} // namespace corvane::stats
