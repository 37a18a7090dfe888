#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stop_token>

namespace corvane::stats {

/// Counts of pairs: first index over- or underprediction, second below or above.
using AllocationTable = std::array<std::array<std::int32_t, 2>, 2>;

/// Its indexes.
enum : std::size_t { Over, Under };
enum : std::size_t { Below, Above };

/// A table of STAT_Harlow and its tests. The cells are the caller's.
struct Allocation {
    AllocationTable& cells;
    double X2 = 0, Prob = 0, V = 0, C = 0; ///< Chi-square with its P, Cramer's V, contingency coefficient.
    double OddsRatio = 0, LnOddsRatio = 0;
    double ASE = 0;          ///< Asymptotic standard error of LnOddsRatio, sqrt(sum of 1 / cell).
    double z = 0, ProbZ = 0; ///< LnOddsRatio / ASE and its two-sided P.
};

/// Counts the pairs in two tables by over- (Y <= X) or underprediction and by the side on which they lie, and
/// tests each table (Harlow, 2006).
///
/// By means: A is split at the mean of X, B at that of Y; a pair on a mean counts as above it, one with
/// X = Y as overpredicted. `perpendicular`: rows are separated by the line a + b X, columns by the line at
/// right angles to it through both means, Below where that line reaches Y at an X no smaller than the pair's;
/// both tables are the same. It is cleared where b = 0, since such a line has no inverse.
///
/// p > 0 tests every cell against the expected proportion p, p = 0 the association of rows and columns. The
/// odds ratio and what follows from it take every cell with 0.5 added, so that empty cells do no harm.
///
/// False where a number leaves the range of a double: what was written before it stays, what would have come
/// later keeps its old value.
[[nodiscard]] bool STAT_Harlow(std::span<const double> X, std::span<const double> Y, double a, double b,
                               Allocation& A, Allocation& B, double p, bool& perpendicular,
                               const std::stop_token& stop = {});

} // namespace corvane::stats
