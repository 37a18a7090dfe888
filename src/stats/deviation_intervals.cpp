#include "stats/deviation_intervals.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <utility>

#include "stats/distributions.h"
#include "stats/line_residuals.h"
#include "stats/sorting.h"

namespace corvane::stats {

namespace {

constexpr std::size_t Width = 12;
constexpr std::size_t Decimals = 5;
constexpr std::array<std::string_view, 7> Names = {"X",        "Deviation", "Fitted",  "CI Lower",
                                                   "CI Upper", "PI Lower",  "PI Upper"};

/// The magnitude in units of the last decimal, rounded half up from its nearest decimal of 15 digits.
std::uint64_t Units(double magnitude) {
    // The 15-digit decimal is within 5e-15 of the double and so on the same side of a tie farther off.
    const double scaled = magnitude * 1e5, whole = std::floor(scaled), beyond = scaled - whole - 0.5;
    if (std::fabs(beyond) > 6e-15 * scaled)
        return static_cast<std::uint64_t>(whole) + (beyond > 0.0 ? 1 : 0);

    std::array<char, 32> text{}; // "d.dddddddddddddde+xx"
    const char* const end =
        std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific, 14)
            .ptr;
    std::uint64_t digits = static_cast<std::uint64_t>(text[0] - '0');
    for (std::size_t i = 2; i < 16; ++i)
        digits = 10 * digits + static_cast<std::uint64_t>(text[i] - '0');
    int exponent = 0;
    std::from_chars(text.data() + 18, end, exponent);
    std::uint64_t divisor = 1;
    for (int power = text[17] == '-' ? -exponent : exponent; power < 14 - static_cast<int>(Decimals); ++power)
        divisor *= 10;
    return (digits + divisor / 2) / divisor;
}

void AppendNumber(std::string& text, double value) {
    std::array<char, Width> field;
    field.fill(' ');
    const double magnitude = std::fabs(value);
    // Seven digits before the point are one too many.
    const std::uint64_t units = magnitude < 1e7 ? Units(magnitude) : 1'000'000'000'000;
    const std::uint64_t limit = value < 0.0 ? 10'000'000'000 : 100'000'000'000;
    if (units >= limit) {
        std::copy_n("n/a", 3, field.end() - 3);
        text.append(field.data(), field.size());
        return;
    }
    char* out = field.data() + field.size();
    std::uint64_t rest = units;
    for (std::size_t digit = 0; digit <= Decimals || rest > 0; ++digit, rest /= 10) {
        if (digit == Decimals)
            *--out = '.';
        *--out = static_cast<char>('0' + rest % 10);
    }
    if (value < 0.0)
        *--out = '-';
    text.append(field.data(), field.size());
}

} // namespace

std::vector<DeviationIntervalRow> DeviationIntervalRows(double a, double b, std::span<const double> x,
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

std::string DeviationIntervals(double a, double b, std::span<const double> x,
                               std::span<const double> deviation, double Confidence,
                               const std::stop_token& stop) {
    const std::vector<DeviationIntervalRow> rows =
        DeviationIntervalRows(a, b, x, deviation, Confidence, stop);
    const std::string rule = std::string(Width * Names.size(), '-') + "\r\n";
    std::string text;
    text.reserve((rows.size() + 3) * rule.size());
    for (std::string_view name : Names)
        text.append(Width - name.size(), ' ').append(name);
    text += "\r\n" + rule;
    Looks looks(stop);
    for (const DeviationIntervalRow& row : rows) {
        looks.Handled(Names.size());
        for (double value :
             {row.X, row.Deviation, row.Fitted, row.CILower, row.CIUpper, row.PILower, row.PIUpper})
            AppendNumber(text, value);
        text += "\r\n";
    }
    text += rule;
    return text;
}

} // namespace corvane::stats
