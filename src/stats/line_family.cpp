#include "stats/line_family.h"

#include <cmath>

#include "stats/pairs.h"

namespace corvane::stats {

namespace {

/// Slopes of the lines but the fifth from the two least-squares slopes, which have one sign.
/// The differences of the textbook forms are avoided: they cancel for steep and for flat lines.
std::array<double, 6> Slopes(double b1, double b2) {
    const double sign = std::signbit(b2) ? -1.0 : 1.0;
    // Bisector: the sum of the unit vectors along both lines.
    const double h1 = std::hypot(1.0, b1), h2 = std::hypot(1.0, b2);
    const double bisector = Finite((b1 / h1 + b2 / h2) / (1.0 / h1 + 1.0 / h2));
    // Orthogonal: the root of b^2 - d b - 1 = 0 with the sign of the slopes, d = b2 - 1/b1. Where the lines
    // are uncorrelated its limit is flat or vertical.
    double orthogonal = 0.0;
    if (b1 != 0.0) {
        const double d = sign * Finite(b2 - Ratio(1.0, b1));
        const double root = std::hypot(2.0, d);
        orthogonal = sign * (d >= 0.0 ? Finite(0.5 * d + 0.5 * root) : 2.0 / (root - d));
    }
    return {b1, b2, bisector, orthogonal, 0.0, 0.5 * b1 + 0.5 * b2};
}

/// Weights of the two least-squares slopes in the variance of every line: d slope = p d b1 + q d b2.
std::array<std::array<double, 2>, 6> Weights(const std::array<double, 6>& slope) {
    const double b1 = std::fabs(slope[0]), b2 = std::fabs(slope[1]);
    const double h1 = std::hypot(1.0, b1), h2 = std::hypot(1.0, b2);
    const double bisector = std::fabs(slope[2]) / (b1 + b2);
    const double orthogonal = std::fabs(slope[3]) / std::hypot(2.0 * b1, Finite(b1 * b2 - 1.0));
    const double reduced = std::sqrt(b2) / std::sqrt(b1);
    return {{{1.0, 0.0},
             {0.0, 1.0},
             {bisector * (h2 / h1), bisector * (h1 / h2)},
             {orthogonal / b1, orthogonal * b1},
             {0.5 * reduced, 0.5 / reduced},
             {0.5, 0.5}}};
}

} // namespace

LineFamily FitLineFamily(std::span<const double> x, std::span<const double> y, const std::stop_token& stop) {
    const Pairs pairs(x, y);
    const double n = pairs.Count();
    LineFamily family;
    if (pairs.N == 0)
        return family;
    const CentredSample cx = Centre(pairs.X, stop), cy = Centre(pairs.Y, stop);
    const CentredLine line = LeastSquares(cx, cy, stop);
    const double sxx = cx.SumSquares.High, syy = cy.SumSquares.High, sxy = line.Sxy.High;
    // Slopes are in units of the scaled samples until they are returned, except where lines of both
    // directions meet: bisector and orthogonal line depend on the units.
    const int unit = cy.Exponent - cx.Exponent;
    const double inverse = Ratio(syy, sxy);
    family.B = Slopes(Unscale(line.Slope.High, unit), sxy == 0.0 ? inverse : Unscale(inverse, unit));
    if (sxy == 0.0 && syy > 0.0) {
        family.B[3] = std::ldexp(syy, 2 * unit) > sxx ? Largest : 0.0;
        family.B[5] = Largest;
    }
    // By the SDs and not by the two slopes, whose rounding would show where the SDs are equal.
    if (syy > 0.0)
        family.B[4] = Unscale(std::copysign(Ratio(std::sqrt(syy), std::sqrt(sxx)), sxy), unit);
    for (std::size_t k = 0; k < 6; ++k) {
        const double slope = std::ldexp(family.B[k], -unit);
        family.A[k] = k == 0 ? Unscale(line.Intercept.High, cy.Exponent)
                             : Unscale(cy.Mean.High - Finite(slope) * cx.Mean.High, cy.Exponent);
    }
    if (pairs.N < 2 || syy == 0.0)
        return family;
    if (sxy == 0.0) {
        family.SDA.fill(Largest);
        family.SDB.fill(Largest);
    }

    // Influence of pair i on the slopes: x e1 / Sxx on b1 and y e2 / Sxy on b2, e1 and e2 the residuals of
    // the two lines. The published sums of variances and covariance are the sums of squares of these.
    constexpr double limit = 0x1p480; // of an influence, so that sums of squares stay in range
    struct LineVariance {
        double P = 0.0, Q = 0.0; // weights of the two slopes
        double Turn = 0.0;       // b1 less the slope: the residual is e1 + Turn x
        Sum Slope, Intercept;
    };
    const std::size_t lines = sxy == 0.0 ? 1 : 6;
    const auto weight = Weights(family.B);
    std::array<LineVariance, 6> variances;
    for (std::size_t k = 0; k < lines; ++k) {
        const DoubleDouble slope{Finite(std::ldexp(family.B[k], -unit)), 0.0};
        const double turn = k == 0 ? 0.0 : (line.Slope - slope).High;
        variances[k] = {Finite(weight[k][0]), Finite(weight[k][1]), turn, {}, {}};
    }
    const bool exact = line.SSE == 0.0;
    const double turn2 = exact || sxy == 0.0 ? 0.0 : (line.Slope - cy.SumSquares / line.Sxy).High;
    const double shift = n * cx.Mean.High;
    for (std::size_t i : Indices(pairs.N, stop)) {
        const double u = cx.Deviation[i].High, v = cy.Deviation[i].High, e1 = line.Residual[i];
        const double e2 = e1 + turn2 * u;
        const double influence1 = Ratio(u * e1, sxx), influence2 = Ratio(v * e2, sxy);
        for (std::size_t k = 0; k < lines; ++k) {
            LineVariance& each = variances[k];
            const double influence =
                std::clamp(Finite(each.P * influence1 + each.Q * influence2), -limit, limit);
            each.Slope.Add(Square(influence));
            const double residual = exact ? 0.0 : e1 + each.Turn * u;
            each.Intercept.Add(Square(std::clamp(residual - shift * influence, -limit, limit)));
        }
    }
    for (std::size_t k = 0; k < lines; ++k) {
        family.SDB[k] = Unscale(std::sqrt(variances[k].Slope.Value()), unit);
        family.SDA[k] = Unscale(std::sqrt(variances[k].Intercept.Value()) / n, cy.Exponent);
    }
    return family;
}

} // namespace corvane::stats
