#include "stats/residual_statistics.h"

#include <algorithm>
#include <cmath>

#include "stats/distributions.h"
#include "stats/line_residuals.h"
#include "stats/order.h"
#include "stats/sorting.h"

namespace corvane::stats {

namespace {

struct Leverages {
    std::vector<double> H;          ///< h = 1/N + (X - mean)^2 / Sxx
    std::vector<double> Complement; ///< 1 - h, 0 where nothing but rounding is left
};

/// Taken to twice the digits, since a pair far out has a leverage of almost 1.
Leverages LeveragesOf(const Pairs& pairs, const std::stop_token& stop) {
    const CentredSample x = Centre(pairs.X, stop);
    const DoubleDouble one{1.0, 0.0};
    const DoubleDouble equal = one / DoubleDouble{pairs.Count(), 0.0};
    const DoubleDouble inverse = x.SumSquares.High > 0.0 ? one / x.SumSquares : DoubleDouble{};
    Leverages result;
    result.H.reserve(x.Deviation.size());
    result.Complement.reserve(x.Deviation.size());
    for (const DoubleDouble& deviation : Elements(x.Deviation, stop)) {
        const DoubleDouble h = equal + deviation * deviation * inverse;
        const double complement = (one - h).High;
        result.H.push_back(h.High);
        result.Complement.push_back(complement <= 1e-28 ? 0.0 : complement);
    }
    return result;
}

/// Ranks from 1 in row order, equal values at their mean rank. Values count as equal up to the tolerance.
std::vector<double> MeanRanks(const std::vector<double>& values, double tolerance,
                              const std::stop_token& stop) {
    struct Place {
        double Value;
        std::size_t Row;
    };
    std::vector<Place> order(values.size());
    for (std::size_t i : Indices(order.size(), stop))
        order[i] = {values[i], i};
    Sort(std::span(order), stop, [](const Place& p, const Place& q) { return p.Value < q.Value; });
    std::vector<double> ranks(values.size());
    Looks looks(stop);
    for (std::size_t first = 0, last = 0; first < order.size(); first = last) {
        for (; last < order.size() && order[last].Value - order[first].Value <= tolerance; ++last)
            looks.Handled(1);
        for (std::size_t i = first; i < last; ++i) {
            ranks[order[i].Row] = 0.5 * static_cast<double>(first + last + 1);
            looks.Handled(1);
        }
    }
    return ranks;
}

} // namespace

Residuals ResidualStatistics(double a, double b, std::span<const double> x, std::span<const double> y,
                             double VarX, double MeanX, double MeanY, const std::stop_token& stop) {
    // Taken from the sample itself: leverages near 1 need more digits of it than a double has.
    (void)VarX, (void)MeanX, (void)MeanY;
    const Pairs pairs(x, y);
    const double n = pairs.Count();
    const LineResiduals line = ResidualsOfLine(pairs, a, b, stop);
    const int own = ScaleExponent(line.Residue, stop), exponent = line.Exponent + own;
    const std::vector<double> residue = Scaled(line.Residue, own, stop);
    const Leverages leverages = LeveragesOf(pairs, stop);

    Sum sse;
    double largest = 0.0;
    for (double e : Elements(residue, stop)) {
        sse.AddProduct(e, e);
        largest = std::max(largest, std::fabs(e));
    }
    const double mse = pairs.N > 2 ? sse.Value() / (n - 2.0) : 0.0;
    const double rootMse = std::sqrt(mse);
    Residuals result;
    result.MSE = Unscale(mse, 2 * exponent);
    result.RootMSE = Unscale(rootMse, exponent);
    for (std::vector<double>* column : {&result.Deviation, &result.Fitted, &result.Residue, &result.SERes,
                                        &result.StdtRes, &result.RStdtRes, &result.Leverage, &result.CookD,
                                        &result.DFFITS, &result.PRESS, &result.SemiStdtR, &result.WtDev})
        column->reserve(pairs.N);

    for (std::size_t i : Indices(pairs.N, stop)) {
        const double rest = leverages.Complement[i], h = leverages.H[i];
        const double e = rest == 0.0 && std::fabs(line.Residue[i]) <= line.Noise[i] ? 0.0 : residue[i];
        const double standardError = rootMse * std::sqrt(rest);
        const double t = Ratio(e, standardError);
        double radicand = n - 2.0 - t * t;
        if (radicand <= 8.0 * Epsilon * (n - 2.0))
            radicand = 0.0;
        const double studentized = Ratio(t * std::sqrt(std::max(0.0, n - 3.0)), std::sqrt(radicand));
        const bool saturated = std::fabs(studentized) == Largest;

        result.Fitted.push_back(Unscale(line.Fitted[i], line.Exponent));
        result.Residue.push_back(Unscale(residue[i], exponent));
        result.SERes.push_back(Unscale(standardError, exponent));
        result.StdtRes.push_back(t);
        result.RStdtRes.push_back(studentized);
        result.Leverage.push_back(h);
        result.CookD.push_back(Ratio(Finite(t * t * h), 2.0 * rest));
        result.DFFITS.push_back(saturated ? studentized : Ratio(studentized * std::sqrt(h), std::sqrt(rest)));
        result.PRESS.push_back(rest == 0.0 ? Ratio(e, rest) : Unscale(e / rest, exponent));
        result.SemiStdtR.push_back(Ratio(residue[i], rootMse));
    }

    // A residual has taken the rounding of b times X, so residuals that close are one value.
    double range = 0.0;
    if (pairs.N > 0) {
        range =
            std::ldexp(ArrayMax(pairs.X, stop), -exponent) - std::ldexp(ArrayMin(pairs.X, stop), -exponent);
    }
    const double tolerance = 2.0 * Epsilon * Finite(largest + std::fabs(b) * range);
    result.NormRes = MeanRanks(residue, tolerance, stop);
    for (double& rank : Elements(result.NormRes, stop))
        rank = 0.0 + Unscale(rootMse * InverseNormal((rank - 0.375) / (n + 0.25)), exponent);

    const int common = line.Exponent;
    const std::vector<double> sx = Scaled(pairs.X, common, stop), sy = Scaled(pairs.Y, common, stop);
    std::vector<double> deviation;
    deviation.reserve(pairs.N);
    for (std::size_t i : Indices(pairs.N, stop))
        deviation.push_back(sy[i] - sx[i]);
    const int deviationScale = ScaleExponent(deviation, stop);
    Sum total;
    for (double& d : Elements(deviation, stop)) {
        d = std::ldexp(d, -deviationScale);
        total.AddProduct(d, d);
    }
    for (double d : Elements(deviation, stop)) {
        result.Deviation.push_back(Unscale(d, common + deviationScale));
        result.WtDev.push_back(Ratio(d * std::fabs(d), total.Value()));
    }
    return result;
}

} // namespace corvane::stats
