#pragma once

#include <algorithm>
#include <span>

#include "stats/sums.h"

namespace corvane::stats {

/// The first N elements of two samples, N the length of the shorter.
struct Pairs {
    std::span<const double> X;
    std::span<const double> Y;
    std::size_t N;

    Pairs(std::span<const double> x, std::span<const double> y)
        : X(x.first(std::min(x.size(), y.size()))), Y(y.first(X.size())), N(X.size()) {}

    double Count() const { return static_cast<double>(N); }

    /// One exponent for both samples, of which differences can be taken.
    int CommonExponent(const std::stop_token& stop = {}) const {
        if (N == 0)
            return 0;
        return std::max(ScaleExponent(X, stop), ScaleExponent(Y, stop));
    }
};

} // namespace corvane::stats
