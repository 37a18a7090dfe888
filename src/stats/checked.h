#pragma once

#include "stats/sums.h"

#include <cmath>
#include <optional>

/// Arithmetic that has no value, rather than a saturated one, where the result would not be a finite number.
/// An operand that was saturated is no number to compute with.
namespace corvane::stats {

inline std::optional<double> CheckedQuotient(double numerator, double denominator) {
    const bool computable =
        denominator != 0 && std::abs(numerator) < Largest && std::abs(denominator) < Largest;
    const double quotient = computable ? numerator / denominator : Largest;
    return computable && std::isfinite(quotient) ? std::optional(quotient) : std::nullopt;
}

inline std::optional<double> CheckedRoot(double radicand) {
    return radicand >= 0 && radicand < Largest ? std::optional(std::sqrt(radicand)) : std::nullopt;
}

} // namespace corvane::stats
