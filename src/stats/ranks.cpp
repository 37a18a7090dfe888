#include "stats/ranks.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "stats/distributions.h"
#include "stats/pairs.h"
#include "stats/sorting.h"

namespace corvane::stats {

namespace {

std::vector<double> MeanRanks(std::span<const double> sample, bool inverted, const std::stop_token& stop) {
    struct Item {
        double Value;
        std::size_t Row;
    };
    std::vector<Item> items(sample.size());
    for (std::size_t row : Indices(items.size(), stop))
        items[row] = {Finite(sample[row]), row};
    // The value goes along with its row, so that the sort does not jump about in the sample.
    Sort(std::span(items), stop, [](const Item& a, const Item& b) { return a.Value < b.Value; });

    std::vector<double> ranks(items.size());
    const double last = static_cast<double>(items.size()) + 1.0;
    Looks looks(stop);
    for (std::size_t first = 0, end = 0; first < items.size(); first = end) {
        for (; end < items.size() && items[end].Value == items[first].Value; ++end)
            looks.Handled(1);
        const double rank = 0.5 * static_cast<double>(first + 1 + end);
        for (std::size_t i = first; i < end; ++i) {
            ranks[items[i].Row] = inverted ? last - rank : rank;
            looks.Handled(1);
        }
    }
    return ranks;
}

} // namespace

SpearmanResult SpearmanRank(std::span<const double> x, std::span<const double> y, bool InvertX, bool InvertY,
                            const std::stop_token& stop) {
    const Pairs pairs(x, y);
    const double n = pairs.Count();
    SpearmanResult result;
    result.RankX = MeanRanks(pairs.X, InvertX, stop);
    result.RankY = MeanRanks(pairs.Y, InvertY, stop);
    result.Order.resize(pairs.N);
    std::iota(result.Order.begin(), result.Order.end(), 1.0);

    // Twice the ranks about their mean are whole numbers: their products are exact, and 1 - rs^2 keeps its
    // digits.
    Sum sumXX, sumYY, sumXY, sumDD;
    for (std::size_t i : Indices(pairs.N, stop)) {
        const double u = 2.0 * result.RankX[i] - (n + 1.0), v = 2.0 * result.RankY[i] - (n + 1.0);
        sumXX.AddProduct(u, u);
        sumYY.AddProduct(v, v);
        sumXY.AddProduct(u, v);
        sumDD.AddProduct(0.5 * (u - v), 0.5 * (u - v));
    }
    result.D = sumDD.Value();
    const DoubleDouble xx = sumXX.Total(), yy = sumYY.Total(), xy = sumXY.Total();
    if (xx.High == 0.0 || yy.High == 0.0)
        return result;
    const DoubleDouble product = xx * yy;
    const double unexplained = std::max(0.0, ((product - xy * xy) / product).High); // 1 - rs^2
    result.rs = unexplained == 0.0 ? std::copysign(1.0, xy.High)
                                   : std::clamp(xy.High / std::sqrt(product.High), -1.0, 1.0);
    result.Z = 0.0 - result.rs * std::sqrt(n - 1.0);
    result.P = ProbNormal(result.Z);
    result.T = Ratio(result.rs * std::sqrt(n - 2.0), std::sqrt(unexplained));
    if (result.T != 0.0)
        result.P2 = std::fabs(result.T) == Largest ? 0.0 : TailT(result.T, n - 2.0);
    return result;
}

} // namespace corvane::stats
