#include "stats/sums.h"

#include <algorithm>

#include "stats/sorting.h"

namespace corvane::stats {

int ScaleExponent(std::span<const double> sample, const std::stop_token& stop) {
    double largest = 0.0;
    for (double value : Elements(sample, stop))
        largest = std::max(largest, std::fabs(Finite(value)));
    int exponent = 0;
    std::frexp(largest, &exponent);
    return exponent;
}

double Unscale(double value, int exponent) {
    return Finite(std::ldexp(value, exponent));
}

std::vector<double> Scaled(std::span<const double> sample, int exponent, const std::stop_token& stop) {
    // In two factors, since 2^1074 has no double.
    const int half = -exponent / 2;
    const double first = std::ldexp(1.0, half), second = std::ldexp(1.0, -exponent - half);
    std::vector<double> scaled(sample.size());
    for (std::size_t i : Indices(sample.size(), stop))
        scaled[i] = Finite(sample[i]) * first * second;
    return scaled;
}

CentredSample Centre(std::span<const double> sample, int exponent, const std::stop_token& stop) {
    CentredSample result;
    result.Exponent = exponent;
    result.Deviation.resize(sample.size());
    if (sample.empty())
        return result;
    const std::vector<double> values = Scaled(sample, exponent, stop);
    double lowest = values.front(), highest = lowest;
    for (double value : Elements(values, stop)) {
        lowest = std::min(lowest, value);
        highest = std::max(highest, value);
    }
    result.Mean = {lowest, 0.0};
    if (lowest == highest)
        return result;

    // About one of the values, so that the mean's error is of the size of the deviations and not of an
    // offset.
    const double origin = values.front();
    Sum sum;
    for (double value : Elements(values, stop))
        sum.Add(TwoSum(value, -origin));
    const DoubleDouble fromOrigin = sum.Total() / DoubleDouble{static_cast<double>(values.size()), 0.0};
    result.Mean = DoubleDouble{origin, 0.0} + fromOrigin;
    for (std::size_t i : Indices(values.size(), stop))
        result.Deviation[i] = TwoSum(values[i], -origin) - fromOrigin;
    result.SumSquares = SumProducts(result.Deviation, result.Deviation, stop);
    return result;
}

DoubleDouble SumProducts(const std::vector<DoubleDouble>& a, const std::vector<DoubleDouble>& b,
                         const std::stop_token& stop) {
    Sum sum;
    for (std::size_t i : Indices(a.size(), stop))
        sum.Add(a[i] * b[i]);
    return sum.Total();
}

CentredLine LeastSquares(const CentredSample& x, const CentredSample& y, const std::stop_token& stop) {
    CentredLine line;
    line.Residual.resize(y.Deviation.size());
    // Of numbers of 32 digits, what is 30 digits below its terms is their rounding.
    line.Sxy = SumProducts(x.Deviation, y.Deviation, stop);
    if (std::fabs(line.Sxy.High) <= 1e-30 * std::sqrt(x.SumSquares.High) * std::sqrt(y.SumSquares.High))
        line.Sxy = {};
    if (x.SumSquares.High > 0.0)
        line.Slope = line.Sxy / x.SumSquares;
    line.Intercept = y.Mean - line.Slope * x.Mean;
    if (std::fabs(line.Intercept.High) <= 1e-30 * (1.0 + std::fabs(line.Slope.High)))
        line.Intercept = {};

    Sum sse;
    for (std::size_t i : Indices(line.Residual.size(), stop)) {
        line.Residual[i] = (y.Deviation[i] - line.Slope * x.Deviation[i]).High;
        sse.AddProduct(line.Residual[i], line.Residual[i]);
    }
    line.SSE = sse.Value();
    // Residuals carry an error of about 1e-31 of the deviations: below that the points are on a line.
    if (line.SSE <= 1e-56 * y.SumSquares.High) {
        std::fill(line.Residual.begin(), line.Residual.end(), 0.0);
        line.SSE = 0.0;
    }
    return line;
}

double Correlation(const CentredSample& x, const CentredSample& y, const CentredLine& line) {
    const double sxx = x.SumSquares.High, syy = y.SumSquares.High;
    if (!(sxx > 0.0 && syy > 0.0))
        return 0.0;
    const double r = line.Sxy.High / (std::sqrt(sxx) * std::sqrt(syy));
    return line.SSE == 0.0 ? std::copysign(1.0, r) : std::clamp(r, -1.0, 1.0);
}

double Median(std::vector<double> values, const std::stop_token& stop) {
    if (values.empty())
        return 0.0;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    Select(values, values.size() / 2, stop);
    if (values.size() % 2 != 0)
        return *middle;
    // Halves first, so that the sum of two large values stays in range.
    return 0.5 * *std::max_element(values.begin(), middle) + 0.5 * *middle;
}

} // namespace corvane::stats
