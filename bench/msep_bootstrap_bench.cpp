// The bootstrap of MSEP close to the largest size that its 16 bits allow, beside as many plain passes over
// the pairs and as many draws of its generator.

#include "stats/msep_bootstrap.h"

#include <benchmark/benchmark.h>
#include <random>
#include <vector>

namespace {

constexpr std::size_t pairs = 150'000;
constexpr int subSamples = 200;

std::vector<double> Sample(unsigned seed) {
    std::mt19937_64 generator(seed);
    std::vector<double> sample(pairs);
    for (double& value : sample)
        value = static_cast<double>(generator() >> 11) * 0x1p-53;
    return sample;
}

void Bootstrap(benchmark::State& state) {
    const std::vector<double> differences = Sample(1);
    for (auto _ : state)
        benchmark::DoNotOptimize(corvane::stats::BootstrapMSEP(subSamples, 20, differences, 7));
}
BENCHMARK(Bootstrap)->Unit(benchmark::kMillisecond);

void PlainPasses(benchmark::State& state) {
    const std::vector<double> x = Sample(1), y = Sample(2);
    for (auto _ : state)
        for (int pass = 0; pass < subSamples; ++pass) {
            double sum = 0;
            for (std::size_t i = 0; i < pairs; ++i)
                sum += (y[i] - x[i]) * (y[i] - x[i]);
            benchmark::DoNotOptimize(sum);
        }
}
BENCHMARK(PlainPasses)->Unit(benchmark::kMillisecond);

void Draws(benchmark::State& state) {
    std::mt19937_64 generator(7);
    for (auto _ : state) {
        std::uint64_t all = 0;
        for (std::size_t i = 0; i < subSamples * pairs; ++i)
            all ^= generator();
        benchmark::DoNotOptimize(all);
    }
}
BENCHMARK(Draws)->Unit(benchmark::kMillisecond);

} // namespace
