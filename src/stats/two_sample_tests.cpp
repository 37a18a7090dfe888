#include "stats/two_sample_tests.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "stats/distributions.h"
#include "stats/pairs.h"

namespace corvane::stats {

namespace {

/// Moments in units of 2^Exponent.
struct Moments {
    int Exponent = 0;
    double Count = 0.0;
    DoubleDouble Total; ///< of the numbers
    DoubleDouble Mean;
    double SumSquares = 0.0; ///< of the deviations; 0 exactly for a constant sample

    double Variance() const { return Ratio(SumSquares, Count - 1.0); }
};

/// Moments of `count` numbers of which `value(i)` is one, all below 2 in magnitude.
template<class Value>
Moments MomentsOf(std::size_t count, int exponent, Value value, const std::stop_token& stop) {
    Moments moments{exponent, static_cast<double>(count), {}, {}, 0.0};
    if (count == 0)
        return moments;
    const DoubleDouble first = value(0);
    bool constant = true;
    Sum sum;
    for (std::size_t i : Indices(count, stop)) {
        const DoubleDouble next = value(i);
        constant = constant && next.High == first.High && next.Low == first.Low;
        sum.Add(next);
    }
    moments.Total = sum.Total();
    moments.Mean = first;
    if (constant)
        return moments;
    moments.Mean = moments.Total / DoubleDouble{moments.Count, 0.0};
    Sum squares;
    for (std::size_t i : Indices(count, stop)) {
        const double deviation = (value(i) - moments.Mean).High;
        squares.AddProduct(deviation, deviation);
    }
    moments.SumSquares = squares.Value();
    return moments;
}

Moments MomentsOf(std::span<const double> sample, const std::stop_token& stop) {
    const int exponent = ScaleExponent(sample, stop);
    const std::vector<double> scaled = Scaled(sample, exponent, stop);
    return MomentsOf(
        scaled.size(), exponent,
        [&](std::size_t i) {
            return DoubleDouble{scaled[i], 0.0};
        },
        stop);
}

/// A difference over its standard error, each in its unit.
TestResult TOf(double difference, int exponent, double standardError, int errorExponent, double DF) {
    TestResult result;
    const double t = Ratio(difference, standardError);
    result.Statistic = std::fabs(t) == Largest ? t : Unscale(t, exponent - errorExponent);
    if (std::fabs(result.Statistic) == Largest)
        result.P = 0.0;
    else if (result.Statistic != 0.0)
        result.P = TailT(result.Statistic, DF);
    return result;
}

/// mean Y - mean X in units of the larger exponent: one mean may be out of the other's range. From the sums,
/// over their common denominator, so that equal means differ by 0 and not by their rounding.
TestResult MeansTest(const Moments& y, const Moments& x, double standardError, int errorExponent, double DF) {
    const int exponent = std::max(y.Exponent, x.Exponent);
    const auto totalIn = [exponent](const Moments& sample, double times) {
        return Shifted(sample.Total * DoubleDouble{times, 0.0}, sample.Exponent - exponent);
    };
    const bool paired = y.Count == x.Count;
    const DoubleDouble difference = totalIn(y, paired ? 1.0 : x.Count) - totalIn(x, paired ? 1.0 : y.Count);
    const double mean = difference.High / (paired ? y.Count : y.Count * x.Count);
    return TOf(mean, exponent, standardError, errorExponent, DF);
}

/// The scale of spreads, so that neither of two is lost beside a constant of another size.
int SpreadExponent(const Moments& y, const Moments& x) {
    if (y.SumSquares == 0.0 || x.SumSquares == 0.0)
        return y.SumSquares == 0.0 ? x.Exponent : y.Exponent;
    return std::max(y.Exponent, x.Exponent);
}

double VarianceIn(const Moments& sample, int exponent) {
    return std::ldexp(sample.Variance(), 2 * (sample.Exponent - exponent));
}

TestResult PairedTest(std::span<const double> y, std::span<const double> x, const std::stop_token& stop) {
    const Pairs pairs(x, y);
    if (pairs.N < 2)
        return {};
    const int common = pairs.CommonExponent(stop);
    const std::vector<double> sx = Scaled(pairs.X, common, stop), sy = Scaled(pairs.Y, common, stop);
    // Differences may be far smaller than the values, and so need a scale of their own.
    double largest = 0.0;
    for (std::size_t i : Indices(pairs.N, stop))
        largest = std::max(largest, std::fabs(sy[i] - sx[i]));
    const int own = std::max(ScaleExponent({&largest, 1}), -1000);
    const double scale = std::ldexp(1.0, -own);
    const Moments moments = MomentsOf(
        pairs.N, common + own,
        [&](std::size_t i) {
            const DoubleDouble difference = TwoSum(sy[i], -sx[i]);
            return DoubleDouble{scale * difference.High, scale * difference.Low};
        },
        stop);
    const double error = std::sqrt(moments.Variance() / moments.Count);
    return TOf(moments.Mean.High, moments.Exponent, error, moments.Exponent, moments.Count - 1.0);
}

} // namespace

TestResult TTestEqualVariance(std::span<const double> y, std::span<const double> x,
                              const std::stop_token& stop) {
    const Moments my = MomentsOf(y, stop), mx = MomentsOf(x, stop);
    const double DF = my.Count + mx.Count - 2.0;
    if (y.empty() || x.empty() || DF < 1.0)
        return {};
    const int exponent = SpreadExponent(my, mx);
    const double sum = std::ldexp(my.SumSquares, 2 * (my.Exponent - exponent)) +
                       std::ldexp(mx.SumSquares, 2 * (mx.Exponent - exponent));
    const double error = std::sqrt(sum / DF * (1.0 / my.Count + 1.0 / mx.Count));
    return MeansTest(my, mx, error, exponent, DF);
}

TestResult TTestUnequalVariance(std::span<const double> y, std::span<const double> x,
                                const std::stop_token& stop) {
    const Moments my = MomentsOf(y, stop), mx = MomentsOf(x, stop);
    if (y.size() < 2 || x.size() < 2)
        return {};
    const int exponent = SpreadExponent(my, mx);
    const double partY = VarianceIn(my, exponent) / my.Count, partX = VarianceIn(mx, exponent) / mx.Count;
    const double sum = partY + partX;
    const double shareY = Ratio(partY, sum), shareX = Ratio(partX, sum);
    const double DF = 1.0 / (Square(shareY) / (my.Count - 1.0) + Square(shareX) / (mx.Count - 1.0));
    return MeansTest(my, mx, std::sqrt(sum), exponent, DF);
}

TestResult TTestPairedCovariance(std::span<const double> y, std::span<const double> x,
                                 const std::stop_token& stop) {
    return PairedTest(y, x, stop);
}

TestResult TTestPairedDifference(std::span<const double> y, std::span<const double> x,
                                 const std::stop_token& stop) {
    return PairedTest(y, x, stop);
}

TestResult FTestVariance(std::span<const double> y, std::span<const double> x, const std::stop_token& stop) {
    if (y.size() < 2 || x.size() < 2)
        return {};
    const Moments my = MomentsOf(y, stop), mx = MomentsOf(x, stop);
    if (my.SumSquares == 0.0 && mx.SumSquares == 0.0)
        return {};
    TestResult result;
    const double ratio = Ratio(my.Variance(), mx.Variance());
    result.Statistic = ratio == Largest ? ratio : Unscale(ratio, 2 * (my.Exponent - mx.Exponent));
    const double dfY = my.Count - 1.0, dfX = mx.Count - 1.0;
    const double tail = std::min(ProbF(result.Statistic, dfY, dfX), TailF(result.Statistic, dfY, dfX));
    result.P = ratio == Largest ? 0.0 : std::min(1.0, 2.0 * tail);
    return result;
}

} // namespace corvane::stats
