#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

/// Sums of |a_i - b_j|^p over all pairs of two samples in linear time: a fast multipole method on the line
/// (Greengard and Rokhlin, 1987, Journal of Computational Physics 73, 325-348) that interpolates the kernel
/// at Chebyshev points (Dutt, Gu and Rokhlin, 1996, SIAM Journal on Numerical Analysis 33, 1689-1711).
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
    explicit PowerTree(std::span<const double> sample);

    std::span<const double> Sample() const { return values; }
    const std::vector<Cell>& Cells() const { return cells; }
    const Cell& Root() const { return cells.front(); }
    const double* Weights(std::size_t cell) const { return &weights[cell * Order]; }

    /// The values of a function at the sample, added to `sums`, from what it is made of: its values at the
    /// points of all intervals, `Order` for each.
    void Evaluate(std::vector<double>& atPoints, std::span<double> sums) const;

private:
    std::uint32_t Build(std::size_t first, std::size_t count);
    void GatherWeights();

    std::span<const double> values;
    std::vector<Cell> cells;
    std::vector<double> weights;
};

struct PowerSumsResult {
    std::vector<double> Rows;    ///< for each value of the first sample, over the second
    std::vector<double> Columns; ///< for each value of the second, over the first
};

/// Sums of (min(|a - b|, Cap) Unit)^Power - (Cap Unit)^Power; without a cap of (|a - b| Unit)^Power.
/// Power > 0. Relative error about 1e-13 of the largest sums. 0 samples give no sums.
struct PowerKernel {
    double Power = 1.5;
    double Cap = std::numeric_limits<double>::infinity();
    double Unit = 1.0;

    bool Capped() const { return Cap < std::numeric_limits<double>::infinity(); }
    double operator()(double z) const; ///< (min(|z|, Cap) Unit)^Power
};
PowerSumsResult PowerSums(const PowerTree& a, const PowerTree& b, const PowerKernel& kernel);

/// |z|^p less its tangent at a pivot: with t = z - Pivot, |Pivot|^p (|1 + u|^p - 1 - p u), u = t / Pivot. It
/// keeps its digits where the power itself is all offset.
struct PowerBeyondTangent {
    double Power;
    double Pivot;

    double operator()(double t) const;
    double Tangent(double t) const;
};

/// Whether two samples lie so far apart, for their width, that PowerSumsBeyondTangent can be used.
bool FarApart(const PowerTree& a, const PowerTree& b);

/// Sums over the pairs of two samples far apart, the pivot the distance of the centres of their ranges.
PowerSumsResult PowerSumsBeyondTangent(const PowerTree& a, const PowerTree& b, double power);

/// (|1 + u|^p + |1 - u|^p) / 2 - 1, exact to the last digits for small u too.
double EvenPowerExcess(double power, double u);

} // namespace corvane::stats
