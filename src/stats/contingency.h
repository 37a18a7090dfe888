#pragma once

#include <cstddef>
#include <span>

namespace corvane::stats {

struct ContingencyResult {
    double X2 = 0.0;
    std::size_t DF = 0;
    double P = 1.0;
    double V = 0.0; ///< Cramer's V
    double C = 0.0; ///< contingency coefficient sqrt(X2 / (X2 + n))
};

/// Pearson's chi-square of a two-way table of counts with sum n, given row by row.
/// p > 0 tests every cell against the expectation p n: DF = cells - 1, V = sqrt(X2 / (n (cells - 1))).
/// Otherwise it tests association of rows and columns, those without counts left out:
/// X2 = sum (t - e)^2 / e with e = row sum times column sum over n, DF = (rows - 1)(columns - 1),
/// V = sqrt(X2 / (n (min(rows, columns) - 1))).
/// n = 0 or DF = 0: X2 = V = C = 0, P = 1. A table with less than Rows Cols cells ends with the row of its
/// last one. Negative cells, and such as are no number, count as 0, p above 1 as 1.
ContingencyResult ContingencyTest(std::span<const double> table, std::size_t Rows, std::size_t Cols,
                                  double p = 0.0);

} // namespace corvane::stats
