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

void AddTimes(Sum& sum, DoubleDouble value, double factor) {
    sum.AddProduct(factor, value.High);
    sum.Add(factor * value.Low);
}

struct Points {
    std::vector<double> X, Y;                 ///< about their means, in (-1, 1)
    std::vector<DoubleDouble> WholeX, WholeY; ///< the same with all their digits
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
};

std::vector<double> UsableSDs(std::span<const double> sds, int exponent, const std::stop_token& stop) {
    std::vector<double> result;
    for (double sd : Elements(sds, stop))
        result.push_back(
            Unscale(std::fabs(sd) > 0.0 && std::fabs(sd) <= Largest ? std::fabs(sd) : 1e-30, -exponent));
    return result;
}

std::vector<double> Deviations(const CentredSample& sample, int& exponent, std::vector<DoubleDouble>& whole,
                               const std::stop_token& stop) {
    std::vector<double> values;
    for (const DoubleDouble& deviation : Elements(sample.Deviation, stop))
        values.push_back(deviation.High);
    const int own = ScaleExponent(values, stop);
    exponent = sample.Exponent + own;
    for (const DoubleDouble& deviation : Elements(sample.Deviation, stop))
        whole.push_back(Shifted(deviation, -own));
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
    const double sum = weights.Value(), meanX = sumX.Value() / sum, meanY = sumY.Value() / sum;
    Sum chi2, descent;
    for (std::size_t i : Indices(n, points.Stop)) {
        const double u = points.X[i] - meanX, v = points.Y[i] - meanY;
        const double distance = to.C * v - to.S * u;
        const double share = weight[i] * to.C * points.VarY[i] * u + weight[i] * to.S * points.VarX[i] * v;
        chi2.Add(weight[i] * distance * distance);
        descent.Add(weight[i] * distance * share);
    }
    return {chi2.Value(), descent.Value()};
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

Node LowestChi2(const Points& points, double tolerance) {
    const std::vector<Node> nodes = Nodes(points);
    Node last = nodes[0], best = last;
    Objective before = Evaluate(points, Towards(last.In, last.T));
    double lowest = before.Chi2;
    const auto consider = [&](Node node, double chi2) {
        // Equally good minima are told apart by their place and not by rounding: the first one stays.
        if (chi2 < lowest * (1.0 - 1e-12)) {
            best = node;
            lowest = chi2;
        }
    };
    for (std::size_t k = 1; k < nodes.size(); ++k) {
        const Node node = nodes[k];
        const Objective here = Evaluate(points, Towards(node.In, node.T));
        const Node from{node.In, last.In == node.In ? last.T : 1.0 / last.T};
        if (before.Descent > 0.0 && here.Descent < 0.0) {
            const double t = Refine(points, node.In, from.T, before.Descent, node.T, here.Descent, tolerance);
            consider({node.In, t}, Evaluate(points, Towards(node.In, t)).Chi2);
        } else if (here.Descent == 0.0) {
            consider(node, here.Chi2);
        }
        last = node;
        before = here;
    }
    return best;
}

/// The line of a direction. Where the range is 1e13 SDs a double's rounding of a distance is a thousandth of
/// an SD, so direction, centre and distances have twice its digits; weights do without.
struct Solution {
    DoubleDouble T;
    double Chi2 = 0.0;
    double SumWeights = 0.0;
    DoubleDouble MeanX, MeanY;    ///< weighted
    DoubleDouble Next;            ///< York's next T
    double MeanAdjustment = 0.0;  ///< weighted mean of the adjustments, York's beta / c
    double AdjustedSquares = 0.0; ///< weighted squares of beta / c about that mean
};

Solution Solve(const Points& points, Chart chart, DoubleDouble t) {
    const std::size_t n = points.X.size();
    const Direction to = Towards(chart, t.High);
    std::vector<double> weight(n), share(n);
    Sum weights, sumX, sumY;
    for (std::size_t i = 0; i < n; ++i) {
        weight[i] = 1.0 / (to.C * to.C * points.VarY[i] + to.S * to.S * points.VarX[i]);
        weights.Add(weight[i]);
        AddTimes(sumX, points.WholeX[i], weight[i]);
        AddTimes(sumY, points.WholeY[i], weight[i]);
    }
    Solution result;
    result.T = t;
    result.SumWeights = weights.Value();
    result.MeanX = sumX.Total() / weights.Total();
    result.MeanY = sumY.Total() / weights.Total();
    Sum chi2, stepX, stepY, adjustments;
    for (std::size_t i = 0; i < n; ++i) {
        const DoubleDouble u = points.WholeX[i] - result.MeanX, v = points.WholeY[i] - result.MeanY;
        const double distance = (chart == Chart::Flat ? v - t * u : t * v - u).High;
        chi2.Add(weight[i] * distance * distance);
        share[i] = weight[i] * to.C * points.VarY[i] * u.High + weight[i] * to.S * points.VarX[i] * v.High;
        AddTimes(stepX, u, weight[i] * share[i]);
        AddTimes(stepY, v, weight[i] * share[i]);
        adjustments.Add(weight[i] * share[i]);
    }
    // Distances carry an error of about 1e-31 of the range: below that the points are on the line.
    result.Chi2 = chi2.Value() <= 1e-56 * result.SumWeights ? 0.0 : chi2.Value();
    result.Next = chart == Chart::Flat ? stepY.Total() / stepX.Total() : stepX.Total() / stepY.Total();
    result.MeanAdjustment = adjustments.Value() / result.SumWeights;
    Sum squares;
    for (std::size_t i = 0; i < n; ++i)
        squares.Add(weight[i] * Square(share[i] - result.MeanAdjustment));
    result.AdjustedSquares = squares.Value();
    return result;
}

/// Takes the rounding of the search away by York's own steps, which end at once where the errors are small
/// against the range, and which nothing needs where they are not.
Solution Polish(const Points& points, const Node& found) {
    Solution best = Solve(points, found.In, {found.T, 0.0});
    for (int round = 0; round < 4; ++round) {
        const double step = (best.Next - best.T).High;
        const bool close = std::fabs(step) <= 1e-12 * std::fabs(best.T.High);
        // What the step can change of Chi2: no point is farther than 2 from the centre.
        if (close && 4.0 * best.SumWeights * Square(step) <= 1e-14 * best.Chi2) {
            best.T = best.Next;
            break;
        }
        if (best.Chi2 == 0.0 || !std::isfinite(step))
            break;
        const Solution next = Solve(points, found.In, best.Next);
        if (!(next.Chi2 < best.Chi2 || (close && next.Chi2 <= best.Chi2 * (1.0 + 1e-12))))
            break;
        best = next;
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
    points.X = Deviations(cx, points.XExponent, points.WholeX, stop);
    points.Y = Deviations(cy, points.YExponent, points.WholeY, stop);
    const std::vector<double> sx = UsableSDs(sdx.first(n), points.XExponent, stop);
    const std::vector<double> sy = UsableSDs(sdy.first(n), points.YExponent, stop);
    points.SDExponent = std::max(ScaleExponent(sx, stop), ScaleExponent(sy, stop));
    points.VarX = Variances(sx, points.SDExponent, stop);
    points.VarY = Variances(sy, points.SDExponent, stop);

    const bool constantX = cx.SumSquares.High == 0.0;
    const Node found = constantX ? Node{} : LowestChi2(points, Tolerance);
    const Solution line = Polish(points, found);
    const Direction to = Towards(found.In, line.T.High);
    DoubleDouble slope = line.T;
    if (found.In == Chart::Steep)
        slope = line.T.High == 0.0 ? DoubleDouble{Largest, 0.0} : DoubleDouble{1.0, 0.0} / line.T;
    if (!(std::fabs(slope.High) < Largest))
        slope = {std::copysign(Largest, slope.High), 0.0};

    const int slopeExponent = points.YExponent - points.XExponent;
    const auto rescaled = [](const CentredSample& sample, int exponent) {
        const double factor = std::ldexp(1.0, sample.Exponent - exponent);
        return DoubleDouble{sample.Mean.High * factor, sample.Mean.Low * factor};
    };
    const DoubleDouble meanX = rescaled(cx, points.XExponent), meanY = rescaled(cy, points.YExponent);
    const DoubleDouble centreX = meanX + line.MeanX, centreY = meanY + line.MeanY;
    if (std::fabs(slope.High) == Largest) {
        fit.b = slope.High;
        fit.a = Finite(-slope.High * std::ldexp(centreX.High, points.XExponent));
    } else {
        const DoubleDouble limited =
            std::fabs(slope.High) > 0x1p900 ? DoubleDouble{std::copysign(0x1p900, slope.High), 0.0} : slope;
        const double intercept = (centreY - centreX * limited).High;
        fit.b = Unscale(slope.High, slopeExponent);
        // What rounding leaves of a line through the origin.
        if (std::fabs(intercept) > 1e-29 * std::fabs(centreY.High))
            fit.a = Unscale(intercept, points.YExponent);
    }

    // At the adjusted points, York's eq. 13d: with weights c^2 w and adjustments c share,
    // SDb^2 = 1 / (c^4 sum of w (share - mean)^2), SDa^2 = 1 / (c^2 sum of w) + (adjusted mean x)^2 SDb^2.
    const double sdb = Ratio(1.0, to.C * to.C * std::sqrt(line.AdjustedSquares));
    const double adjustedX = centreX.High + to.C * line.MeanAdjustment;
    const double sda =
        std::hypot(Ratio(1.0, std::fabs(to.C) * std::sqrt(line.SumWeights)), Finite(adjustedX * sdb));
    fit.SDb = Unscale(sdb, sdb == Largest ? 0 : slopeExponent + points.SDExponent);
    fit.SDa = sdb == Largest && adjustedX != 0.0
                  ? Largest
                  : Unscale(sda, sda >= Largest ? 0 : points.YExponent + points.SDExponent);
    fit.Chi2 = Unscale(line.Chi2, -2 * points.SDExponent);
    fit.RootChi2 = Unscale(std::sqrt(line.Chi2), -points.SDExponent);
    if (n > 2)
        fit.Q = GammaQ(0.5 * (static_cast<double>(n) - 2.0), 0.5 * fit.Chi2);
    return fit;
}

} // namespace corvane::stats
