#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "stats/cancellation.h"

namespace corvane::stats {

/// An ascending sample halved into intervals until an interval holds a few dozen values, or one value however
/// often. An interval's values are replaced, for those who look from afar, by weights at its Chebyshev
/// points.
class PowerTree {
public:
    static constexpr std::size_t Order = 14;    ///< Chebyshev points of an interval
    static constexpr std::size_t LeafSize = 64; ///< most values of an interval that is not halved

    struct Cell {
        double Centre;
        double Radius;       ///< 0: one value, with one point
        std::uint32_t First; ///< of its values
        std::uint32_t Count;
        std::uint32_t Left; ///< the halves, 0 for a leaf
        std::uint32_t Right;

        bool Leaf() const { return Left == 0; }
        std::size_t Points() const { return Radius == 0.0 ? 1 : Order; }
    };

    /// `sample` is ascending, finite and outlives the tree.
    explicit PowerTree(std::span<const double> sample, const std::stop_token& stop = {});

    std::span<const double> Sample() const { return values; }
    const std::vector<Cell>& Cells() const { return cells; }
    const Cell& Root() const { return cells.front(); }
    const double* Weights(std::size_t cell) const { return &weights[cell * Order]; }

    using PerPoint = std::array<double, Order>;

    /// The Chebyshev points of (-1, 1).
    static const PerPoint& ChebyshevPoints();

    /// The values of a function at the sample, added to `sums`, from what it is made of: its values at the
    /// points of all intervals, `Order` for each.
    void Evaluate(std::vector<double>& atPoints, std::span<double> sums,
                  const std::stop_token& stop = {}) const;

private:
    std::uint32_t Build(std::size_t first, std::size_t count, Looks& looks);
    void GatherWeights(Looks& looks);

    std::span<const double> values;
    std::vector<Cell> cells;
    std::vector<double> weights;
};

} // namespace corvane::stats
