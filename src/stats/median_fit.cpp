#include "stats/median_fit.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>

#include "stats/pairs.h"
#include "stats/sorting.h"

// For a given slope b the best intercept is the median of r = y - b x, so that the fit is the minimum over b
// of the convex, piecewise linear function g(b) = sum of |r - median r|. Its slope is the sum of x over the
// points below the line less that over the points above it, and it breaks where points pass from one side to
// the other.
//
// The search looks at nothing but this slope: where it is 0 on a whole interval every b of the interval is
// optimal, and where it changes its sign the break in between is, a line through two points or more. It is
// run twice, the second time on the residuals of the first, which are known to twice the digits of a double:
// so the line found is the best one also where residuals are as small as the rounding of the data.
namespace corvane::stats {

namespace {

enum class Way { Left, Right };

/// Sides of the points just left or right of a slope. Pivot is the one point on the line, where there is one.
struct Partition {
    std::vector<char> Above;
    std::optional<std::size_t> Pivot;
};

/// g at one slope: the derivatives to both sides and the points on the line.
struct Cell {
    double b = 0.0;
    double MedianLow = 0.0, MedianHigh = 0.0; ///< of r; they differ where N is even and the middle is empty
    double SlopeLeft = 0.0, SlopeRight = 0.0;
    std::vector<std::size_t> OnLine; ///< ascending x
    std::size_t Raised = 0;          ///< how many of them go above the line when b leaves this slope
    std::vector<char> Above;
};

/// The points of a fit, ascending in x and then y.
class AbsoluteDeviations {
public:
    AbsoluteDeviations(const std::vector<double>& xs, std::vector<double> ys, std::vector<double> noises,
                       const std::stop_token& token)
        : x(xs), y(std::move(ys)), noise(std::move(noises)), r(x.size()), work(x.size()), stop(token) {
        Sum sum;
        for (double value : Elements(x, stop)) {
            sum.Add(std::fabs(value));
            largestX = std::max(largestX, std::fabs(value));
        }
        zero = 1e-14 * sum.Value();
    }

    struct Line {
        double a = 0.0;
        double b = 0.0;
    };

    Line Fit(double start, double step);

private:
    Cell At(double b);
    bool Optimal(const Cell& cell) const { return cell.SlopeLeft <= zero && cell.SlopeRight >= -zero; }
    Partition Beside(const Cell& cell, Way way) const;
    std::optional<double> EndOfCell(const Partition& partition, Way way, std::optional<double> beyond) const;
    Line Middle(const Cell& cell);
    Cell Search(double start, double step);

    double Error(std::size_t i, double b) const {
        return 2.0 * Epsilon * (std::fabs(y[i]) + std::fabs(b * x[i])) + noise[i];
    }

    const std::vector<double>& x;
    std::vector<double> y;
    std::vector<double> noise; ///< error of y
    std::vector<double> r, work;
    const std::stop_token& stop;
    double largestX = 0.0;
    double zero = 0.0; ///< slopes of g up to here are 0: the rounding of sums of x
};

Cell AbsoluteDeviations::At(double b) {
    const std::size_t n = x.size();
    for (std::size_t i : Indices(n, stop))
        r[i] = y[i] - b * x[i];
    work = r;
    const std::size_t middle = (n - 1) / 2;
    Select(work, middle, stop);
    Cell cell;
    cell.b = b;
    cell.MedianLow = cell.MedianHigh = work[middle];
    if (n % 2 == 0) {
        const auto upper = std::span(work).subspan(middle + 1);
        cell.MedianHigh = work[middle + 1];
        for (double value : Elements(upper, stop))
            cell.MedianHigh = std::min(cell.MedianHigh, value);
    }
    const auto errorOf = [&](double value) {
        for (std::size_t i : Indices(n, stop))
            if (r[i] == value)
                return Error(i, b);
        return 0.0;
    };
    const double errorLow = errorOf(cell.MedianLow), errorHigh = errorOf(cell.MedianHigh);
    const bool empty = cell.MedianHigh - cell.MedianLow > errorLow + errorHigh;

    cell.Above.resize(n);
    Sum above, below;
    std::size_t countAbove = 0, countBelow = 0;
    for (std::size_t i : Indices(n, stop)) {
        if (!empty) {
            const double error = Error(i, b);
            if (r[i] >= cell.MedianLow - errorLow - error && r[i] <= cell.MedianHigh + errorHigh + error) {
                cell.OnLine.push_back(i);
                continue;
            }
        }
        cell.Above[i] = r[i] > cell.MedianLow ? 1 : 0;
        (cell.Above[i] != 0 ? above : below).Add(x[i]);
        ++(cell.Above[i] != 0 ? countAbove : countBelow);
    }
    // To either side of b half of all points are above the line. Those on it part by x: just right of b the
    // ones of small x are above, just left of it the ones of large x; of an odd number the middle one stays
    // on it.
    const std::size_t on = cell.OnLine.size();
    cell.Raised = (on + countBelow - countAbove) / 2;
    const std::size_t lowered = (on + countAbove - countBelow) / 2;
    Sum left = below, right = below;
    left.Add(-above.Total());
    right.Add(-above.Total());
    for (std::size_t k : Indices(on, stop)) {
        const double value = x[cell.OnLine[k]];
        if (k < lowered)
            left.Add(value);
        else if (k >= on - cell.Raised)
            left.Add(-value);
        if (k < cell.Raised)
            right.Add(-value);
        else if (k >= on - lowered)
            right.Add(value);
    }
    cell.SlopeLeft = left.Value();
    cell.SlopeRight = right.Value();
    return cell;
}

Partition AbsoluteDeviations::Beside(const Cell& cell, Way way) const {
    Partition partition{cell.Above, std::nullopt};
    const std::size_t on = cell.OnLine.size();
    const std::size_t lowered = on - cell.Raised - (on > 0 ? (x.size() % 2) : 0);
    for (std::size_t k : Indices(on, stop)) {
        const std::size_t i = cell.OnLine[way == Way::Right ? k : on - 1 - k];
        if (k < cell.Raised)
            partition.Above[i] = 1;
        else if (k < on - lowered)
            partition.Pivot = i;
    }
    return partition;
}

/// The slope up to which the partition holds, nothing where it holds as far as the slope beyond (infinity
/// where that is not given). Past it the lowest point above the line and the highest one below are in the
/// wrong order; Newton's method on their distance, a concave function of b, steps from one such pair to the
/// next one inwards and ends at the first pair to meet.
std::optional<double> AbsoluteDeviations::EndOfCell(const Partition& partition, Way way,
                                                    std::optional<double> beyond) const {
    const double direction = way == Way::Right ? 1.0 : -1.0;
    const auto worstPair = [&](auto height) {
        std::optional<std::size_t> lowest, highest;
        for (std::size_t i : Indices(x.size(), stop)) {
            const bool pivot = partition.Pivot == i;
            if ((partition.Above[i] != 0 || pivot) && (!lowest || height(i) < height(*lowest)))
                lowest = i;
            if ((partition.Above[i] == 0 || pivot) && (!highest || height(i) > height(*highest)))
                highest = i;
        }
        return std::pair(*lowest, *highest);
    };
    auto pair = beyond ? worstPair([&](std::size_t i) { return y[i] - *beyond * x[i]; })
                       : worstPair([&](std::size_t i) { return -direction * x[i]; });
    std::optional<double> end;
    while (true) {
        const auto [above, below] = pair;
        if (!(direction * (x[above] - x[below]) > 0.0))
            return end;
        const double b = (y[above] - y[below]) / (x[above] - x[below]);
        if (end && !(direction * (*end - b) > 0.0))
            return end;
        end = b;
        pair = worstPair([&](std::size_t i) { return y[i] - b * x[i]; });
    }
}

/// The double in the middle of those between two: as many steps as there are bits suffice to meet.
double MiddleDouble(double low, double high) {
    const auto order = [](double value) {
        const auto bits = std::bit_cast<std::int64_t>(value);
        return bits < 0 ? std::numeric_limits<std::int64_t>::min() - bits : bits;
    };
    const std::int64_t first = order(low), last = order(high);
    const std::int64_t middle = first / 2 + last / 2 + (first % 2 + last % 2) / 2;
    return std::bit_cast<double>(middle < 0 ? std::numeric_limits<std::int64_t>::min() - middle : middle);
}

/// An optimal slope, or the double next to it.
Cell AbsoluteDeviations::Search(double start, double step) {
    std::optional<Cell> low, high; // g falls right of low and rises left of high
    double weightLow = 1.0, weightHigh = 1.0, width = 0.0, growth = 4.0;
    bool walked = false;
    double b = start;
    for (int round = 0;; ++round) {
        Cell cell = At(b);
        if (Optimal(cell))
            return cell;
        const bool falls = cell.SlopeRight < 0.0;
        const bool samePiece =
            falls ? low && low->SlopeRight == cell.SlopeLeft : high && high->SlopeLeft == cell.SlopeRight;
        weightLow = falls ? 1.0 : 0.5 * weightLow;
        weightHigh = falls ? 0.5 * weightHigh : 1.0;
        (falls ? low : high) = std::move(cell);
        const double lowSlope = low ? -low->SlopeRight : 0.0, highSlope = high ? high->SlopeLeft : 0.0;

        // Where g has been met on this very piece before, or is nearly flat: every second time to the next
        // break.
        const bool fromLow = samePiece ? falls : !high || (low && lowSlope < highSlope);
        walked = !walked && (samePiece || (fromLow ? lowSlope : highSlope) <= 4.0 * largestX);
        if (walked) {
            const Way way = fromLow ? Way::Right : Way::Left;
            const std::optional<Cell>& other = fromLow ? high : low;
            const std::optional<double> end = EndOfCell(Beside(fromLow ? *low : *high, way), way,
                                                        other ? std::optional(other->b) : std::nullopt);
            if (end && (!low || *end > low->b) && (!high || *end < high->b)) {
                b = *end;
                continue;
            }
        }
        if (!low || !high) {
            b += falls ? step : -step;
            step *= growth;
            growth *= 4.0;
            if (!(std::fabs(b) < 0x1p1000))
                return falls ? *low : *high;
            continue;
        }
        // False position on the slope of g (Illinois), bisection of the doubles in between when that is slow.
        const double gap = high->b - low->b;
        const double share = weightLow * lowSlope / (weightLow * lowSlope + weightHigh * highSlope);
        b = low->b + gap * share;
        if (round % 4 == 3) {
            if (gap > 0.0625 * width)
                b = MiddleDouble(low->b, high->b);
            width = gap;
        }
        if (!(b > low->b && b < high->b))
            b = MiddleDouble(low->b, high->b);
        if (!(b > low->b && b < high->b)) // neighbours
            return lowSlope < highSlope ? *low : *high;
    }
}

/// The line in the middle of all optimal ones, from one of them.
AbsoluteDeviations::Line AbsoluteDeviations::Middle(const Cell& cell) {
    double left = cell.b, right = cell.b;
    const bool flatLeft = std::fabs(cell.SlopeLeft) <= zero, flatRight = std::fabs(cell.SlopeRight) <= zero;
    const std::size_t on = cell.OnLine.size();
    if (on > 1 && x[cell.OnLine.front()] < x[cell.OnLine.back()])
        left = right = (y[cell.OnLine.back()] - y[cell.OnLine.front()]) /
                       (x[cell.OnLine.back()] - x[cell.OnLine.front()]);
    if (flatLeft)
        left = EndOfCell(Beside(cell, Way::Left), Way::Left, std::nullopt).value_or(left);
    if (flatRight)
        right = EndOfCell(Beside(cell, Way::Right), Way::Right, std::nullopt).value_or(right);
    const Cell middle = At(left == right ? left : 0.5 * left + 0.5 * right);
    return {0.5 * middle.MedianLow + 0.5 * middle.MedianHigh, middle.b};
}

AbsoluteDeviations::Line AbsoluteDeviations::Fit(double start, double step) {
    return Middle(Search(start, step));
}

struct Point {
    double X;
    double Y;
    friend bool operator<(const Point& p, const Point& q) { return p.X == q.X ? p.Y < q.Y : p.X < q.X; }
};

} // namespace

MedianFit FitMedian(std::span<const double> x, std::span<const double> y, const std::stop_token& stop) {
    const Pairs pairs(x, y);
    const std::size_t n = pairs.N;
    MedianFit fit;
    if (n == 0)
        return fit;
    const int exponentX = ScaleExponent(pairs.X, stop), exponentY = ScaleExponent(pairs.Y, stop);
    std::vector<Point> points(n);
    for (std::size_t i : Indices(n, stop))
        points[i] = {std::ldexp(Finite(pairs.X[i]), -exponentX), std::ldexp(Finite(pairs.Y[i]), -exponentY)};
    // Everything below depends on the sorted points, and so not on the order of the rows.
    Sort(std::span(points), stop, std::less<>());

    std::vector<double> sorted(n);
    for (std::size_t i : Indices(n, stop))
        sorted[i] = points[i].Y;
    const double centreX = points[n / 2].X, centreY = Median(std::move(sorted), stop);
    std::vector<double> localX(n), localY(n);
    Sum sxx, sxy, absX;
    for (std::size_t i : Indices(n, stop)) {
        localX[i] = points[i].X - centreX;
        localY[i] = points[i].Y - centreY;
        sxx.AddProduct(localX[i], localX[i]);
        sxy.AddProduct(localX[i], localY[i]);
        absX.Add(std::fabs(localX[i]));
    }
    using Line = AbsoluteDeviations::Line;
    Line first, second;
    const bool constantX = points.front().X == points.back().X;
    std::vector<double> rest(n), noise(n);
    const auto residuals = [&] { // of the first line, to twice the digits
        for (std::size_t i : Indices(n, stop)) {
            const DoubleDouble dx = TwoSum(points[i].X, -centreX), dy = TwoSum(points[i].Y, -centreY);
            const DoubleDouble line = DoubleDouble{first.b, 0.0} * dx + DoubleDouble{first.a, 0.0};
            rest[i] = (dy - line).High;
            noise[i] = 1e-30 * (std::fabs(dy.High) + std::fabs(first.b * dx.High) + std::fabs(first.a));
        }
    };
    if (!constantX) {
        const double start = Ratio(sxy.Value(), sxx.Value());
        Sum absolute;
        for (std::size_t i : Indices(n, stop))
            absolute.Add(std::fabs(localY[i] - start * localX[i]));
        const double step = absolute.Value() / absX.Value() / std::sqrt(static_cast<double>(n));
        first = AbsoluteDeviations(localX, localY, noise, stop)
                    .Fit(start, std::max(step, Epsilon * std::fabs(start)));
        residuals();
        second = AbsoluteDeviations(localX, rest, noise, stop).Fit(0.0, 0x1p-20 * step);
    } else {
        residuals();
    }

    const DoubleDouble b = TwoSum(first.b, second.b);
    const DoubleDouble a =
        DoubleDouble{centreY, 0.0} + TwoSum(first.a, second.a) - b * DoubleDouble{centreX, 0.0};
    Sum absolute, squares;
    for (std::size_t i : Indices(n, stop)) {
        const double value = rest[i] - second.a - second.b * localX[i];
        if (std::fabs(value) <= noise[i])
            continue;
        absolute.Add(std::fabs(value));
        squares.AddProduct(value, value);
    }
    fit.a = Unscale(a.High, exponentY) + 0.0;
    fit.b = Unscale(b.High, exponentY - exponentX) + 0.0;
    fit.AbsDev = Unscale(absolute.Value() / static_cast<double>(n), exponentY);
    fit.Chi2 = Unscale(squares.Value(), 2 * exponentY);
    return fit;
}

} // namespace corvane::stats
