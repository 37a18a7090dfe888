#include "stats/generalized_concordance.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <numbers>
#include <optional>
#include <utility>
#include <vector>

#include "stats/distributions.h"
#include "stats/moments.h"
#include "stats/pairs.h"
#include "stats/pairwise_sums.h"
#include "stats/power_sums.h"
#include "stats/robust_scale.h"
#include "stats/sorting.h"
#include "stats/sums.h"

namespace corvane::stats {

namespace {

// The pairs enter by differences d = x - y and sums s = x + y. A tangent a + b z may be taken off g on the
// side of the sums, where all of the coefficient is blind to it, and on the side of the differences, where it
// counts in the denominator only. So an offset that the data have, or that lies between x and y, costs no
// digits.

/// A sample in ascending order, and the rows its values come from.
struct Ordered {
    std::vector<double> Values;
    std::vector<std::uint32_t> Rows;

    Ordered(const std::vector<double>& sample, const std::stop_token& stop) {
        std::vector<std::pair<double, std::uint32_t>> order;
        order.reserve(sample.size());
        for (std::size_t i : Indices(sample.size(), stop))
            order.emplace_back(sample[i], static_cast<std::uint32_t>(i));
        Sort(std::span(order), stop, std::less<>());
        Values.reserve(sample.size());
        Rows.reserve(sample.size());
        for (const auto& [value, row] : Elements(order, stop)) {
            Values.push_back(value);
            Rows.push_back(row);
        }
    }

    void Negate(const std::stop_token& stop) {
        std::reverse(Values.begin(), Values.end());
        std::reverse(Rows.begin(), Rows.end());
        for (double& value : Elements(Values, stop))
            value = -value;
    }
};

/// For one pair k: sum over j of g(x_k - y_j) - g(x_k + y_j) + g(x_j - y_k) - g(x_j + y_k), tangents and
/// constants left out. The squared distance has none.
struct PairSums {
    double Absolute = 0.0;
    double Power = 0.0;
    double CappedSquare = 0.0;
    double CappedAbsolute = 0.0;
    double CappedPower = 0.0;
    double HuberCore = 0.0; ///< what Huber's distance, over h, has above |z| - h/2
};

/// What a pair gives to a coefficient by itself.
struct PairTerms {
    double Diagonal; ///< A(k,k), tangents left out
    double B;        ///< the tangent of the sums left out
    double Tangent;  ///< of the differences
    double Excess;   ///< A(k,k) + B(k) in full
};

struct Scales {
    double Cap;   ///< c
    double Knee;  ///< h
    double Power; ///< 0 for none
};

/// Adds the sums of one side, `sign` times.
void AddWindows(const Ordered& from, const Ordered& over, const Scales& scales, double sign,
                std::vector<PairSums>& sums, const std::stop_token& stop) {
    WindowSum cap(over.Values, scales.Cap, stop);
    for (std::size_t i : Indices(from.Values.size(), stop)) {
        const WindowMoments moments = cap.At(from.Values[i]);
        PairSums& pair = sums[from.Rows[i]];
        pair.CappedSquare += sign * (moments.Second - moments.Count);
        pair.CappedAbsolute += sign * (moments.First - moments.Count);
    }
    WindowSum knee(over.Values, scales.Knee, stop);
    for (std::size_t i : Indices(from.Values.size(), stop)) {
        const WindowMoments moments = knee.At(from.Values[i]);
        sums[from.Rows[i]].HuberCore +=
            sign * 0.5 * scales.Knee * (moments.Count - 2.0 * moments.First + moments.Second);
    }
}

void AddAbsolute(const Ordered& from, const Ordered& over, double sign, std::vector<PairSums>& sums,
                 const std::stop_token& stop) {
    AbsoluteSum absolute(over.Values, stop);
    for (std::size_t i : Indices(from.Values.size(), stop))
        sums[from.Rows[i]].Absolute += sign * absolute.At(from.Values[i]);
}

/// One of the two sides, differences of the samples or differences of x and -y.
struct SideTangents {
    bool OneSign = false;                     ///< |z| is its own tangent
    std::optional<PowerBeyondTangent> Beyond; ///< where |z|^p has one
    double CentreX = 0.0, CentreY = 0.0;      ///< their difference is the pivot
};

SideTangents AddSide(const Ordered& x, const Ordered& y, const PowerTree& treeX, const Scales& scales,
                     double sign, std::vector<PairSums>& sums, const std::stop_token& stop) {
    SideTangents side;
    side.OneSign = x.Values.front() >= y.Values.back() || x.Values.back() <= y.Values.front();
    if (!side.OneSign) {
        AddAbsolute(x, y, sign, sums, stop);
        AddAbsolute(y, x, sign, sums, stop);
    }
    AddWindows(x, y, scales, sign, sums, stop);
    AddWindows(y, x, scales, sign, sums, stop);
    if (scales.Power == 0.0)
        return side;

    const auto scatter = [&](const PowerSumsResult& result, double PairSums::*member) {
        for (std::size_t i : Indices(x.Rows.size(), stop))
            sums[x.Rows[i]].*member += sign * result.Rows[i];
        for (std::size_t i : Indices(y.Rows.size(), stop))
            sums[y.Rows[i]].*member += sign * result.Columns[i];
    };
    const PowerTree treeY(y.Values, stop);
    side.CentreX = treeX.Root().Centre;
    side.CentreY = treeY.Root().Centre;
    if (FarApart(treeX, treeY)) {
        side.Beyond = {scales.Power, side.CentreX - side.CentreY};
        scatter(PowerSumsBeyondTangent(treeX, treeY, scales.Power, stop), &PairSums::Power);
    } else {
        scatter(PowerSums(treeX, treeY, {.Power = scales.Power}, stop), &PairSums::Power);
    }
    scatter(PowerSums(treeX, treeY, {scales.Power, scales.Cap, 1.0 / scales.Cap}, stop),
            &PairSums::CappedPower);
    return side;
}

/// |x| + |y| - |x + y|
double AbsoluteBend(double x, double y) {
    return std::signbit(x) == std::signbit(y) ? 0.0 : 2.0 * std::min(std::fabs(x), std::fabs(y));
}

/// (g(2x) + g(2y)) / 2 - g(x + y) for g = |z|^p, without the digits that x near y would take.
double PowerBend(const PowerKernel& power, double x, double y) {
    const double s = x + y;
    if (s == 0.0)
        return power(2.0 * x);
    return power(s) * EvenPowerExcess(power.Power, (x - y) / s);
}

/// The same for any g by its definition.
template<class Distance>
double Bend(const Distance& g, double x, double y) {
    return 0.5 * (g(2.0 * x) + g(2.0 * y)) - g(x + y);
}

struct Coefficient {
    double Rg, SE, Lower, Upper;
};

/// Rg, its SE and limits from the sums and the terms of the pairs, both functions of the row.
template<class Sums, class Terms>
Coefficient Summarise(std::size_t count, Sums sums, Terms terms, const std::stop_token& stop) {
    const double n = static_cast<double>(count);
    Sum sumOfSums, diagonals, bs, tangents, excesses;
    for (std::size_t k : Indices(count, stop)) {
        const PairTerms pair = terms(k);
        sumOfSums.Add(sums(k));
        diagonals.Add(pair.Diagonal);
        bs.Add(pair.B);
        tangents.Add(pair.Tangent);
        excesses.Add(pair.Excess);
    }
    const double v1 = sumOfSums.Value() / (2.0 * n * n), v2 = diagonals.Value() / n, v3 = bs.Value() / n;
    const double tangent = tangents.Value() / n, excess = excesses.Value() / n;
    const double denominator = v1 + v3 + tangent;
    const double complement = Ratio(excess, denominator); // 1 - Rg
    double rg = Ratio(v1 - v2, denominator);
    // Near 1 what is missing to it has the digits; near 0 the coefficient itself.
    const bool near = rg >= 0.5;
    if (near)
        rg = 1.0 - complement;
    else if (std::fabs(rg) < 4.0 * Epsilon) // the rounding of its parts
        rg = 0.0;
    // The inverse hyperbolic tangent saturates at and beyond 1.
    const double end = std::clamp(rg, -1.0, 1.0);
    if (denominator == 0.0)
        return {rg, 0.0, end, end};

    Sum squares;
    for (std::size_t k : Indices(count, stop)) {
        const PairTerms pair = terms(k);
        const double common = sums(k) / n - 2.0 * v1;
        const double inDenominator = common + (pair.B - v3) + (pair.Tangent - tangent);
        const double influence = near ? complement * inDenominator - (pair.Excess - excess)
                                      : common - (pair.Diagonal - v2) - rg * inDenominator;
        const double scaled = Finite(influence / denominator);
        squares.AddProduct(scaled, scaled);
    }
    const double se = Finite(std::sqrt(squares.Value() / (n * (n - 1.0))));
    if (!(std::fabs(rg) < 1.0))
        return {rg, se, end, end};
    const double centre = std::atanh(rg);
    const double half = InverseNormal(0.975) * Ratio(se, (near ? complement : 1.0 - rg) * (1.0 + rg));
    return {rg, se, std::tanh(centre - half), std::tanh(centre + half)};
}

/// The pair of x and y, both at row k.
struct Samples {
    const std::vector<double>& X;
    const std::vector<double>& Y;
};

/// Lin's: about the means, all but the distance of the means drops out.
Coefficient SquareCoefficient(const Samples& samples, const std::stop_token& stop) {
    const DoubleDouble meanX = Centre(samples.X, 0, stop).Mean, meanY = Centre(samples.Y, 0, stop).Mean;
    const double shift = (meanX - meanY).High;
    const auto about = [](double value, DoubleDouble mean) { return (DoubleDouble{value, 0.0} - mean).High; };
    return Summarise(
        samples.X.size(), [](std::size_t) { return 0.0; },
        [&](std::size_t k) {
            const double u = about(samples.X[k], meanX), v = about(samples.Y[k], meanY);
            return PairTerms{-4.0 * u * v, 2.0 * (u * u + v * v), shift * (4.0 * (u - v) + 2.0 * shift),
                             2.0 * Square(samples.X[k] - samples.Y[k])};
        },
        stop);
}

/// The terms of |z|, on which Huber's rest.
PairTerms AbsoluteTerms(double x, double y, const SideTangents& differences, const SideTangents& sums) {
    const double difference = std::fabs(x - y);
    PairTerms terms{};
    (differences.OneSign ? terms.Tangent : terms.Diagonal) = difference;
    if (sums.OneSign) { // |2x| and |2y| less the tangent that |x + y| is
        terms.B = AbsoluteBend(x, y);
    } else {
        terms.B = std::fabs(x) + std::fabs(y);
        terms.Diagonal -= std::fabs(x + y);
    }
    terms.Excess = difference + AbsoluteBend(x, y);
    return terms;
}

PairTerms PowerTerms(double x, double y, double power, const SideTangents& differences,
                     const SideTangents& sums) {
    const PowerKernel g{.Power = power};
    PairTerms terms{};
    // The centres are those of x and -y on the side of the sums.
    if (differences.Beyond) {
        const double t = (x - differences.CentreX) - (y - differences.CentreY);
        terms.Diagonal = (*differences.Beyond)(t);
        terms.Tangent = differences.Beyond->Tangent(t);
    } else {
        terms.Diagonal = g(x - y);
    }
    if (sums.Beyond) {
        const double u = x - sums.CentreX, v = y + sums.CentreY, between = sums.CentreX + sums.CentreY;
        terms.Diagonal -= (*sums.Beyond)(u + v);
        terms.B = 0.5 * ((*sums.Beyond)(2.0 * u + between) + (*sums.Beyond)(2.0 * v - between));
    } else {
        terms.Diagonal -= g(x + y);
        terms.B = 0.5 * (g(2.0 * x) + g(2.0 * y));
    }
    terms.Excess = g(x - y) + PowerBend(g, x, y);
    return terms;
}

/// The terms of a distance that is constant beyond a cap; `inside` is the bend where 2x, 2y and x + y all are
/// below it.
template<class Distance, class Inside>
PairTerms CappedTerms(double x, double y, double cap, const Distance& g, const Inside& inside) {
    const double largest = 2.0 * std::max(std::fabs(x), std::fabs(y));
    const double difference = g(x - y);
    return {difference - g(x + y), 0.5 * (g(2.0 * x) + g(2.0 * y)), 0.0,
            difference + (largest <= cap ? inside(x, y) : Bend(g, x, y))};
}

PairTerms HuberTerms(double x, double y, double h, const SideTangents& differences,
                     const SideTangents& sums) {
    const auto core = [h](double z) {
        const double size = std::fabs(z) / h;
        return size < 1.0 ? 0.5 * h * Square(1.0 - size) : 0.0;
    };
    const auto inside = [h](double z) { return 0.5 * z * (z / h); };
    const double largest = 2.0 * std::max(std::fabs(x), std::fabs(y)), d = x - y;
    PairTerms terms = AbsoluteTerms(x, y, differences, sums);
    terms.Diagonal += core(d) - core(x + y);
    terms.B += 0.5 * (core(2.0 * x) + core(2.0 * y)) - 0.5 * h;
    const double difference = std::fabs(d) < h ? inside(d) : std::fabs(d) - 0.5 * h;
    terms.Excess = difference + (largest <= h ? inside(d) : AbsoluteBend(x, y) + Bend(core, x, y));
    return terms;
}

/// In a scale of its own, so that its square does not vanish beside the other sample.
double StandardDeviation(const std::vector<double>& sample, const std::stop_token& stop) {
    const int exponent = ScaleExponent(sample, stop);
    return Unscale(std::sqrt(MeanVariance(Scaled(sample, exponent, stop), stop).Variance), exponent);
}

} // namespace

GeneralizedConcordanceResult GeneralizedConcordance(std::span<const double> x, std::span<const double> y,
                                                    double Power, const std::stop_token& stop) {
    GeneralizedConcordanceResult result;
    const Pairs pairs(x, y);
    const int exponent = pairs.CommonExponent(stop);
    const std::vector<double> scaledX = Scaled(pairs.X, exponent, stop),
                              scaledY = Scaled(pairs.Y, exponent, stop);
    const Samples samples{scaledX, scaledY};
    const Ordered orderedX(scaledX, stop);
    Ordered orderedY(scaledY, stop);
    double s = std::sqrt(RobustQn(orderedX.Values, stop)) * std::sqrt(RobustQn(orderedY.Values, stop));
    if (s == 0.0)
        s = std::sqrt(StandardDeviation(scaledX, stop)) * std::sqrt(StandardDeviation(scaledY, stop));
    if (pairs.N < 2 || s == 0.0)
        return result;
    s = std::max(s, 1e-290); // 1/s in range; the largest value is about 1
    const double c = 2.0 * std::numbers::sqrt2 * s, h = 1.345 * std::numbers::sqrt2 * s;
    const double power = Power > 0.0 && Power <= 3.0 ? Power : 0.0;

    std::vector<PairSums> sums(pairs.N);
    SideTangents differenceSide, sumSide;
    {
        const PowerTree treeX(orderedX.Values, stop);
        differenceSide = AddSide(orderedX, orderedY, treeX, {c, h, power}, 1.0, sums, stop);
        orderedY.Negate(stop);
        sumSide = AddSide(orderedX, orderedY, treeX, {c, h, power}, -1.0, sums, stop);
    }

    const auto put = [&](std::size_t row, const Coefficient& coefficient) {
        result.Rg[row] = coefficient.Rg;
        result.SE[row] = coefficient.SE;
        result.Lower[row] = coefficient.Lower;
        result.Upper[row] = coefficient.Upper;
    };
    const auto summarise = [&](std::size_t row, auto sumOf, auto terms) {
        put(row, Summarise(
                     pairs.N, [&](std::size_t k) { return std::invoke(sumOf, sums[k]); },
                     [&](std::size_t k) { return terms(scaledX[k], scaledY[k]); }, stop));
    };
    put(0, SquareCoefficient(samples, stop));
    summarise(1, &PairSums::Absolute,
              [&](double a, double b) { return AbsoluteTerms(a, b, differenceSide, sumSide); });
    summarise(3, &PairSums::CappedSquare, [&](double a, double b) {
        return CappedTerms(
            a, b, c, [c](double z) { return Square(std::min(std::fabs(z) / c, 1.0)); },
            [c](double p, double q) { return Square((p - q) / c); });
    });
    summarise(4, &PairSums::CappedAbsolute, [&](double a, double b) {
        return CappedTerms(
            a, b, c, [c](double z) { return std::min(std::fabs(z) / c, 1.0); },
            [c](double p, double q) { return AbsoluteBend(p, q) / c; });
    });
    summarise(
        6, [](const PairSums& pair) { return pair.Absolute + pair.HuberCore; },
        [&](double a, double b) { return HuberTerms(a, b, h, differenceSide, sumSide); });
    if (power > 0.0) {
        const PowerKernel capped{power, c, 1.0 / c};
        summarise(2, &PairSums::Power,
                  [&](double a, double b) { return PowerTerms(a, b, power, differenceSide, sumSide); });
        summarise(5, &PairSums::CappedPower, [&](double a, double b) {
            return CappedTerms(a, b, c, capped, [&](double p, double q) { return PowerBend(capped, p, q); });
        });
    }
    return result;
}

} // namespace corvane::stats
