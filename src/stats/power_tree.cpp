#include "stats/power_tree.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace corvane::stats {

namespace {

constexpr std::size_t Order = PowerTree::Order;
using PerPoint = PowerTree::PerPoint;

/// Chebyshev points of (-1, 1) and the matrix that makes Chebyshev coefficients of values at them.
struct ChebyshevTable {
    PerPoint Points{};
    std::array<PerPoint, Order> Coefficients{}; ///< [point][degree]
    ChebyshevTable() {
        for (std::size_t m = 0; m < Order; ++m) {
            const double angle =
                (static_cast<double>(m) + 0.5) * std::numbers::pi / static_cast<double>(Order);
            Points[m] = std::cos(angle);
            for (std::size_t k = 0; k < Order; ++k)
                Coefficients[m][k] = (k == 0 ? 1.0 : 2.0) * std::cos(static_cast<double>(k) * angle) /
                                     static_cast<double>(Order);
        }
    }
};

const ChebyshevTable& Chebyshev() {
    static const ChebyshevTable table;
    return table;
}

double Coordinate(double fromCentre, double radius) {
    return std::clamp(fromCentre / radius, -1.0, 1.0);
}

/// Points are worked on in groups, so that the recurrences of a group run side by side.
constexpr std::size_t Group = 4;
using Lanes = std::array<double, Group>;

/// Adds weight T_k(t) of every point to sums[k].
void AddPolynomials(const Lanes& t, const Lanes& weight, std::array<Lanes, Order>& sums) {
    Lanes before = weight, now;
    for (std::size_t l = 0; l < Group; ++l) {
        now[l] = weight[l] * t[l];
        sums[0][l] += before[l];
        sums[1][l] += now[l];
    }
    for (std::size_t k = 2; k < Order; ++k)
        for (std::size_t l = 0; l < Group; ++l) {
            const double next = 2.0 * t[l] * now[l] - before[l];
            before[l] = now[l];
            now[l] = next;
            sums[k][l] += next;
        }
}

/// sum of coefficient[k] T_k(t), by Clenshaw's recurrence.
Lanes Polynomial(const PerPoint& coefficients, const Lanes& t) {
    Lanes before{}, now{};
    for (std::size_t k = Order - 1; k > 0; --k)
        for (std::size_t l = 0; l < Group; ++l) {
            const double next = 2.0 * t[l] * now[l] - before[l] + coefficients[k];
            before[l] = now[l];
            now[l] = next;
        }
    Lanes value;
    for (std::size_t l = 0; l < Group; ++l)
        value[l] = t[l] * now[l] - before[l] + coefficients[0];
    return value;
}

/// Calls action(index, coordinates, used) for groups of `count` points.
template<class Position, class Action>
void InGroups(std::size_t count, const PowerTree::Cell& cell, Position position, Action action) {
    for (std::size_t first = 0; first < count; first += Group) {
        const std::size_t used = std::min(Group, count - first);
        Lanes t{};
        for (std::size_t l = 0; l < used; ++l)
            t[l] = Coordinate(position(first + l), cell.Radius);
        action(first, t, used);
    }
}

} // namespace

const PerPoint& PowerTree::ChebyshevPoints() {
    return Chebyshev().Points;
}

PowerTree::PowerTree(std::span<const double> sample, const std::stop_token& stop) : values(sample) {
    if (sample.empty())
        return;
    Looks looks(stop);
    Build(0, sample.size(), looks);
    weights.resize(cells.size() * Order);
    GatherWeights(looks);
}

std::uint32_t PowerTree::Build(std::size_t first, std::size_t count, Looks& looks) {
    looks.Handled(1);
    const double low = values[first], high = values[first + count - 1];
    const double centre = low + 0.5 * (high - low);
    const std::size_t index = cells.size();
    cells.push_back({centre, std::max(high - centre, centre - low), static_cast<std::uint32_t>(first),
                     static_cast<std::uint32_t>(count), 0, 0});
    if (low < high && count > LeafSize) {
        const auto begin = values.begin() + static_cast<std::ptrdiff_t>(first);
        const auto end = begin + static_cast<std::ptrdiff_t>(count);
        // The centre of neighbouring doubles may round to the upper one.
        const auto middle =
            centre < high ? std::upper_bound(begin, end, centre) : std::lower_bound(begin, end, high);
        const std::size_t left = static_cast<std::size_t>(middle - begin);
        const std::uint32_t leftCell = Build(first, left, looks);
        const std::uint32_t rightCell = Build(first + left, count - left, looks);
        cells[index].Left = leftCell;
        cells[index].Right = rightCell;
    }
    return static_cast<std::uint32_t>(index);
}

void PowerTree::GatherWeights(Looks& looks) {
    const ChebyshevTable& table = Chebyshev();
    for (std::size_t index = cells.size(); index-- > 0;) { // halves come after the whole
        const Cell& cell = cells[index];
        looks.Handled(LeafSize); // or the points of two halves
        double* own = &weights[index * Order];
        if (cell.Radius == 0.0) {
            own[0] = static_cast<double>(cell.Count);
            continue;
        }
        std::array<Lanes, Order> sums{};
        const auto add = [&](const double* weight) {
            return [&sums, weight](std::size_t first, const Lanes& t, std::size_t used) {
                Lanes lanes{};
                for (std::size_t l = 0; l < used; ++l)
                    lanes[l] = weight ? weight[first + l] : 1.0;
                AddPolynomials(t, lanes, sums);
            };
        };
        if (cell.Leaf())
            InGroups(
                cell.Count, cell, [&](std::size_t i) { return values[cell.First + i] - cell.Centre; },
                add(nullptr));
        else
            for (std::size_t half : {cell.Left, cell.Right}) {
                const Cell& part = cells[half];
                const double shift = part.Centre - cell.Centre;
                InGroups(
                    part.Points(), cell, [&](std::size_t m) { return shift + part.Radius * table.Points[m]; },
                    add(Weights(half)));
            }
        for (std::size_t k = 0; k < Order; ++k) {
            const double sum = (sums[k][0] + sums[k][1]) + (sums[k][2] + sums[k][3]);
            for (std::size_t m = 0; m < Order; ++m)
                own[m] += table.Coefficients[m][k] * sum;
        }
    }
}

void PowerTree::Evaluate(std::vector<double>& atPoints, std::span<double> sums,
                         const std::stop_token& stop) const {
    const ChebyshevTable& table = Chebyshev();
    Looks looks(stop);
    for (std::size_t index = 0; index < cells.size(); ++index) {
        const Cell& cell = cells[index];
        looks.Handled(LeafSize);
        const double* own = &atPoints[index * Order];
        if (cell.Radius == 0.0) {
            const std::span<double> equal = sums.subspan(cell.First, cell.Count);
            for (double& sum : Elements(equal, stop))
                sum += own[0];
            continue;
        }
        PerPoint coefficients{};
        for (std::size_t m = 0; m < Order; ++m)
            for (std::size_t k = 0; k < Order; ++k)
                coefficients[k] += own[m] * table.Coefficients[m][k];
        const auto add = [&](double* target) {
            return [&coefficients, target](std::size_t first, const Lanes& t, std::size_t used) {
                const Lanes value = Polynomial(coefficients, t);
                for (std::size_t l = 0; l < used; ++l)
                    target[first + l] += value[l];
            };
        };
        if (cell.Leaf())
            InGroups(
                cell.Count, cell, [&](std::size_t i) { return values[cell.First + i] - cell.Centre; },
                add(&sums[cell.First]));
        else
            for (std::size_t half : {cell.Left, cell.Right}) {
                const Cell& part = cells[half];
                const double shift = part.Centre - cell.Centre;
                InGroups(
                    part.Points(), cell, [&](std::size_t m) { return shift + part.Radius * table.Points[m]; },
                    add(&atPoints[half * Order]));
            }
    }
}

} // namespace corvane::stats
