#include "stats/power_sums.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <type_traits>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace corvane::stats {

namespace {

constexpr std::size_t Order = PowerTree::Order;
using PerPoint = std::array<double, Order>;

/// Chebyshev points of (-1, 1) and the matrix that makes Chebyshev coefficients of values at them.
struct ChebyshevTable {
    PerPoint Points{};
    std::array<PerPoint, Order> Coefficients{}; ///< [point][degree]
    ChebyshevTable() {
        for (std::size_t m = 0; m < Order; ++m) {
            const double angle =
                (static_cast<double>(m) + 0.5) * std::numbers::pi / static_cast<double>(Order);
            Points[m] = std::cos(angle);
            for (std::size_t k = 0; k < Order; ++k)
                Coefficients[m][k] = (k == 0 ? 1.0 : 2.0) * std::cos(static_cast<double>(k) * angle) /
                                     static_cast<double>(Order);
        }
    }
};

const ChebyshevTable& Chebyshev() {
    static const ChebyshevTable table;
    return table;
}

double Coordinate(double fromCentre, double radius) {
    return std::clamp(fromCentre / radius, -1.0, 1.0);
}

/// Points are worked on in groups, so that the recurrences of a group run side by side.
constexpr std::size_t Group = 4;
using Lanes = std::array<double, Group>;

/// Adds weight T_k(t) of every point to sums[k].
void AddPolynomials(const Lanes& t, const Lanes& weight, std::array<Lanes, Order>& sums) {
    Lanes before = weight, now;
    for (std::size_t l = 0; l < Group; ++l) {
        now[l] = weight[l] * t[l];
        sums[0][l] += before[l];
        sums[1][l] += now[l];
    }
    for (std::size_t k = 2; k < Order; ++k)
        for (std::size_t l = 0; l < Group; ++l) {
            const double next = 2.0 * t[l] * now[l] - before[l];
            before[l] = now[l];
            now[l] = next;
            sums[k][l] += next;
        }
}

/// sum of coefficient[k] T_k(t), by Clenshaw's recurrence.
Lanes Polynomial(const PerPoint& coefficients, const Lanes& t) {
    Lanes before{}, now{};
    for (std::size_t k = Order - 1; k > 0; --k)
        for (std::size_t l = 0; l < Group; ++l) {
            const double next = 2.0 * t[l] * now[l] - before[l] + coefficients[k];
            before[l] = now[l];
            now[l] = next;
        }
    Lanes value;
    for (std::size_t l = 0; l < Group; ++l)
        value[l] = t[l] * now[l] - before[l] + coefficients[0];
    return value;
}

/// Calls action(index, coordinates, used) for groups of `count` points.
template<class Position, class Action>
void InGroups(std::size_t count, const PowerTree::Cell& cell, Position position, Action action) {
    for (std::size_t first = 0; first < count; first += Group) {
        const std::size_t used = std::min(Group, count - first);
        Lanes t{};
        for (std::size_t l = 0; l < used; ++l)
            t[l] = Coordinate(position(first + l), cell.Radius);
        action(first, t, used);
    }
}

/// Binomial coefficients are made on the way; terms below a quarter of an ulp of the sum end the series.
double BinomialSeries(double power, double u, double firstDegree, double first, double step) {
    double term = first, sum = 0.0;
    for (double k = firstDegree; std::fabs(term) > 0.5e-17 * std::fabs(sum); k += step) {
        sum += term;
        for (double degree = k; degree < k + step; degree += 1.0)
            term *= (power - degree) / (degree + 1.0) * u;
    }
    return sum;
}

/// (min(|z|, cap) unit)^p - offset for p = 1.5, two at a time where the machine can.
struct OneAndAHalf {
    double Cap, Unit, Offset;

    double operator()(double z) const {
        const double v = std::min(std::fabs(z), Cap) * Unit;
        return v * std::sqrt(v) - Offset;
    }
#if defined(__SSE2__)
    __m128d operator()(__m128d z) const {
        const __m128d v =
            _mm_mul_pd(_mm_min_pd(_mm_andnot_pd(_mm_set1_pd(-0.0), z), _mm_set1_pd(Cap)), _mm_set1_pd(Unit));
        return _mm_sub_pd(_mm_mul_pd(v, _mm_sqrt_pd(v)), _mm_set1_pd(Offset));
    }
#endif
};

struct AnyPower {
    double Cap, Unit, Offset, Power;

    double operator()(double z) const { return std::pow(std::min(std::fabs(z), Cap) * Unit, Power) - Offset; }
};

struct BeyondTangent {
    PowerBeyondTangent Kernel;

    double operator()(double t) const { return Kernel(t); }
};

/// Points that take part in sums: their places, their weights, where their sums are added.
struct Members {
    const double* Place;
    const double* Weight;
    double* Sum;
    std::size_t Count;
};

/// Adds kernel(a - b) over all pairs to the sums of both sides.
template<class Kernel>
void AddPairs(const Kernel& kernel, const Members& a, const Members& b) {
    for (std::size_t i = 0; i < a.Count; ++i) {
        const double place = a.Place[i], weight = a.Weight[i];
        double sum = 0.0;
        std::size_t j = 0;
#if defined(__SSE2__)
        if constexpr (std::is_same_v<Kernel, OneAndAHalf>) {
            __m128d sums = _mm_setzero_pd();
            for (; j + 1 < b.Count; j += 2) {
                const __m128d value = kernel(_mm_sub_pd(_mm_set1_pd(place), _mm_loadu_pd(b.Place + j)));
                sums = _mm_add_pd(sums, _mm_mul_pd(value, _mm_loadu_pd(b.Weight + j)));
                _mm_storeu_pd(b.Sum + j,
                              _mm_add_pd(_mm_loadu_pd(b.Sum + j), _mm_mul_pd(value, _mm_set1_pd(weight))));
            }
            sum = _mm_cvtsd_f64(sums) + _mm_cvtsd_f64(_mm_unpackhi_pd(sums, sums));
        }
#endif
        for (; j < b.Count; ++j) {
            const double value = kernel(place - b.Place[j]);
            sum += value * b.Weight[j];
            b.Sum[j] += value * weight;
        }
        a.Sum[i] += sum;
    }
}

constexpr std::array<double, PowerTree::LeafSize> Ones = [] {
    std::array<double, PowerTree::LeafSize> ones{};
    ones.fill(1.0);
    return ones;
}();

/// How far the nearest point of another interval is from the centre, in radii, for the kernel to be smooth to
/// the last digits over the interval. The interpolation's error falls as 4.8^-Order at this distance.
constexpr double Separation = 2.5;

bool Separated(const PowerTree::Cell& a, const PowerTree::Cell& b) {
    const double distance = std::fabs(a.Centre - b.Centre);
    return distance > 0.0 && distance - b.Radius >= Separation * a.Radius &&
           distance - a.Radius >= Separation * b.Radius;
}

/// One sample's side of a summation.
struct Side {
    const PowerTree& Tree;
    std::vector<double> AtPoints;
    std::vector<double> Sums;

    explicit Side(const PowerTree& tree)
        : Tree(tree), AtPoints(tree.Cells().size() * Order), Sums(tree.Sample().size()) {}

    /// The points of an interval, from its centre + `shift`; `places` holds them.
    Members Far(std::size_t index, double shift, PerPoint& places) {
        const PowerTree::Cell& cell = Tree.Cells()[index];
        const std::size_t count = cell.Points();
        for (std::size_t m = 0; m < count; ++m)
            places[m] = count == 1 ? shift : shift + cell.Radius * Chebyshev().Points[m];
        return {places.data(), Tree.Weights(index), &AtPoints[index * Order], count};
    }
    Members Near(std::size_t index) {
        const PowerTree::Cell& cell = Tree.Cells()[index];
        if (cell.Radius == 0.0)
            return {&cell.Centre, Tree.Weights(index), &AtPoints[index * Order], 1};
        return {&Tree.Sample()[cell.First], Ones.data(), &Sums[cell.First], cell.Count};
    }
    std::vector<double> Finish() {
        Tree.Evaluate(AtPoints, Sums);
        return std::move(Sums);
    }
};

template<class Kernel>
struct Summation {
    Kernel Function;
    double Cap;
    Side A, B;

    void AddFar(std::size_t a, std::size_t b) {
        // Places are from the centre of b: the distance of two centres has no rounding error to speak of,
        // while points in absolute places lose the digits that an offset takes.
        const double distance = A.Tree.Cells()[a].Centre - B.Tree.Cells()[b].Centre;
        PerPoint placesA, placesB;
        AddPairs(Function, A.Far(a, distance, placesA), B.Far(b, 0.0, placesB));
    }

    void Add(std::size_t a, std::size_t b) {
        const PowerTree::Cell &cellA = A.Tree.Cells()[a], &cellB = B.Tree.Cells()[b];
        const double distance = std::fabs(cellA.Centre - cellB.Centre), width = cellA.Radius + cellB.Radius;
        if (distance - width >= Cap)
            return;
        if (width == 0.0 || (distance + width <= Cap && Separated(cellA, cellB)))
            AddFar(a, b);
        else if (cellA.Leaf() && cellB.Leaf())
            AddPairs(Function, A.Near(a), B.Near(b));
        else if (cellA.Leaf() || (!cellB.Leaf() && cellB.Radius > cellA.Radius)) {
            Add(a, cellB.Left);
            Add(a, cellB.Right);
        } else {
            Add(cellA.Left, b);
            Add(cellA.Right, b);
        }
    }

    PowerSumsResult Run() {
        Add(0, 0);
        return {A.Finish(), B.Finish()};
    }
};

} // namespace

PowerTree::PowerTree(std::span<const double> sample) : values(sample) {
    if (sample.empty())
        return;
    Build(0, sample.size());
    weights.resize(cells.size() * Order);
    GatherWeights();
}

std::uint32_t PowerTree::Build(std::size_t first, std::size_t count) {
    const double low = values[first], high = values[first + count - 1];
    const double centre = low + 0.5 * (high - low);
    const std::size_t index = cells.size();
    cells.push_back({centre, std::max(high - centre, centre - low), static_cast<std::uint32_t>(first),
                     static_cast<std::uint32_t>(count), 0, 0});
    if (low < high && count > LeafSize) {
        const auto begin = values.begin() + static_cast<std::ptrdiff_t>(first);
        const auto end = begin + static_cast<std::ptrdiff_t>(count);
        // The centre of neighbouring doubles may round to the upper one.
        const auto middle =
            centre < high ? std::upper_bound(begin, end, centre) : std::lower_bound(begin, end, high);
        const std::size_t left = static_cast<std::size_t>(middle - begin);
        const std::uint32_t leftCell = Build(first, left);
        const std::uint32_t rightCell = Build(first + left, count - left);
        cells[index].Left = leftCell;
        cells[index].Right = rightCell;
    }
    return static_cast<std::uint32_t>(index);
}

void PowerTree::GatherWeights() {
    const ChebyshevTable& table = Chebyshev();
    for (std::size_t index = cells.size(); index-- > 0;) { // halves come after the whole
        const Cell& cell = cells[index];
        double* own = &weights[index * Order];
        if (cell.Radius == 0.0) {
            own[0] = static_cast<double>(cell.Count);
            continue;
        }
        std::array<Lanes, Order> sums{};
        const auto add = [&](const double* weight) {
            return [&sums, weight](std::size_t first, const Lanes& t, std::size_t used) {
                Lanes lanes{};
                for (std::size_t l = 0; l < used; ++l)
                    lanes[l] = weight ? weight[first + l] : 1.0;
                AddPolynomials(t, lanes, sums);
            };
        };
        if (cell.Leaf())
            InGroups(
                cell.Count, cell, [&](std::size_t i) { return values[cell.First + i] - cell.Centre; },
                add(nullptr));
        else
            for (std::size_t half : {cell.Left, cell.Right}) {
                const Cell& part = cells[half];
                const double shift = part.Centre - cell.Centre;
                InGroups(
                    part.Points(), cell, [&](std::size_t m) { return shift + part.Radius * table.Points[m]; },
                    add(Weights(half)));
            }
        for (std::size_t k = 0; k < Order; ++k) {
            const double sum = (sums[k][0] + sums[k][1]) + (sums[k][2] + sums[k][3]);
            for (std::size_t m = 0; m < Order; ++m)
                own[m] += table.Coefficients[m][k] * sum;
        }
    }
}

void PowerTree::Evaluate(std::vector<double>& atPoints, std::span<double> sums) const {
    const ChebyshevTable& table = Chebyshev();
    for (std::size_t index = 0; index < cells.size(); ++index) {
        const Cell& cell = cells[index];
        const double* own = &atPoints[index * Order];
        if (cell.Radius == 0.0) {
            for (std::size_t i = cell.First; i < cell.First + cell.Count; ++i)
                sums[i] += own[0];
            continue;
        }
        PerPoint coefficients{};
        for (std::size_t m = 0; m < Order; ++m)
            for (std::size_t k = 0; k < Order; ++k)
                coefficients[k] += own[m] * table.Coefficients[m][k];
        const auto add = [&](double* target) {
            return [&coefficients, target](std::size_t first, const Lanes& t, std::size_t used) {
                const Lanes value = Polynomial(coefficients, t);
                for (std::size_t l = 0; l < used; ++l)
                    target[first + l] += value[l];
            };
        };
        if (cell.Leaf())
            InGroups(
                cell.Count, cell, [&](std::size_t i) { return values[cell.First + i] - cell.Centre; },
                add(&sums[cell.First]));
        else
            for (std::size_t half : {cell.Left, cell.Right}) {
                const Cell& part = cells[half];
                const double shift = part.Centre - cell.Centre;
                InGroups(
                    part.Points(), cell, [&](std::size_t m) { return shift + part.Radius * table.Points[m]; },
                    add(&atPoints[half * Order]));
            }
    }
}

double PowerKernel::operator()(double z) const {
    if (Power == 1.5)
        return OneAndAHalf{Cap, Unit, 0.0}(z);
    return AnyPower{Cap, Unit, 0.0, Power}(z);
}

double PowerBeyondTangent::operator()(double t) const {
    const double u = t / Pivot;
    const double excess = std::fabs(u) < 0.25
                              ? BinomialSeries(Power, u, 2.0, 0.5 * Power * (Power - 1.0) * u * u, 1.0)
                              : std::pow(std::fabs(1.0 + u), Power) - 1.0 - Power * u;
    return std::pow(std::fabs(Pivot), Power) * excess;
}

double PowerBeyondTangent::Tangent(double t) const {
    return std::pow(std::fabs(Pivot), Power) * (1.0 + Power * (t / Pivot));
}

double EvenPowerExcess(double power, double u) {
    if (std::fabs(u) < 0.25)
        return BinomialSeries(power, u, 2.0, 0.5 * power * (power - 1.0) * u * u, 2.0);
    return 0.5 * (std::pow(std::fabs(1.0 + u), power) + std::pow(std::fabs(1.0 - u), power)) - 1.0;
}

PowerSumsResult PowerSums(const PowerTree& a, const PowerTree& b, const PowerKernel& kernel) {
    if (a.Sample().empty() || b.Sample().empty())
        return {std::vector<double>(a.Sample().size()), std::vector<double>(b.Sample().size())};
    const double offset = kernel.Capped() ? kernel(kernel.Cap) : 0.0;
    if (kernel.Power == 1.5)
        return Summation<OneAndAHalf>{{kernel.Cap, kernel.Unit, offset}, kernel.Cap, Side(a), Side(b)}.Run();
    return Summation<AnyPower>{{kernel.Cap, kernel.Unit, offset, kernel.Power}, kernel.Cap, Side(a), Side(b)}
        .Run();
}

bool FarApart(const PowerTree& a, const PowerTree& b) {
    return !a.Sample().empty() && !b.Sample().empty() && Separated(a.Root(), b.Root());
}

PowerSumsResult PowerSumsBeyondTangent(const PowerTree& a, const PowerTree& b, double power) {
    const double distance = a.Root().Centre - b.Root().Centre;
    Side sideA(a), sideB(b);
    PerPoint placesA, placesB;
    AddPairs(BeyondTangent{{power, distance}}, sideA.Far(0, 0.0, placesA), sideB.Far(0, 0.0, placesB));
    return {sideA.Finish(), sideB.Finish()};
}

} // namespace corvane::stats
