#include "generator/pair_generator.h"

#include "core/format/failure.h"
#include "core/format/numbers.h"
#include "core/grid_operations.h"
#include "generator/copula_pairs.h"
#include "stats/distributions.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace corvane {
namespace {

constexpr std::int32_t fewestPoints = 3;

double Number(const std::string& text) {
    if (const auto number = ReadNumber(text))
        return *number;
    throw RunFailure("'" + text + "' is no number");
}

double BoxNumber(const std::string& text) {
    return Number("0" + text);
}

/// U and V, drawn in turn: the upper 52 bits of a draw, and a half, in units of 2^-52. The standard's own
/// distributions differ between libraries.
void DrawUniforms(std::uint64_t seed, std::vector<double>& U, std::vector<double>& V) {
    std::mt19937_64 generator(seed);
    const auto draw = [&] { return (static_cast<double>(generator() >> 12) + 0.5) * 0x1p-52; };
    for (std::size_t i = 0; i < U.size(); ++i) {
        U[i] = draw();
        V[i] = draw();
    }
}

/// Normal values for probabilities, in their place.
void ToNormal(std::vector<double>& probabilities, double mean, double variance) {
    const double SD = std::sqrt(variance);
    for (double& value : probabilities)
        value = SD * stats::InverseNormal(value) + mean;
}

/// Y = a + b X + E. The squared slope b^2 = r^2 SSy / SSx, and E has the variance (1 - r^2) SSy / (N - 2),
/// with SSx = N VarX and SSy = N VarY; so a sample of three pairs has three times the error of a large one.
RandomPairs RegressionPairs(const PairRequest& request, double r, std::vector<double> U,
                            std::vector<double> V) {
    const double b = r * std::sqrt(request.VarY / request.VarX);
    const double a = request.MeanY - b * request.MeanX;
    const double N = request.N;
    ToNormal(U, request.MeanX, request.VarX);
    ToNormal(V, 0, (1 - r * r) * request.VarY * (N / (N - 2)));
    for (std::size_t i = 0; i < U.size(); ++i)
        V[i] += b * U[i] + a;
    return {std::move(U), std::move(V)};
}

RandomPairs CopulaPairs(const PairRequest& request, double r, std::vector<double> U, std::vector<double> V) {
    GenerateCopulaPairs(U, V, V, r,
                        request.method == PairMethod::Frank ? CopulaFamily::Frank : CopulaFamily::Clayton);
    ToNormal(U, request.MeanX, request.VarX);
    ToNormal(V, request.MeanY, request.VarY);
    return {std::move(U), std::move(V)};
}

} // namespace

PairRequest ReadGeneratorBoxes(const GeneratorBoxes& boxes, PairMethod method) {
    PairRequest request;
    request.method = method;
    const double points = Integer32(Number(boxes.points));
    request.N = Integer32(BoxNumber(NumberText(points)));
    if (request.N < fewestPoints)
        return request;
    request.MeanX = BoxNumber(boxes.MeanX);
    request.MeanY = BoxNumber(boxes.MeanY);
    request.VarX = BoxNumber(boxes.VarX);
    request.VarY = BoxNumber(boxes.VarY);
    request.r = BoxNumber(boxes.r);
    return request;
}

std::string RefusalOf(const PairRequest& request) {
    if (request.N < fewestPoints)
        return "Number of data points cannot be less than 3";
    if (!(request.r >= 0 && request.r <= 1))
        return "Correlation has to be between o and 1"; // the letter o
    if (!(request.VarX > 0 && request.VarY > 0))
        return "Variance cannot be negative or zero";
    return {};
}

RandomPairs DrawPairs(const PairRequest& request, std::uint64_t seed) {
    // A perfect correlation has neither a copula parameter nor an error term.
    const double r = request.r == 1 ? 0.999 : request.r;
    std::vector<double> U(static_cast<std::size_t>(request.N)), V(U.size());
    DrawUniforms(seed, U, V);
    RandomPairs pairs = (request.method == PairMethod::Harlow ? RegressionPairs : CopulaPairs)(
        request, r, std::move(U), std::move(V));
    const auto finite = [](double value) { return std::isfinite(value); };
    if (!std::ranges::all_of(pairs.X, finite) || !std::ranges::all_of(pairs.Y, finite))
        throw RunFailure("the means and variances lead to values that are too large");
    return pairs;
}

GenerationEnd GeneratePairs(const PairRequest& request, bool overwrite, Dataset& dataset, Dialogs& dialogs,
                            Random& random) {
    if (const std::string refusal = RefusalOf(request); !refusal.empty()) {
        dialogs.ShowMessage(MessageStyle::Critical, refusal, "");
        return GenerationEnd::Refused;
    }
    const RandomPairs pairs = DrawPairs(request, random.Seed());
    if (!overwrite && !IsEmpty(dataset.cells.At(ColumnX, 1)) &&
        !dialogs.AskYesNo("Do you want clear the dataset?", "", false))
        return GenerationEnd::Declined;
    dataset.cells.Clear();
    dataset.options.N = NumberText(static_cast<double>(request.N));
    ApplyRowCount(dataset);
    for (std::int32_t row = 1; row <= request.N; ++row) {
        dataset.cells.Set(ColumnX, row, pairs.X[static_cast<std::size_t>(row) - 1]);
        dataset.cells.Set(ColumnY, row, pairs.Y[static_cast<std::size_t>(row) - 1]);
    }
    return GenerationEnd::Written;
}

} // namespace corvane
