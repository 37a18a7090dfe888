// A field against the C library's print of the same numbers, side by side.

#include "core/format/format_field.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

namespace {

using corvane::Field;

constexpr std::size_t Count = 4096;

// Means, slopes and standard errors of four magnitudes, both signs.
std::vector<double> ReportNumbers() {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> power(-4, 3);
    std::vector<double> numbers(Count);
    for (double& number : numbers)
        number = std::pow(10.0, power(random)) * (random() % 4 == 0 ? -1 : 1);
    return numbers;
}

// Half of them significant, down to 1e-40.
std::vector<double> Probabilities() {
    std::mt19937_64 random(2);
    std::uniform_real_distribution<double> uniform(0, 1);
    std::vector<double> numbers(Count);
    for (double& number : numbers)
        number = random() % 2 == 0 ? uniform(random) : std::pow(10.0, -40 * uniform(random));
    return numbers;
}

// Data as typed, with one digit more than the field shows: one in ten is a tie.
std::vector<double> TypedNumbers() {
    std::mt19937_64 random(3);
    std::vector<double> numbers(Count);
    for (double& number : numbers)
        number = static_cast<double>(random() % 100000000) / 1e6;
    return numbers;
}

void Fields(benchmark::State& state, const std::vector<double>& numbers, bool probability) {
    while (state.KeepRunning()) {
        for (const double number : numbers) {
            Field field{.value = number, .width = 10, .decimals = 5, .probability = probability};
            benchmark::DoNotOptimize(corvane::FormatField(field));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(numbers.size()));
}

void Printf(benchmark::State& state, const std::vector<double>& numbers) {
    std::array<char, 64> text{};
    while (state.KeepRunning()) {
        for (const double number : numbers) {
            std::snprintf(text.data(), text.size(), "%*.*f", 10, 5, number);
            benchmark::DoNotOptimize(text);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(numbers.size()));
}

BENCHMARK_CAPTURE(Fields, Report, ReportNumbers(), false);
BENCHMARK_CAPTURE(Printf, Report, ReportNumbers());
BENCHMARK_CAPTURE(Fields, Probability, Probabilities(), true);
BENCHMARK_CAPTURE(Printf, Probability, Probabilities());
BENCHMARK_CAPTURE(Fields, Typed, TypedNumbers(), false);
BENCHMARK_CAPTURE(Printf, Typed, TypedNumbers());

} // namespace
