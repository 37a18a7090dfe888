#include "stats/deviation_intervals.h"

#include <cmath>
#include <utility>

#include "stats/distributions.h"
#include "stats/line_residuals.h"
#include "stats/sorting.h"

namespace corvane::stats {

std::vector<DeviationIntervalRow> DeviationIntervals(double a, double b, std::span<const double> x,
                                                     std::span<const double> deviation, double Confidence,
                                                     const std::stop_token& stop) {
    // Everything after the sort then runs through memory in order.
    const Pairs pairs(x, deviation);
    std::vector<double> sortedX, sortedD;
    {
        struct Pair {
            double X, D;
            std::size_t Row;
        };
        std::vector<Pair> ordered(pairs.N);
        for (std::size_t i : Indices(pairs.N, stop))
            ordered[i] = {Finite(pairs.X[i]), Finite(pairs.Y[i]), i};
        Sort(std::span(ordered), stop,
             [](const Pair& p, const Pair& q) { return p.X == q.X ? p.Row < q.Row : p.X < q.X; });
        sortedX.reserve(pairs.N), sortedD.reserve(pairs.N);
        for (const Pair& pair : Elements(ordered, stop))
            sortedX.push_back(pair.X), sortedD.push_back(pair.D);
    }

    const double n = pairs.Count();
    std::vector<double> fitted;
    double s = 0.0;
    int exponent = 0;
    {
        LineResiduals line = ResidualsOfLine({sortedX, sortedD}, a, b, stop);
        const int own = ScaleExponent(line.Residue, stop);
        Sum sse;
        for (double residue : Elements(line.Residue, stop))
            sse.Add(Square(std::ldexp(residue, -own)));
        s = pairs.N > 2 ? std::sqrt(sse.Value() / (n - 2.0)) : 0.0;
        exponent = line.Exponent + own;
        fitted = std::move(line.Fitted);
        for (double& value : Elements(fitted, stop))
            value = Unscale(value, line.Exponent);
    }
    const double t = Confidence > 0.0 && pairs.N > 2 ? -InverseT((100.0 - Confidence) / 200.0, n - 2.0) : 0.0;

    const auto halfWidth = [&](double h) {
        return t == Largest ? Ratio(s, 0.0) : Unscale(t * s * std::sqrt(h), exponent);
    };

    const CentredSample centred = Centre(sortedX, stop);
    const double sxx = centred.SumSquares.High;
    std::vector<DeviationIntervalRow> rows;
    rows.reserve(pairs.N);
    for (std::size_t i : Indices(pairs.N, stop)) {
        const double h = 1.0 / n + Ratio(Square(centred.Deviation[i].High), sxx);
        const double mean = halfWidth(h), single = halfWidth(1.0 + h);
        rows.push_back({sortedX[i], sortedD[i], fitted[i], Finite(fitted[i] - mean), Finite(fitted[i] + mean),
                        Finite(fitted[i] - single), Finite(fitted[i] + single)});
    }
    return rows;
}

} // namespace corvane::stats
