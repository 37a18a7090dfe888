#pragma once

#include <cmath>
#include <cstddef>
#include <limits>
#include <span>
#include <vector>

#include "stats/cancellation.h"

/// The arithmetic under the statistics: sums that keep their digits, powers of two that keep them in range,
/// and one rule for quotients without a value.
namespace corvane::stats {

inline constexpr double Largest = std::numeric_limits<double>::max();
inline constexpr double Epsilon = std::numeric_limits<double>::epsilon();

/// Infinity becomes the largest double with its sign, NaN becomes 0.
inline double Finite(double value) {
    if (std::isnan(value))
        return 0.0;
    return value > Largest ? Largest : value < -Largest ? -Largest : value;
}

/// numerator / denominator for statistics: 0/0 is 0, anything else over 0 saturates with the numerator's
/// sign.
inline double Ratio(double numerator, double denominator) {
    if (denominator == 0.0)
        return numerator == 0.0 ? 0.0 : std::copysign(Largest, numerator);
    return Finite(numerator / denominator);
}

inline double Square(double value) {
    return value * value;
}

/// A number of about 32 digits, the unevaluated sum of two doubles (Dekker, 1971, Numerische Mathematik 18,
/// 224-242), |Low| at most half a unit in the last place of High.
struct DoubleDouble {
    double High = 0.0;
    double Low = 0.0;
};

/// a + b without error (Knuth).
inline DoubleDouble TwoSum(double a, double b) {
    const double sum = a + b;
    const double part = sum - a;
    return {sum, (a - (sum - part)) + (b - part)};
}

/// a + b without error, given |a| >= |b|.
inline DoubleDouble QuickTwoSum(double a, double b) {
    const double sum = a + b;
    return {sum, b - (sum - a)};
}

/// a b without error.
inline DoubleDouble TwoProduct(double a, double b) {
    const double product = a * b;
    return {product, std::fma(a, b, -product)};
}

inline DoubleDouble operator-(DoubleDouble a) {
    return {-a.High, -a.Low};
}

inline DoubleDouble operator+(DoubleDouble a, DoubleDouble b) {
    DoubleDouble high = TwoSum(a.High, b.High);
    const DoubleDouble low = TwoSum(a.Low, b.Low);
    high = QuickTwoSum(high.High, high.Low + low.High);
    return QuickTwoSum(high.High, high.Low + low.Low);
}

inline DoubleDouble operator-(DoubleDouble a, DoubleDouble b) {
    return a + -b;
}

inline DoubleDouble operator*(DoubleDouble a, DoubleDouble b) {
    const DoubleDouble product = TwoProduct(a.High, b.High);
    return QuickTwoSum(product.High, product.Low + (a.High * b.Low + a.Low * b.High));
}

inline DoubleDouble operator/(DoubleDouble a, DoubleDouble b) {
    const double first = a.High / b.High;
    const DoubleDouble rest = a - b * DoubleDouble{first, 0.0};
    return QuickTwoSum(first, rest.High / b.High);
}

/// A running sum whose rounding errors are carried along (Ogita, Rump and Oishi, 2005, SIAM Journal on
/// Scientific Computing 26, 1955-1988): as accurate as one taken in twice the precision.
class Sum {
public:
    void Add(double value) {
        const DoubleDouble sum = TwoSum(high, value);
        high = sum.High;
        low += sum.Low;
    }
    void Add(DoubleDouble value) {
        Add(value.High);
        low += value.Low;
    }
    void AddProduct(double a, double b) { Add(TwoProduct(a, b)); }
    DoubleDouble Total() const { return TwoSum(high, low); }
    double Value() const { return high + low; }

private:
    double high = 0.0;
    double low = 0.0;
};

/// The exponent e that brings the sample into (-1, 1): the largest |value| is in [2^(e-1), 2^e). 0 for a
/// sample of zeros. Scaling by 2^-e is exact, and squares and products no longer leave the range of a double.
int ScaleExponent(std::span<const double> sample, const std::stop_token& stop = {});

/// value 2^exponent, saturated.
double Unscale(double value, int exponent);

/// value 2^exponent of a number of twice the digits.
inline DoubleDouble Shifted(DoubleDouble value, int exponent) {
    return {std::ldexp(value.High, exponent), std::ldexp(value.Low, exponent)};
}

/// The sample times 2^-exponent; what is not finite is made so first.
std::vector<double> Scaled(std::span<const double> sample, int exponent, const std::stop_token& stop = {});

/// A sample about its mean, in units of 2^Exponent. Mean and deviations have twice the digits of a double, so
/// that neither an offset nor points on a straight line leave rounding noise.
struct CentredSample {
    int Exponent = 0;
    DoubleDouble Mean;
    std::vector<DoubleDouble> Deviation;
    DoubleDouble SumSquares; ///< of the deviations; 0 exactly for a constant sample
};

CentredSample Centre(std::span<const double> sample, int exponent, const std::stop_token& stop = {});
inline CentredSample Centre(std::span<const double> sample, const std::stop_token& stop = {}) {
    return Centre(sample, ScaleExponent(sample, stop), stop);
}

/// Sum of products of deviations.
DoubleDouble SumProducts(const std::vector<DoubleDouble>& a, const std::vector<DoubleDouble>& b,
                         const std::stop_token& stop = {});

/// The least-squares line of centred samples, in their units: y = Intercept + Slope x.
struct CentredLine {
    DoubleDouble Sxy;
    DoubleDouble Slope; ///< 0 for constant x
    DoubleDouble Intercept;
    std::vector<double> Residual;
    double SSE = 0.0; ///< 0 exactly for points on a line
};

CentredLine LeastSquares(const CentredSample& x, const CentredSample& y, const std::stop_token& stop = {});

/// Pearson's r of centred samples and their line, 1 or -1 exactly for points on it; 0 for a constant sample.
double Correlation(const CentredSample& x, const CentredSample& y, const CentredLine& line);

/// The median, the mean of the two middle values for an even count; 0 for none.
double Median(std::vector<double> values, const std::stop_token& stop = {});

} // namespace corvane::stats
