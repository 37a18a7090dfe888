#include "stats/intercept_slope_test.h"

#include <algorithm>
#include <cmath>

#include "stats/checked.h"
#include "stats/distributions.h"
#include "stats/line_residuals.h"

namespace corvane::stats {

namespace {

double Probability(double f, double freedom) {
    if (f <= 0.0)
        return 1.0;
    return f == Largest ? 0.0 : TailF(f, 2.0, freedom);
}

} // namespace

InterceptSlopeTest FTestInterceptSlope(std::span<const double> x, std::span<const double> y, double a,
                                       double b, double MeanX, double MeanY, const std::stop_token& stop) {
    (void)MeanX, (void)MeanY;
    const Pairs pairs(x, y);
    InterceptSlopeTest result;
    if (pairs.N < 3)
        return result;
    const double freedom = pairs.Count() - 2.0;
    LineResiduals line = ResidualsOfLine(pairs, a, b, stop);

    // An exact fit by the identity is one whose distance from the diagonal is rounding as well.
    bool identity = line.Exact;
    for (std::size_t i : Indices(identity ? pairs.N : 0, stop))
        identity = identity && std::fabs(line.Excess[i]) <= 2.0 * line.Noise[i];
    if (identity)
        return result;

    // With g = a + (b - 1) X = D - e: D^2 - e^2 = g (g + 2 e).
    const int common = std::max(ScaleExponent(line.Excess, stop), ScaleExponent(line.Residue, stop));
    Sum squareExcess, product, squareResidue;
    for (std::size_t i : Indices(pairs.N, stop)) {
        const double g = std::ldexp(line.Excess[i], -common), e = std::ldexp(line.Residue[i], -common);
        squareExcess.AddProduct(g, g);
        product.AddProduct(g, e);
        squareResidue.AddProduct(e, e);
    }
    const double variance = squareResidue.Value() / freedom;
    result.F1 = Ratio(0.5 * squareExcess.Value(), variance);
    result.F2 = Ratio(0.5 * squareExcess.Value() + product.Value(), variance);
    result.P1 = Probability(result.F1, freedom);
    result.P2 = Probability(result.F2, freedom);
    return result;
}

std::optional<double> FTestZeroLine(double rootSS0, double rootSSE, double df) {
    if (rootSSE <= 0)
        return 0.0;
    const auto ratio = CheckedQuotient(rootSS0, rootSSE);
    if (!ratio)
        return std::nullopt;
    const double F = df / 2 * std::max(0.0, (*ratio - 1) * (*ratio + 1)); // negative by rounding alone
    return std::isfinite(F) ? std::optional(F) : std::nullopt;
}

} // namespace corvane::stats
