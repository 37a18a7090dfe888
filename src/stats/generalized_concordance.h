#pragma once

#include <array>
#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

/// Seven generalized concordance correlation coefficients, in the order of the distances below.
struct GeneralizedConcordanceResult {
    std::array<double, 7> Rg{};    ///< the coefficients
    std::array<double, 7> SE{};    ///< their standard errors
    std::array<double, 7> Lower{}; ///< 95 % limits
    std::array<double, 7> Upper{};
};

/// Generalized concordance of King and Chinchilli (2001a, Statistics in Medicine 20, 2131-2147; 2001b,
/// Journal of Biopharmaceutical Statistics 11, 83-105): Rg = (V1 - V2) / (V1 + V3), V1 the mean of A(i,j) =
/// g(x_i - y_j) - g(x_i + y_j) over all N^2 index pairs, V2 the mean of A(i,i), V3 that of B(i) = (g(2 x_i) +
/// g(2 y_i)) / 2, for the distances
///
///   z^2, |z|, |z|^Power, min(z^2, c^2), min(|z|, c), min(|z|, c)^Power, and Huber's: z^2 / 2 up to h, beyond
///   it h |z| - h^2 / 2,
///
/// c = 2 sqrt(2) s, h = 1.345 sqrt(2) s, s = sqrt(Qn(x) Qn(y)), or the two SDs where that is 0. z^2 gives
/// Lin's coefficient. SE = sqrt(sum I^2 / (N (N - 1))) from the influence values I of Rg; the limits are
/// those of atanh Rg. All is without unit.
///
/// N < 2 or a constant sample: all 0. Limits at |Rg| >= 1 (a capped distance may pass 1) are both 1 with its
/// sign. A Power outside (0, 3] leaves rows 3 and 6 at 0. O(N log N) in time, O(N) in memory.
GeneralizedConcordanceResult GeneralizedConcordance(std::span<const double> x, std::span<const double> y,
                                                    double Power = 1.5, const std::stop_token& stop = {});

} // namespace corvane::stats
