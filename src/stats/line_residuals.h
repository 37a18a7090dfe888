#pragma once

#include <vector>

#include "stats/cancellation.h"
#include "stats/pairs.h"

namespace corvane::stats {

/// Residuals of a given line y = a + b x in units of 2^Exponent, with the rounding of a, b and y as their
/// only error: the subtraction itself is carried out in twice the digits.
struct LineResiduals {
    int Exponent = 0;
    std::vector<double> Fitted;  ///< a + b x
    std::vector<double> Residue; ///< y - Fitted; all 0 where none of them exceeds its Noise
    std::vector<double> Excess;  ///< Fitted - x = a + (b - 1) x
    std::vector<double> Noise;   ///< what the rounding of a, b and y to doubles may have put into Residue
    bool Exact = false;          ///< no residual exceeds its noise
};

LineResiduals ResidualsOfLine(const Pairs& pairs, double a, double b, const std::stop_token& stop = {});

} // namespace corvane::stats
