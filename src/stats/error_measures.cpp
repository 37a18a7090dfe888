#include "stats/error_measures.h"

#include <cmath>

#include "stats/pairs.h"

namespace corvane::stats {

namespace {

/// |y - x| / |y| for y != 0. Large values are halved first, so that the difference stays in range.
double RelativeError(double x, double y) {
    return std::fabs(y) > 1.0 ? Finite(std::fabs(0.5 * y - 0.5 * x) / std::fabs(0.5 * y))
                              : Finite(std::fabs(y - x) / std::fabs(y));
}

/// 100 times the mean relative error. A ratio that is not 0 exceeds 1e-17, so that scaling the terms down
/// loses nothing and their sum stays in range.
double MeanRelativeErrorPercent(const Pairs& pairs, const std::stop_token& stop) {
    constexpr double headroom = 0x1p-80;
    Sum sum;
    double count = 0.0;
    for (std::size_t i : Indices(pairs.N, stop)) {
        const double y = Finite(pairs.Y[i]);
        if (y == 0.0)
            continue;
        sum.Add(headroom * RelativeError(Finite(pairs.X[i]), y));
        ++count;
    }
    return Finite(Ratio(100.0 * sum.Value(), count) / headroom);
}

double OneMinusRatio(double numerator, double denominator) {
    return numerator == 0.0 && denominator == 0.0 ? 0.0 : Finite(1.0 - Ratio(numerator, denominator));
}

/// Sums over differences d that are scaled into (-1, 1).
struct SquareSums {
    double Squares; ///< of d^2
    double Spread;  ///< of (d^2 - their mean)^2
};

SquareSums SumSquares(const std::vector<double>& difference, const std::stop_token& stop) {
    const double n = static_cast<double>(difference.size());
    Sum squares, total;
    for (double d : Elements(difference, stop)) {
        squares.AddProduct(d, d);
        total.Add(d);
    }
    // Squares of differences with a bias are all alike. About the bias m they are (d - m)(d + m) + m^2.
    const double bias = total.Value() / n;
    const auto fromBias = [bias](double d) { return (d - bias) * (d + bias); };
    Sum fromBiases, spread;
    for (double d : Elements(difference, stop))
        fromBiases.Add(fromBias(d));
    const double mean = fromBiases.Value() / n;
    for (double d : Elements(difference, stop))
        spread.Add(Square(fromBias(d) - mean));
    return {squares.Value(), spread.Value()};
}

/// The error in the units of the data, of differences in units of 2^exponent.
SquaredError ErrorOf(const SquareSums& sums, double n, int exponent) {
    return {Unscale(sums.Squares / n, 2 * exponent),
            Unscale(Ratio(sums.Spread, n * (n - 1.0)), 4 * exponent)};
}

} // namespace

SquaredError MeanSquaredError(std::span<const double> difference, const std::stop_token& stop) {
    if (difference.empty())
        return {};
    const int exponent = ScaleExponent(difference, stop);
    return ErrorOf(SumSquares(Scaled(difference, exponent, stop), stop),
                   static_cast<double>(difference.size()), exponent);
}

ErrorMeasures DiverseStatistics(std::span<const double> x, std::span<const double> y, double MeanX,
                                double MeanY, const std::stop_token& stop) {
    (void)MeanX; // the differences are summed themselves, which keeps the digits that means lose
    const Pairs pairs(x, y);
    ErrorMeasures result;
    if (pairs.N == 0)
        return result;
    const double n = pairs.Count();
    const int exponent = std::max(pairs.CommonExponent(stop), ScaleExponent({&MeanY, 1}));
    const std::vector<double> sx = Scaled(pairs.X, exponent, stop), sy = Scaled(pairs.Y, exponent, stop);
    const double meanY = std::ldexp(Finite(MeanY), -exponent);

    Sum bias;
    std::vector<double> difference;
    difference.reserve(pairs.N);
    for (std::size_t i : Indices(pairs.N, stop)) {
        const DoubleDouble exact = TwoSum(sy[i], -sx[i]);
        difference.push_back(exact.High);
        bias.Add(exact);
    }
    const int own = ScaleExponent(difference, stop), differenceExponent = exponent + own;
    Sum absolute;
    double largest = 0.0;
    difference = Scaled(difference, own, stop);
    for (double d : Elements(difference, stop)) {
        absolute.Add(std::fabs(d));
        largest = std::max(largest, std::fabs(d));
    }
    const SquareSums squares = SumSquares(difference, stop);
    const SquaredError error = ErrorOf(squares, n, differenceExponent);

    result.MeanBias = Unscale(bias.Value() / n, exponent);
    result.MAE = Unscale(absolute.Value() / n, differenceExponent);
    result.MAPE = MeanRelativeErrorPercent(pairs, stop);
    result.MSEP = error.MSEP;
    result.VarMSEP = error.VarMSEP;
    const double mean = squares.Squares / n, sd = std::sqrt(Ratio(squares.Spread, n * (n - 1.0)));
    result.RMSEP = Unscale(std::sqrt(mean), differenceExponent);
    result.SDMSEP = Unscale(sd, 2 * differenceExponent);
    result.CVMSEP = Ratio(sd, mean);
    result.MaxError = Unscale(largest, differenceExponent);
    const CentredSample cx = Centre(pairs.X, stop), cy = Centre(pairs.Y, stop);
    const CentredLine line = LeastSquares(cx, cy, stop);
    result.RSquared = Square(Correlation(cx, cy, line));

    // Sums of squares about MeanY from those about the own means. The double that a mean of Y rounds to
    // stands for that mean, since far from zero the rounding would count.
    const int unitX = cx.Exponent - exponent, unitY = cy.Exponent - exponent;
    const DoubleDouble squaresX = Shifted(cx.SumSquares, 2 * unitX),
                       squaresY = Shifted(cy.SumSquares, 2 * unitY);
    const DoubleDouble meanX = Shifted(cx.Mean, unitX), ownMeanY = Shifted(cy.Mean, unitY);
    result.PercentBias = Finite(-100.0 * Ratio(bias.Value() / n, ownMeanY.High));
    const DoubleDouble centre = meanY == ownMeanY.High ? ownMeanY : DoubleDouble{meanY, 0.0};
    const auto about = [&](DoubleDouble sumSquares, DoubleDouble mean) {
        const DoubleDouble distance = mean - centre;
        return (sumSquares + DoubleDouble{n, 0.0} * (distance * distance)).High;
    };
    const double aboutMeanX = about(squaresX, meanX), aboutMeanY = about(squaresY, ownMeanY);
    result.MEF = OneMinusRatio(std::ldexp(squares.Squares, 2 * own), aboutMeanY);
    result.CD = Ratio(aboutMeanY, aboutMeanX);

    // With u and v the deviations of X and Y from their means, each part without its cancellation:
    // Sx - Sy = (sum u^2 - sum v^2) / (N (Sx + Sy)), 1 - b = (sum u^2 - sum u v) / sum u^2,
    // Sy^2 (1 - r^2) = SSE / N, and Sx Sy (1 - r) = Sx Sy (1 - r^2) / (1 + r) where r > 0. Each sample is in
    // its own unit until the end, so that neither vanishes beside the other.
    const double sxx = cx.SumSquares.High, syy = cy.SumSquares.High, sxy = line.Sxy.High;
    const double product = std::sqrt(sxx) * std::sqrt(syy);
    const double twiceUncovered =
        sxy > 0.0 ? Ratio(2.0 * line.SSE * sxx, product + sxy) : 2.0 * (product - sxy);
    const double slopeDefect = (Shifted(cx.SumSquares, unitX) - Shifted(line.Sxy, unitY)).High;
    const double parts[] = {
        Square(bias.Value() / n),
        Square(Ratio((squaresX - squaresY).High, std::sqrt(squaresX.High) + std::sqrt(squaresY.High))) / n,
        std::ldexp(twiceUncovered, unitX + unitY) / n,
        Ratio(Square(slopeDefect), sxx) / n,
        std::ldexp(line.SSE, 2 * unitY) / n,
    };
    for (std::size_t i = 0; i < result.MSEPParts.size(); ++i) {
        result.MSEPParts[i] = Unscale(parts[i], 2 * exponent);
        result.MSEPShares[i] = Ratio(std::ldexp(parts[i], -2 * own), mean);
    }
    return result;
}

} // namespace corvane::stats
