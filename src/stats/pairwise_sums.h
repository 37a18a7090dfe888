#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "stats/cancellation.h"

/// Sums over all pairs of two ascending samples in linear time: both classes walk along sample b while the
/// caller walks along sample a, so At() wants arguments that never fall.
namespace corvane::stats {

/// sum over j of |a - b_j|. The running sums are about the middle of b, which keeps their rounding error in
/// proportion to the result whatever the offset and however far the outliers.
class AbsoluteSum {
public:
    /// b is ascending and outlives the object.
    explicit AbsoluteSum(std::span<const double> b, const std::stop_token& stop = {});
    double At(double a);

private:
    std::span<const double> sample;
    double origin = 0.0;
    double total = 0.0; ///< sum of b - origin
    double below = 0.0; ///< the part of it that lies below a
    double lost = 0.0;  ///< rounding error of `below`
    std::size_t passed = 0;
};

/// Count and moments of the distances |a - b_j| below a width, in units of the width.
struct WindowMoments {
    double Count = 0.0;
    double First = 0.0;  ///< sum of |a - b_j| / width
    double Second = 0.0; ///< sum of (|a - b_j| / width)^2
};

/// The moments come from prefix sums that start anew in blocks no wider than the window, each about its own
/// first value: a block is at most one width from the window it serves, and nothing cancels.
class WindowSum {
public:
    /// b is ascending and outlives the object; width > 0.
    WindowSum(std::span<const double> b, double width, const std::stop_token& stop = {});
    WindowMoments At(double a);

private:
    struct Prefix {
        double First;
        double Second;
    };
    void AddRange(double a, std::size_t from, std::size_t to, double sign, WindowMoments& moments) const;

    std::span<const double> sample;
    double width;
    std::vector<Prefix> prefixes;           ///< sums of (b - first of the block) / width up to each element
    std::vector<std::uint32_t> blockStarts; ///< of each block, and the sample's length
    std::vector<std::uint32_t> blocks;      ///< the block of each element
    std::size_t low = 0, middle = 0, high = 0;
};

} // namespace corvane::stats
