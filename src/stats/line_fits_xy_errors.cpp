#include <algorithm>
#include <cmath>

#include "stats/distributions.h"
#include "stats/line_fits.h"
#include "stats/pairs.h"

// A line of slope b = s/c through the weighted centre has distance c (y - mean y) - s (x - mean x) at each
// point and the variance c^2 SDy^2 + s^2 SDx^2 there. Written in the direction (c, s) flat and steep lines
// are alike: the larger of |c| and |s| is 1, the other, t, is the unknown.
namespace corvane::stats {

namespace {

enum class Chart { Flat, Steep }; // t = s with c = 1, or t = c with s = 1

struct Direction {
    double C = 1.0;
    double S = 0.0;
};

Direction Towards(Chart chart, double t) {
    return chart == Chart::Flat ? Direction{1.0, t} : Direction{t, 1.0};
}

struct Points {
    std::vector<double> X, Y; ///< about their means, in (-1, 1)
    std::vector<double> VarX,
        VarY; ///< squared SDs in the same units times 2^-2 SDExponent, largest in [1/4, 1)
    int XExponent = 0;
    int YExponent = 0;
    int SDExponent = 0;
    std::stop_token Stop; ///< looked at by every pass over the points
};

/// What the points say about one direction, with weights 1 / (c^2 VarY + s^2 VarX).
struct Objective {
    double Chi2 = 0.0;
    double Descent = 0.0; ///< -1/2 d Chi2 / d angle, times a positive factor
    double SumWeights = 0.0;
    double MeanX = 0.0, MeanY = 0.0; ///< weighted
    double StepX = 0.0, StepY = 0.0; ///< York's next slope is StepY / StepX
    double MeanAdjustment = 0.0;     ///< weighted mean of the adjustments, York's beta / c
    double AdjustedSquares = 0.0;    ///< weighted squares of beta / c about that mean
};

std::vector<double> UsableSDs(std::span<const double> sds, int exponent, const std::stop_token& stop) {
    std::vector<double> result;
    for (double sd : Elements(sds, stop))
        result.push_back(
            Unscale(std::fabs(sd) > 0.0 && std::fabs(sd) <= Largest ? std::fabs(sd) : 1e-30, -exponent));
    return result;
}

std::vector<double> Deviations(const CentredSample& sample, int& exponent, const std::stop_token& stop) {
    std::vector<double> values;
    for (const DoubleDouble& deviation : Elements(sample.Deviation, stop))
        values.push_back(deviation.High);
    const int own = ScaleExponent(values, stop);
    exponent = sample.Exponent + own;
    return Scaled(values, own, stop);
}

std::vector<double> Variances(std::vector<double> sds, int exponent, const std::stop_token& stop) {
    for (double& sd : Elements(sds, stop))
        sd = Square(std::max(std::ldexp(sd, -exponent), 0x1p-400));
    return sds;
}

Objective Evaluate(const Points& points, Direction to) {
    const std::size_t n = points.X.size();
    const double cc = to.C * to.C, ss = to.S * to.S;
    std::vector<double> weight(n);
    Sum weights, sumX, sumY;
    for (std::size_t i : Indices(n, points.Stop)) {
        weight[i] = 1.0 / (cc * points.VarY[i] + ss * points.VarX[i]);
        weights.Add(weight[i]);
        sumX.Add(weight[i] * points.X[i]);
        sumY.Add(weight[i] * points.Y[i]);
    }
    Objective result;
    result.SumWeights = weights.Value();
    result.MeanX = sumX.Value() / result.SumWeights;
    result.MeanY = sumY.Value() / result.SumWeights;
    Sum chi2, descent;
    for (std::size_t i : Indices(n, points.Stop)) {
        const double u = points.X[i] - result.MeanX, v = points.Y[i] - result.MeanY;
        const double distance = to.C * v - to.S * u;
        const double share = weight[i] * to.C * points.VarY[i] * u + weight[i] * to.S * points.VarX[i] * v;
        chi2.Add(weight[i] * distance * distance);
        descent.Add(weight[i] * distance * share);
    }
    result.Chi2 = chi2.Value();
    result.Descent = descent.Value();
    return result;
}

/// The remaining members of Objective.
void AddAdjustments(const Points& points, Direction to, Objective& result) {
    const std::size_t n = points.X.size();
    std::vector<double> weight(n), share(n);
    Sum stepX, stepY, sum, squares;
    for (std::size_t i : Indices(n, points.Stop)) {
        const double u = points.X[i] - result.MeanX, v = points.Y[i] - result.MeanY;
        weight[i] = 1.0 / (to.C * to.C * points.VarY[i] + to.S * to.S * points.VarX[i]);
        share[i] = weight[i] * to.C * points.VarY[i] * u + weight[i] * to.S * points.VarX[i] * v;
        stepX.Add(weight[i] * share[i] * u);
        stepY.Add(weight[i] * share[i] * v);
        sum.Add(weight[i] * share[i]);
    }
    result.StepX = stepX.Value();
    result.StepY = stepY.Value();
    result.MeanAdjustment = sum.Value() / result.SumWeights;
    for (std::size_t i : Indices(n, points.Stop))
        squares.Add(weight[i] * Square(share[i] - result.MeanAdjustment));
    result.AdjustedSquares = squares.Value();
}

/// A slope between 0 and infinity, kept as t of its chart; turned round for the negative ones.
struct Node {
    Chart In = Chart::Flat;
    double T = 0.0;
};

/// Directions from flat upwards over vertical and back to flat. Chi2 changes its character where b passes a
/// ratio SDy/SDx of some point and is smooth in between, so the range of the ratios is covered by steps of a
/// constant factor, and the rest by a few fixed slopes.
std::vector<Node> Nodes(const Points& points) {
    double lowest = 1.0, highest = 1.0;
    for (std::size_t i : Indices(points.X.size(), points.Stop)) {
        const double ratio = std::sqrt(points.VarY[i]) / std::sqrt(points.VarX[i]);
        lowest = i == 0 ? ratio : std::min(lowest, ratio);
        highest = i == 0 ? ratio : std::max(highest, ratio);
    }
    lowest /= 8.0;
    highest *= 8.0;
    constexpr double fewest = 1.6, most = 256.0;
    const double factor = std::max(fewest, std::exp(std::log(highest / lowest) / most));
    std::vector<double> slopes = {1.0 / 16, 1.0 / 8, 0.25, 0.5, 1.0, 2.0, 4.0, 8.0, 16.0};
    const auto steps = static_cast<int>(std::ceil(std::log(highest / lowest) / std::log(factor)));
    for (int step = 0; step <= steps; ++step)
        slopes.push_back(lowest * std::pow(factor, step));
    std::sort(slopes.begin(), slopes.end());

    std::vector<Node> nodes = {{Chart::Flat, 0.0}};
    const auto add = [&](double slope, double sign) {
        if (slope == 1.0) { // belongs to both charts
            nodes.push_back({sign > 0.0 ? Chart::Flat : Chart::Steep, sign});
            nodes.push_back({sign > 0.0 ? Chart::Steep : Chart::Flat, sign});
        } else {
            nodes.push_back(slope < 1.0 ? Node{Chart::Flat, sign * slope} : Node{Chart::Steep, sign / slope});
        }
    };
    for (double slope : slopes)
        add(slope, 1.0);
    nodes.push_back({Chart::Steep, 0.0});
    for (auto slope = slopes.rbegin(); slope != slopes.rend(); ++slope)
        add(*slope, -1.0);
    nodes.push_back({Chart::Flat, 0.0});
    return nodes;
}

/// The t between down (where Chi2 still falls) and up (where it rises) at which it is lowest: a root of its
/// derivative by false position (Illinois), with bisection whenever that is slow.
double Refine(const Points& points, Chart chart, double down, double fDown, double up, double fUp,
              double tolerance) {
    tolerance = std::max(std::isnan(tolerance) ? 0.0 : tolerance, 2.0 * Epsilon);
    double width = std::fabs(up - down);
    for (int round = 0; round < 1200; ++round) {
        const double gap = std::fabs(up - down);
        if (gap <= tolerance * std::max(std::fabs(up), std::fabs(down)))
            break;
        double t = down + (up - down) * (fDown / (fDown - fUp));
        if (round % 3 == 2) {
            if (gap > 0.125 * width) // three rounds should have done better than three bisections
                t = up * down > 0.0 && std::max(up / down, down / up) > 16.0
                        ? std::copysign(std::sqrt(std::fabs(up)) * std::sqrt(std::fabs(down)), up)
                        : 0.5 * (up + down);
            width = gap;
        }
        if (!(t > std::min(up, down) && t < std::max(up, down))) {
            t = 0.5 * (up + down);
            if (t == up || t == down)
                break;
        }
        const double f = Evaluate(points, Towards(chart, t)).Descent;
        if (f == 0.0)
            return t;
        if (f > 0.0) {
            down = t;
            fDown = f;
            fUp *= 0.5;
        } else {
            up = t;
            fUp = f;
            fDown *= 0.5;
        }
    }
    return fDown < -fUp ? down : up;
}

struct Minimum {
    Node At;
    Objective Value;
};

Minimum LowestChi2(const Points& points, double tolerance) {
    const std::vector<Node> nodes = Nodes(points);
    Minimum best;
    const auto consider = [&](Node node, const Objective& value, bool first) {
        // Equally good minima are told apart by their place and not by rounding: the first one stays.
        if (first || value.Chi2 < best.Value.Chi2 * (1.0 - 1e-12))
            best = {node, value};
    };
    Node last = nodes[0];
    Objective before = Evaluate(points, Towards(last.In, last.T));
    consider(last, before, true);
    for (std::size_t k = 1; k < nodes.size(); ++k) {
        const Node node = nodes[k];
        const Objective here = Evaluate(points, Towards(node.In, node.T));
        const Node from{node.In, last.In == node.In ? last.T : 1.0 / last.T};
        if (before.Descent > 0.0 && here.Descent < 0.0) {
            const double t = Refine(points, node.In, from.T, before.Descent, node.T, here.Descent, tolerance);
            consider({node.In, t}, Evaluate(points, Towards(node.In, t)), false);
        } else if (here.Descent == 0.0) {
            consider(node, here, false);
        }
        last = node;
        before = here;
    }
    return best;
}

} // namespace

LineFit FitLineXYErrors(std::span<const double> x, std::span<const double> y, std::span<const double> sdx,
                        std::span<const double> sdy, double Tolerance, const std::stop_token& stop) {
    const std::size_t n = std::min({x.size(), y.size(), sdx.size(), sdy.size()});
    LineFit fit;
    if (n < 2)
        return FitLine(x.first(n), y.first(n), stop);
    const CentredSample cx = Centre(x.first(n), stop), cy = Centre(y.first(n), stop);
    Points points;
    points.Stop = stop;
    points.X = Deviations(cx, points.XExponent, stop);
    points.Y = Deviations(cy, points.YExponent, stop);
    const std::vector<double> sx = UsableSDs(sdx.first(n), points.XExponent, stop);
    const std::vector<double> sy = UsableSDs(sdy.first(n), points.YExponent, stop);
    points.SDExponent = std::max(ScaleExponent(sx, stop), ScaleExponent(sy, stop));
    points.VarX = Variances(sx, points.SDExponent, stop);
    points.VarY = Variances(sy, points.SDExponent, stop);

    const bool constantX = cx.SumSquares.High == 0.0;
    Minimum minimum;
    if (constantX)
        minimum.Value = Evaluate(points, Direction{});
    else
        minimum = LowestChi2(points, Tolerance);
    Direction to = Towards(minimum.At.In, minimum.At.T);
    AddAdjustments(points, to, minimum.Value);
    Objective& value = minimum.Value;

    // York's own step takes the rounding of the search away: points on a line give their line to the last
    // digits.
    double slope = Ratio(to.S, to.C);
    const double step = value.StepY / value.StepX;
    if (std::fabs(step - slope) <= 1e-12 * std::fabs(slope))
        slope = step;

    const int slopeExponent = points.YExponent - points.XExponent;
    const auto rescaled = [](const CentredSample& sample, int exponent) {
        const double factor = std::ldexp(1.0, sample.Exponent - exponent);
        return DoubleDouble{sample.Mean.High * factor, sample.Mean.Low * factor};
    };
    const DoubleDouble meanX = rescaled(cx, points.XExponent), meanY = rescaled(cy, points.YExponent);
    const DoubleDouble centreX = meanX + DoubleDouble{value.MeanX, 0.0};
    const DoubleDouble centreY = meanY + DoubleDouble{value.MeanY, 0.0};
    const double limited = std::clamp(slope, -0x1p900, 0x1p900);
    fit.b = std::fabs(slope) == Largest ? slope : Unscale(slope, slopeExponent);
    fit.a = std::fabs(slope) == Largest
                ? Finite(-slope * std::ldexp(centreX.High, points.XExponent))
                : Unscale((centreY - centreX * DoubleDouble{limited, 0.0}).High, points.YExponent);

    // At the adjusted points, York's eq. 13d: with weights c^2 w and adjustments c share,
    // SDb^2 = 1 / (c^4 sum of w (share - mean)^2), SDa^2 = 1 / (c^2 sum of w) + (adjusted mean x)^2 SDb^2.
    const double sdb = Ratio(1.0, to.C * to.C * std::sqrt(value.AdjustedSquares));
    const double adjustedX = centreX.High + to.C * value.MeanAdjustment;
    const double sda =
        std::hypot(Ratio(1.0, std::fabs(to.C) * std::sqrt(value.SumWeights)), Finite(adjustedX * sdb));
    fit.SDb = Unscale(sdb, sdb == Largest ? 0 : slopeExponent + points.SDExponent);
    fit.SDa = sdb == Largest && adjustedX != 0.0
                  ? Largest
                  : Unscale(sda, sda >= Largest ? 0 : points.YExponent + points.SDExponent);
    fit.Chi2 = Unscale(value.Chi2, -2 * points.SDExponent);
    if (n > 2)
        fit.Q = GammaQ(0.5 * (static_cast<double>(n) - 2.0), 0.5 * fit.Chi2);
    return fit;
}

} // namespace corvane::stats
