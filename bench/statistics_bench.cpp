// The statistics routines at N = 10^5 and 10^6, as a multiple of std::sort of N random doubles in the same
// run, with its growth between the sizes and its working memory; and how soon each ends when it is stopped.

#include "stats/correlation.h"
#include "stats/deviation_intervals.h"
#include "stats/distances.h"
#include "stats/edf_normality.h"
#include "stats/error_measures.h"
#include "stats/generalized_concordance.h"
#include "stats/intercept_slope_test.h"
#include "stats/kendall.h"
#include "stats/line_family.h"
#include "stats/line_fits.h"
#include "stats/median_fit.h"
#include "stats/moment_statistics.h"
#include "stats/moments.h"
#include "stats/normality.h"
#include "stats/pair_statistics.h"
#include "stats/ranks.h"
#include "stats/residual_statistics.h"
#include "stats/robust_scale.h"
#include "stats/two_sample_ranks.h"
#include "stats/two_sample_tests.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <malloc.h>
#include <map>
#include <new>
#include <random>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

namespace {

std::size_t inUse = 0, peak = 0;

void* Taken(std::size_t bytes) {
    void* const memory = std::malloc(bytes == 0 ? 1 : bytes);
    if (!memory)
        throw std::bad_alloc();
    inUse += ::malloc_usable_size(memory);
    peak = std::max(peak, inUse);
    return memory;
}

void Given(void* memory) {
    inUse -= ::malloc_usable_size(memory);
    std::free(memory);
}

} // namespace

void* operator new(std::size_t bytes) {
    return Taken(bytes);
}
void* operator new[](std::size_t bytes) {
    return Taken(bytes);
}
void operator delete(void* memory) noexcept {
    Given(memory);
}
void operator delete[](void* memory) noexcept {
    Given(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    Given(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    Given(memory);
}

namespace corvane::stats {
namespace {

/// Pairs as a model's users have them: correlated at about 0.8, with SDs.
struct Sample {
    explicit Sample(std::size_t n) : X(n), Y(n), SDX(n), SDY(n) {
        std::mt19937_64 random(n);
        std::normal_distribution<double> normal;
        std::uniform_real_distribution<double> uniform(0.5, 2);
        for (std::size_t i = 0; i < n; ++i) {
            X[i] = 20 + 3 * normal(random);
            Y[i] = 5 + 0.8 * X[i] + 2 * normal(random);
            SDX[i] = uniform(random);
            SDY[i] = uniform(random);
        }
        Pairs = PairStatistics(X, Y);
        Line = FitLine(X, Y);
        Lines = ResidualStatistics(Line.a, Line.b, X, Y, Pairs.VarX, Pairs.MeanX, Pairs.MeanY);
    }

    std::vector<double> X, Y, SDX, SDY;
    PairSummary Pairs;
    LineFit Line;
    Residuals Lines;
};

const Sample& Of(std::int64_t n) {
    static std::map<std::int64_t, Sample> samples;
    return samples.try_emplace(n, static_cast<std::size_t>(n)).first->second;
}

struct Routine {
    const char* name;
    double most; ///< The greatest multiple of the sort that is wanted.
    std::function<void(const Sample&, const std::stop_token&)> run;
};

template<class Result>
void Keep(Result&& result) {
    benchmark::DoNotOptimize(result);
}

const Routine routines[] = {
    {"std::sort", 0,
     [](const Sample& s, const std::stop_token&) {
         std::vector<double> copy = s.X;
         std::sort(copy.begin(), copy.end());
         Keep(copy.data());
     }},
    {"FitMedian", 20, [](const Sample& s, const std::stop_token& stop) { Keep(FitMedian(s.X, s.Y, stop)); }},
    {"ResidualStatistics", 5,
     [](const Sample& s, const std::stop_token& stop) {
         Keep(ResidualStatistics(s.Line.a, s.Line.b, s.X, s.Y, s.Pairs.VarX, s.Pairs.MeanX, s.Pairs.MeanY,
                                 stop));
     }},
    {"FitLineFamily", 1,
     [](const Sample& s, const std::stop_token& stop) { Keep(FitLineFamily(s.X, s.Y, stop)); }},
    {"FitLine", 1, [](const Sample& s, const std::stop_token& stop) { Keep(FitLine(s.X, s.Y, stop)); }},
    {"FitLineXYErrors", 0,
     [](const Sample& s, const std::stop_token& stop) {
         Keep(FitLineXYErrors(s.X, s.Y, s.SDX, s.SDY, 1e-30, stop));
     }},
    {"PairStatistics", 1,
     [](const Sample& s, const std::stop_token& stop) { Keep(PairStatistics(s.X, s.Y, stop)); }},
    {"MeanVariance", 1, [](const Sample& s, const std::stop_token& stop) { Keep(MeanVariance(s.X, stop)); }},
    {"PearsonCorrelation", 1,
     [](const Sample& s, const std::stop_token& stop) { Keep(PearsonCorrelation(s.X, s.Y, stop)); }},
    {"ResistantRSquared", 1,
     [](const Sample& s, const std::stop_token& stop) {
         Keep(ResistantRSquared(s.Y, s.Pairs.MeanY, s.Lines.Fitted, stop));
     }},
    {"DiverseStatistics", 1,
     [](const Sample& s, const std::stop_token& stop) {
         Keep(DiverseStatistics(s.X, s.Y, s.Pairs.MeanX, s.Pairs.MeanY, stop));
     }},
    {"FTestInterceptSlope", 1,
     [](const Sample& s, const std::stop_token& stop) {
         Keep(FTestInterceptSlope(s.X, s.Y, s.Line.a, s.Line.b, s.Pairs.MeanX, s.Pairs.MeanY, stop));
     }},
    {"KendallTau", 5, [](const Sample& s, const std::stop_token& stop) { Keep(KendallTau(s.X, s.Y, stop)); }},
    {"SpearmanRank", 5,
     [](const Sample& s, const std::stop_token& stop) { Keep(SpearmanRank(s.X, s.Y, false, false, stop)); }},
    {"RobustSn", 6, [](const Sample& s, const std::stop_token& stop) { Keep(RobustSn(s.X, stop)); }},
    {"RobustQn", 20, [](const Sample& s, const std::stop_token& stop) { Keep(RobustQn(s.X, stop)); }},
    {"GeneralizedConcordance", 40,
     [](const Sample& s, const std::stop_token& stop) { Keep(GeneralizedConcordance(s.X, s.Y, 1.5, stop)); }},
    {"KolmogorovSmirnov2", 4,
     [](const Sample& s, const std::stop_token& stop) { Keep(KolmogorovSmirnov2(s.X, s.Y, stop)); }},
    {"MannWhitney", 4,
     [](const Sample& s, const std::stop_token& stop) { Keep(MannWhitney(s.X, s.Y, stop)); }},
    {"ShapiroWilk", 4, [](const Sample& s, const std::stop_token& stop) { Keep(ShapiroWilk(s.X, stop)); }},
    {"EDFNormalityStatistics", 4,
     [](const Sample& s, const std::stop_token& stop) { Keep(EDFNormalityStatistics(s.X, 2, false, stop)); }},
    {"MomentStatistics", 1,
     [](const Sample& s, const std::stop_token& stop) { Keep(MomentStatistics(s.X, stop)); }},
    {"TTestUnequalVariance", 1,
     [](const Sample& s, const std::stop_token& stop) { Keep(TTestUnequalVariance(s.Y, s.X, stop)); }},
    {"TTestPairedDifference", 1,
     [](const Sample& s, const std::stop_token& stop) { Keep(TTestPairedDifference(s.Y, s.X, stop)); }},
    {"FTestVariance", 1,
     [](const Sample& s, const std::stop_token& stop) { Keep(FTestVariance(s.Y, s.X, stop)); }},
    {"DistanceMeasures", 1,
     [](const Sample& s, const std::stop_token& stop) { Keep(DistanceMeasures(s.X, s.Y, 3, stop)); }},
    {"DeviationIntervals", 0,
     [](const Sample& s, const std::stop_token& stop) {
         Keep(DeviationIntervals(s.Line.a, s.Line.b, s.X, s.Y, 95, stop));
     }},
};

constexpr std::int64_t small = 100'000, large = 1'000'000;

/// Runs a routine and notes the greatest memory that it held at one time.
void Measure(benchmark::State& state, const Routine& routine) {
    const Sample& sample = Of(state.range(0));
    std::size_t most = 0;
    for (auto _ : state) {
        const std::size_t before = inUse;
        peak = inUse;
        routine.run(sample, {});
        most = std::max(most, peak - before);
    }
    state.counters["bytes"] = static_cast<double>(most) / static_cast<double>(state.range(0));
}

/// Prints a line a routine when both of its sizes are known.
class Table : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override {
        std::printf("%-24s %10s %10s %9s %7s %8s %12s\n", "", "10^5, ms", "10^6, ms", "x sort", "wanted",
                    "growth", "bytes a pair");
        return true;
    }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const std::string name = run.run_name.function_name;
            const double milliseconds = run.GetAdjustedCPUTime();
            if (run.run_name.args == std::to_string(small)) {
                smallTime = milliseconds;
                continue;
            }
            if (name == "std::sort")
                sortTime = milliseconds;
            const auto routine = std::ranges::find(routines, name, &Routine::name);
            std::printf("%-24s %10.3f %10.2f %9.2f %7.0f %8.1f %12.0f\n", name.c_str(), smallTime,
                        milliseconds, milliseconds / sortTime, routine->most, milliseconds / smallTime,
                        static_cast<double>(run.counters.at("bytes")));
        }
    }

private:
    double smallTime = 0, sortTime = 1;
};

/// Milliseconds from a stop, asked when the routine has run for `after`, to its end.
double StopTime(const Routine& routine, std::chrono::duration<double> after) {
    using Clock = std::chrono::steady_clock;
    std::stop_source source;
    Clock::time_point asked;
    std::thread asking([&] {
        std::this_thread::sleep_for(after);
        asked = Clock::now();
        source.request_stop();
    });
    try {
        routine.run(Of(large), source.get_token());
    } catch (const Cancelled&) {
    }
    const Clock::time_point end = Clock::now();
    asking.join();
    return std::max(0.0, std::chrono::duration<double, std::milli>(end - asked).count());
}

void PrintStopTimes() {
    std::printf("\n%-24s %20s, ms\n", "10^6", "stop to end, longest");
    for (const Routine& routine : routines) {
        if (routine.name == std::string("std::sort"))
            continue;
        const auto start = std::chrono::steady_clock::now();
        routine.run(Of(large), {});
        const std::chrono::duration<double> whole = std::chrono::steady_clock::now() - start;
        double most = 0;
        for (int stop = 1; stop < 10; ++stop)
            most = std::max(most, StopTime(routine, 0.1 * stop * whole));
        std::printf("%-24s %20.1f\n", routine.name, most);
    }
}

} // namespace
} // namespace corvane::stats

int main(int argumentCount, char** arguments) {
    using namespace corvane::stats;
    for (const Routine& routine : routines)
        benchmark::RegisterBenchmark(routine.name, Measure, routine)
            ->Arg(small)
            ->Arg(large)
            ->Unit(benchmark::kMillisecond)
            ->MinTime(0.3);
    benchmark::Initialize(&argumentCount, arguments);
    Table table;
    benchmark::RunSpecifiedBenchmarks(&table);
    PrintStopTimes();
}
