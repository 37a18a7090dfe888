#include "analyses/balance.h"

#include "stats/contingency.h"
#include "stats/distributions.h"
#include "stats/moments.h"

#include <array>
#include <cmath>

namespace corvane {
namespace {

double Checked(double value) {
    if (!std::isfinite(value))
        throw RunFailure("overflow in the allocation of a pair");
    return value;
}

void TestCells(Allocation& allocation, double p) {
    const auto& [over, under] = allocation.cells;
    const std::array<double, 4> cells{static_cast<double>(over[Below]), static_cast<double>(over[Above]),
                                      static_cast<double>(under[Below]), static_cast<double>(under[Above])};
    const stats::ContingencyResult test = stats::ContingencyTest(cells, 2, 2, p);
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
    allocation.LnOddsRatio = Logarithm(allocation.OddsRatio);
    allocation.ASE = SquareRoot(1 / c11 + 1 / c12 + 1 / c21 + 1 / c22);
    allocation.z = Divide(allocation.LnOddsRatio, allocation.ASE);
    allocation.ProbZ = stats::ProbNormal(allocation.z);
}

} // namespace

void STAT_Harlow(std::span<const double> X, std::span<const double> Y, double a, double b, Allocation& A,
                 Allocation& B, double p, bool& perpendicular) {
    const double MeanX = stats::MeanVariance(X).Mean;
    const double MeanY = stats::MeanVariance(Y).Mean;
    // The line at right angles, Y = intercept + m X. Computed in both modes: a slope so small that m
    // overflows ends the means' allocation, too.
    double m = 0, intercept = 0;
    if (b != 0) {
        m = Divide(-1, b);
        intercept = Checked(MeanY - MeanX * m);
    } else {
        perpendicular = false;
    }

    A.cells = {};
    B.cells = {};
    for (std::size_t i = 0; i < X.size(); ++i) {
        const double d = Checked(Y[i] - X[i]);
        if (perpendicular) {
            // Lopsided ties: a pair on Y = a + b X is overpredicted left of the other line and on it, and
            // underpredicted right of it.
            const double P = Checked(b * X[i] + a);
            const double R = Divide(Checked(Y[i] - intercept), m);
            const auto side = R >= X[i] ? Below : Above;
            const auto row = (side == Below ? P >= Y[i] : P > Y[i]) ? Over : Under;
            ++A.cells[row][side];
            ++B.cells[row][side];
        } else {
            const auto row = d <= 0 ? Over : Under;
            ++A.cells[row][X[i] < MeanX ? Below : Above];
            ++B.cells[row][Y[i] < MeanY ? Below : Above];
        }
    }

    TestCells(A, p);
    TestCells(B, p);
    TestOdds(A);
    TestOdds(B);
}

} // namespace corvane
