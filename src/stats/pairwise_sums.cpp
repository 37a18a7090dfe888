#include "stats/pairwise_sums.h"

#include <algorithm>
#include <cmath>

#include "stats/sums.h"

namespace corvane::stats {

AbsoluteSum::AbsoluteSum(std::span<const double> b, const std::stop_token& stop) : sample(b) {
    if (b.empty())
        return;
    origin = b[b.size() / 2];
    Sum sum;
    for (double value : Elements(b, stop))
        sum.Add(value - origin);
    total = sum.Value();
}

double AbsoluteSum::At(double a) {
    for (; passed < sample.size() && sample[passed] < a; ++passed) {
        const DoubleDouble sum = TwoSum(below, sample[passed] - origin);
        below = sum.High;
        lost += sum.Low;
    }
    // sum of a - b below and of b - a above
    const double left = static_cast<double>(passed), right = static_cast<double>(sample.size() - passed);
    const double part = below + lost;
    return (a - origin) * (left - right) + (total - 2.0 * part);
}

WindowSum::WindowSum(std::span<const double> b, double windowWidth, const std::stop_token& stop)
    : sample(b), width(windowWidth) {
    prefixes.reserve(b.size());
    blocks.reserve(b.size());
    Sum first, second;
    double origin = 0.0;
    for (std::size_t j : Indices(b.size(), stop)) {
        if (j == 0 || b[j] - origin >= width) {
            blockStarts.push_back(static_cast<std::uint32_t>(j));
            origin = b[j];
            first = second = Sum();
        }
        const double scaled = (b[j] - origin) / width;
        first.Add(scaled);
        second.AddProduct(scaled, scaled);
        prefixes.push_back({first.Value(), second.Value()});
        blocks.push_back(static_cast<std::uint32_t>(blockStarts.size() - 1));
    }
    blockStarts.push_back(static_cast<std::uint32_t>(b.size()));
}

void WindowSum::AddRange(double a, std::size_t from, std::size_t to, double sign,
                         WindowMoments& moments) const {
    while (from < to) {
        const std::size_t start = blockStarts[blocks[from]];
        const std::size_t end = std::min<std::size_t>(to, blockStarts[blocks[from] + 1]);
        const double count = static_cast<double>(end - from);
        Prefix sums = prefixes[end - 1];
        if (from > start) {
            sums.First -= prefixes[from - 1].First;
            sums.Second -= prefixes[from - 1].Second;
        }
        const double distance = (a - sample[start]) / width;
        moments.Count += count;
        moments.First += sign * (count * distance - sums.First);
        moments.Second += (count * distance - 2.0 * sums.First) * distance + sums.Second;
        from = end;
    }
}

WindowMoments WindowSum::At(double a) {
    while (low < sample.size() && a - sample[low] >= width)
        ++low;
    while (middle < sample.size() && sample[middle] < a)
        ++middle;
    while (high < sample.size() && sample[high] - a < width)
        ++high;
    WindowMoments moments;
    AddRange(a, low, middle, 1.0, moments);
    AddRange(a, std::max(low, middle), high, -1.0, moments);
    return moments;
}

} // namespace corvane::stats
