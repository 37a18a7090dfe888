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
    const auto put = [divisor](double sumSquares, int exponent, double& variance, double& sd) {
        const double scaled = Ratio(sumSquares, divisor);
        variance = Unscale(scaled, 2 * exponent);
        sd = Unscale(std::sqrt(scaled), exponent);
    };
    put(cx.SumSquares.High, cx.Exponent, result.VarX, result.SDX);
    put(cy.SumSquares.High, cy.Exponent, result.VarY, result.SDY);
    result.CovXY = Unscale(Ratio(SumProducts(cx.Deviation, cy.Deviation, stop).High, divisor),
                           cx.Exponent + cy.Exponent);

    const int exponent = pairs.CommonExponent(stop);
    const double scaleX = std::ldexp(1.0, cx.Exponent - exponent),
                 scaleY = std::ldexp(1.0, cy.Exponent - exponent);
    Sum squares;
    for (std::size_t i : Indices(pairs.N, stop)) {
        const double deviation =
            (cx.Deviation[i] * DoubleDouble{scaleX, 0.0} - cy.Deviation[i] * DoubleDouble{scaleY, 0.0}).High;
        squares.AddProduct(deviation, deviation);
    }
    result.MeanDiff = MeanDifference(x, y);
    put(squares.Value(), exponent, result.VarDiff, result.SDDiff);
    return result;
}

double MeanDifference(std::span<const double> x, std::span<const double> y) {
    const Pairs pairs(x, y);
    const int exponent = pairs.CommonExponent();
    const std::vector<double> scaledX = Scaled(pairs.X, exponent), scaledY = Scaled(pairs.Y, exponent);
    Sum sum;
    for (std::size_t i = 0; i < pairs.N; ++i)
        sum.Add(TwoSum(scaledX[i], -scaledY[i]));
    return Unscale(Ratio(sum.Value(), pairs.Count()), exponent);
}

} // namespace corvane::stats
