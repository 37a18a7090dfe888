#include "stats/correlation.h"

#include <algorithm>
#include <cmath>

#include "stats/distributions.h"
#include "stats/pairs.h"

namespace corvane::stats {

namespace {

double Adjusted(double unexplained, double n) {
    return Finite(1.0 - Ratio(unexplained * (n - 1.0), n - 2.0));
}

} // namespace

Pearson PearsonCorrelation(std::span<const double> x, std::span<const double> y,
                           const std::stop_token& stop) {
    const Pairs pairs(x, y);
    return PearsonCorrelation(Centre(pairs.X, stop), Centre(pairs.Y, stop));
}

Pearson PearsonCorrelation(const CentredSample& x, const CentredSample& y, const std::stop_token& stop) {
    const double n = static_cast<double>(x.Deviation.size());
    Pearson result;
    if (n < 2)
        return result;
    const CentredLine line = LeastSquares(x, y, stop);
    result.r = Correlation(x, y, line);
    const double unexplained = result.r == 0.0 ? 1.0 : std::min(1.0, line.SSE / y.SumSquares.High); // 1 - r^2
    result.RSquared = Square(result.r);
    result.AdjRSquared = Adjusted(unexplained, n);
    result.T = Ratio(result.r * std::sqrt(n - 2.0), std::sqrt(unexplained));
    if (n > 2 && result.T != 0.0)
        result.P = std::fabs(result.T) == Largest ? 0.0 : TailT(result.T, n - 2.0);
    return result;
}

ResistantFit ResistantRSquared(std::span<const double> y, double MeanY, std::span<const double> fitted,
                               const std::stop_token& stop) {
    const Pairs pairs(fitted, y);
    ResistantFit result;
    if (pairs.N == 0)
        return result;
    const int exponent = std::max(pairs.CommonExponent(stop), ScaleExponent({&MeanY, 1}));
    const std::vector<double> scaledY = Scaled(pairs.Y, exponent, stop),
                              scaledFit = Scaled(pairs.X, exponent, stop);
    const double mean = std::ldexp(Finite(MeanY), -exponent);
    std::vector<double> residuals, deviations;
    for (std::size_t i : Indices(pairs.N, stop)) {
        residuals.push_back(std::fabs(scaledY[i] - scaledFit[i]));
        deviations.push_back(std::fabs(scaledY[i] - mean));
    }
    const double residual = Median(std::move(residuals), stop),
                 deviation = Median(std::move(deviations), stop);
    const double unexplained =
        deviation == 0.0 && residual == 0.0 ? 1.0 : Finite(Square(Ratio(residual, deviation)));
    result.ResistantR2 = Finite(1.0 - unexplained);
    result.AdjResistantR2 = Adjusted(unexplained, pairs.Count());
    return result;
}

} // namespace corvane::stats
