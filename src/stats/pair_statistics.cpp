#include "stats/pair_statistics.h"

#include <cmath>

#include "stats/pairs.h"

namespace corvane::stats {

PairSummary PairStatistics(std::span<const double> x, std::span<const double> y,
                           const std::stop_token& stop) {
    const Pairs pairs(x, y);
    const double divisor = pairs.Count() - 1.0;
    const CentredSample cx = Centre(pairs.X, stop), cy = Centre(pairs.Y, stop);
    PairSummary result;
    result.MeanX = Unscale(cx.Mean.High, cx.Exponent);
    result.MeanY = Unscale(cy.Mean.High, cy.Exponent);
    if (pairs.N == 0)
        return result;
    result.VarX = Unscale(Ratio(cx.SumSquares.High, divisor), 2 * cx.Exponent);
    result.VarY = Unscale(Ratio(cy.SumSquares.High, divisor), 2 * cy.Exponent);
    result.CovXY = Unscale(Ratio(SumProducts(cx.Deviation, cy.Deviation, stop).High, divisor),
                           cx.Exponent + cy.Exponent);

    const int exponent = pairs.CommonExponent(stop);
    const double scaleX = std::ldexp(1.0, cx.Exponent - exponent),
                 scaleY = std::ldexp(1.0, cy.Exponent - exponent);
    const DoubleDouble difference = cx.Mean * DoubleDouble{scaleX, 0.0} - cy.Mean * DoubleDouble{scaleY, 0.0};
    Sum squares;
    for (std::size_t i : Indices(pairs.N, stop)) {
        const double deviation =
            (cx.Deviation[i] * DoubleDouble{scaleX, 0.0} - cy.Deviation[i] * DoubleDouble{scaleY, 0.0}).High;
        squares.AddProduct(deviation, deviation);
    }
    result.MeanDiff = Unscale(difference.High, exponent);
    result.VarDiff = Unscale(Ratio(squares.Value(), divisor), 2 * exponent);
    return result;
}

} // namespace corvane::stats
