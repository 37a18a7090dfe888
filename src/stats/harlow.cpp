#include "stats/harlow.h"

#include "stats/cancellation.h"
#include "stats/checked.h"
#include "stats/contingency.h"
#include "stats/distributions.h"
#include "stats/moments.h"

#include <cmath>
#include <optional>

namespace corvane::stats {
namespace {

/// A line and the one at right angles to it, Y = intercept + m X.
struct CrossedLines {
    double a = 0, b = 0;
    double m = 0, intercept = 0;
};

/// The other line goes through both means. Nothing where a number overflows.
std::optional<CrossedLines> Cross(double a, double b, double MeanX, double MeanY) {
    CrossedLines lines{.a = a, .b = b};
    if (b == 0)
        return lines;
    const auto m = CheckedQuotient(-1, b);
    if (!m)
        return std::nullopt;
    lines.m = *m;
    lines.intercept = MeanY - MeanX * *m;
    return std::isfinite(lines.intercept) ? std::optional(lines) : std::nullopt;
}

struct Cell {
    std::size_t row, side;
};

/// Ties are lopsided: a pair on the first line is overpredicted left of the other line and on it, and
/// underpredicted right of it. Nothing where a number overflows.
std::optional<Cell> CellAbout(const CrossedLines& lines, double x, double y) {
    const double P = lines.b * x + lines.a, rise = y - lines.intercept;
    if (!std::isfinite(P) || !std::isfinite(rise))
        return std::nullopt;
    const auto R = CheckedQuotient(rise, lines.m);
    if (!R)
        return std::nullopt;
    const std::size_t side = *R >= x ? Below : Above;
    return Cell{(side == Below ? P >= y : P > y) ? Over : Under, side};
}

bool CountPairs(std::span<const double> X, std::span<const double> Y, double MeanX, double MeanY,
                const CrossedLines& lines, bool perpendicular, AllocationTable& A, AllocationTable& B,
                const std::stop_token& stop) {
    A = {};
    B = {};
    for (std::size_t i : Indices(X.size(), stop)) {
        const double d = Y[i] - X[i];
        if (!std::isfinite(d))
            return false;
        if (perpendicular) {
            const auto cell = CellAbout(lines, X[i], Y[i]);
            if (!cell)
                return false;
            ++A[cell->row][cell->side];
            ++B[cell->row][cell->side];
        } else {
            const auto row = d <= 0 ? Over : Under;
            ++A[row][X[i] < MeanX ? Below : Above];
            ++B[row][Y[i] < MeanY ? Below : Above];
        }
    }
    return true;
}

void TestCells(Allocation& allocation, double p) {
    const auto& [over, under] = allocation.cells;
    const std::array<double, 4> cells{static_cast<double>(over[Below]), static_cast<double>(over[Above]),
                                      static_cast<double>(under[Below]), static_cast<double>(under[Above])};
    const ContingencyResult test = ContingencyTest(cells, 2, 2, p);
    allocation.X2 = test.X2;
    allocation.Prob = test.P;
    allocation.V = test.V;
    allocation.C = test.C;
}

void TestOdds(Allocation& allocation) {
    const auto& [over, under] = allocation.cells;
    const double c11 = over[Below] + 0.5, c12 = over[Above] + 0.5;
    const double c21 = under[Below] + 0.5, c22 = under[Above] + 0.5;
    allocation.OddsRatio = c11 * c22 / (c21 * c12);
    allocation.LnOddsRatio = std::log(allocation.OddsRatio);
    allocation.ASE = std::sqrt(1 / c11 + 1 / c12 + 1 / c21 + 1 / c22);
    allocation.z = allocation.LnOddsRatio / allocation.ASE;
    allocation.ProbZ = ProbNormal(allocation.z);
}

} // namespace

bool STAT_Harlow(std::span<const double> X, std::span<const double> Y, double a, double b, Allocation& A,
                 Allocation& B, double p, bool& perpendicular, const std::stop_token& stop) {
    const double MeanX = MeanVariance(X, stop).Mean;
    const double MeanY = MeanVariance(Y, stop).Mean;
    if (b == 0)
        perpendicular = false;
    // Computed in both modes: a slope so small that m overflows ends the means' allocation, too.
    const auto lines = Cross(a, b, MeanX, MeanY);
    if (!lines || !CountPairs(X, Y, MeanX, MeanY, *lines, perpendicular, A.cells, B.cells, stop))
        return false;
    TestCells(A, p);
    TestCells(B, p);
    TestOdds(A);
    TestOdds(B);
    return true;
}

} // namespace corvane::stats
