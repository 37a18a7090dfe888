#include "stats/contingency.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "stats/distributions.h"
#include "stats/sums.h"

namespace corvane::stats {

namespace {

/// The result for X2 and n in units of 2^exponent.
ContingencyResult Conclude(double X2, double n, int exponent, std::size_t DF, std::size_t strongest) {
    ContingencyResult result;
    result.DF = DF;
    if (DF == 0)
        return result;
    result.X2 = Unscale(X2, exponent);
    result.P = GammaQ(0.5 * static_cast<double>(DF), 0.5 * result.X2);
    const double mean = Finite(X2 / n);
    result.V = std::sqrt(mean / static_cast<double>(strongest));
    result.C = std::sqrt(mean >= 1.0 ? 1.0 / (1.0 + 1.0 / mean) : mean / (1.0 + mean));
    return result;
}

} // namespace

ContingencyResult ContingencyTest(std::span<const double> table, std::size_t Rows, std::size_t Cols,
                                  double p) {
    // The table ends with its data.
    Cols = std::min(Cols, table.size());
    Rows = Cols == 0 ? 0 : std::min(Rows, (table.size() + Cols - 1) / Cols);
    const std::span<const double> counts = table.first(std::min(table.size(), Rows * Cols));
    std::vector<double> cells(counts.begin(), counts.end());
    for (double& cell : cells)
        cell = std::max(0.0, Finite(cell));
    const int exponent = ScaleExponent(cells);
    cells = Scaled(cells, exponent);
    cells.resize(Rows * Cols);

    std::vector<Sum> rowSums(Rows), colSums(Cols);
    Sum total, squares;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        rowSums[i / Cols].Add(cells[i]);
        colSums[i % Cols].Add(cells[i]);
        total.Add(cells[i]);
    }
    const double n = total.Value();
    if (n <= 0.0)
        return {};

    if (p > 0.0) {
        p = std::min(p, 1.0);
        for (double cell : cells) {
            const double excess = cell - p * n;
            squares.Add(excess * (excess / n));
        }
        return Conclude(Ratio(squares.Value(), p), n, exponent, cells.size() - 1, cells.size() - 1);
    }

    const auto filled = [](const std::vector<Sum>& sums) {
        return static_cast<std::size_t>(
            std::count_if(sums.begin(), sums.end(), [](const Sum& sum) { return sum.Value() > 0.0; }));
    };
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const double row = rowSums[i / Cols].Value(), col = colSums[i % Cols].Value();
        if (row <= 0.0 || col <= 0.0)
            continue;
        // (t - e)^2 / e = (t n - row col)^2 / (n row col), the difference of the products without rounding.
        const double excess = (TwoProduct(cells[i], n) - TwoProduct(row, col)).High;
        squares.Add(excess / row * (excess / col) / n);
    }
    const std::size_t rowCount = filled(rowSums), colCount = filled(colSums);
    return Conclude(squares.Value(), n, exponent, (rowCount - 1) * (colCount - 1),
                    std::min(rowCount, colCount) - 1);
}

} // namespace corvane::stats
