#include "stats/line_fits.h"

#include <cmath>

#include "stats/distributions.h"
#include "stats/pairs.h"

namespace corvane::stats {

LineFit FitLine(std::span<const double> x, std::span<const double> y, const std::stop_token& stop) {
    const Pairs pairs(x, y);
    LineFit fit;
    if (pairs.N == 0)
        return fit;
    const CentredSample cx = Centre(pairs.X, stop), cy = Centre(pairs.Y, stop);
    const CentredLine line = LeastSquares(cx, cy, stop);
    const int slopeExponent = cy.Exponent - cx.Exponent;
    fit.a = Unscale(line.Intercept.High, cy.Exponent);
    fit.b = Unscale(line.Slope.High, slopeExponent);
    if (pairs.N < 3)
        return fit;

    const double freedom = pairs.Count() - 2.0;
    const double s = std::sqrt(line.SSE / freedom);
    const double sxx = cx.SumSquares.High;
    const double lever = std::hypot(1.0 / std::sqrt(pairs.Count()), Ratio(cx.Mean.High, std::sqrt(sxx)));
    if (s > 0.0)
        fit.SDa = sxx == 0.0 && cx.Mean.High != 0.0 ? Largest : Unscale(s * lever, cy.Exponent);
    fit.SDb = sxx == 0.0 ? Ratio(s, sxx) : Unscale(s / std::sqrt(sxx), slopeExponent);
    fit.Chi2 = Unscale(line.SSE, 2 * cy.Exponent);
    fit.RootChi2 = Unscale(std::sqrt(line.SSE), cy.Exponent);
    fit.Q = GammaQ(0.5 * freedom, 0.5 * fit.Chi2);
    return fit;
}

} // namespace corvane::stats
