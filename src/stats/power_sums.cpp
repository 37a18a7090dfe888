#include "stats/power_sums.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <type_traits>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace corvane::stats {

namespace {

constexpr std::size_t Order = PowerTree::Order;
using PerPoint = PowerTree::PerPoint;

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
            places[m] = count == 1 ? shift : shift + cell.Radius * PowerTree::ChebyshevPoints()[m];
        return {places.data(), Tree.Weights(index), &AtPoints[index * Order], count};
    }
    Members Near(std::size_t index) {
        const PowerTree::Cell& cell = Tree.Cells()[index];
        if (cell.Radius == 0.0)
            return {&cell.Centre, Tree.Weights(index), &AtPoints[index * Order], 1};
        return {&Tree.Sample()[cell.First], Ones.data(), &Sums[cell.First], cell.Count};
    }
    std::vector<double> Finish(const std::stop_token& stop) {
        Tree.Evaluate(AtPoints, Sums, stop);
        return std::move(Sums);
    }
};

template<class Kernel>
struct Summation {
    Kernel Function;
    double Cap;
    Side A, B;
    const std::stop_token& Stop;
    Looks PairLooks{Stop};

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
        constexpr std::uint32_t leaf = PowerTree::LeafSize; // one value however often is one point
        const bool leaves = cellA.Leaf() && cellB.Leaf();
        PairLooks.Handled(leaves ? std::min(cellA.Count, leaf) * std::min(cellB.Count, leaf) : Order * Order);
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
        return {A.Finish(Stop), B.Finish(Stop)};
    }
};

} // namespace

PowerSumsResult PowerSums(const PowerTree& a, const PowerTree& b, const PowerKernel& kernel,
                          const std::stop_token& stop) {
    if (a.Sample().empty() || b.Sample().empty())
        return {std::vector<double>(a.Sample().size()), std::vector<double>(b.Sample().size())};
    const double offset = kernel.Capped() ? kernel(kernel.Cap) : 0.0;
    if (kernel.Power == 1.5)
        return Summation<OneAndAHalf>{{kernel.Cap, kernel.Unit, offset}, kernel.Cap, Side(a), Side(b), stop}
            .Run();
    return Summation<AnyPower>{
        {kernel.Cap, kernel.Unit, offset, kernel.Power}, kernel.Cap, Side(a), Side(b), stop}
        .Run();
}

bool FarApart(const PowerTree& a, const PowerTree& b) {
    return !a.Sample().empty() && !b.Sample().empty() && Separated(a.Root(), b.Root());
}

PowerSumsResult PowerSumsBeyondTangent(const PowerTree& a, const PowerTree& b, double power,
                                       const std::stop_token& stop) {
    const double distance = a.Root().Centre - b.Root().Centre;
    Side sideA(a), sideB(b);
    PerPoint placesA, placesB;
    AddPairs(BeyondTangent{{power, distance}}, sideA.Far(0, 0.0, placesA), sideB.Far(0, 0.0, placesB));
    return {sideA.Finish(stop), sideB.Finish(stop)};
}

} // namespace corvane::stats
