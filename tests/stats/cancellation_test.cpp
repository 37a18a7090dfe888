#include <algorithm>
#include <atomic>
#include <cmath>
#include <ctime>
#include <functional>
#include <gtest/gtest.h>
#include <pthread.h>
#include <random>
#include <thread>

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
#include "stats/order.h"
#include "stats/pair_statistics.h"
#include "stats/ranks.h"
#include "stats/residual_statistics.h"
#include "stats/robust_scale.h"
#include "stats/sorting.h"
#include "stats/sums.h"
#include "stats/two_sample_ranks.h"
#include "stats/two_sample_tests.h"

namespace corvane::stats::test {

namespace {

using Sample = std::vector<double>;

Sample Normal(std::size_t n, unsigned seed) {
    Sample sample(n);
    std::mt19937_64 random(seed);
    std::normal_distribution<double> normal(20.0, 3.0);
    for (double& value : sample)
        value = normal(random);
    return sample;
}

TEST(Cancellation, LongSortsAndSelectionsOrderAnySample) {
    const Sample normal = Normal(300'000, 1);
    Sample tied = normal, sorted = normal;
    for (double& value : tied)
        value = std::round(value);
    std::ranges::sort(sorted);
    const Sample reversed(sorted.rbegin(), sorted.rend());
    for (const Sample& sample : {normal, tied, sorted, reversed, Sample(300'000, 7.0)}) {
        Sample expected = sample, actual = sample;
        std::ranges::sort(expected);
        Sort(actual, {});
        EXPECT_EQ(actual, expected);
        for (const std::size_t rank : std::vector<std::size_t>{0, 1, 70'000, 150'000, 299'999}) {
            actual = sample;
            Select(actual, rank, {});
            const auto middle = actual.begin() + static_cast<std::ptrdiff_t>(rank);
            EXPECT_EQ(*middle, expected[rank]);
            EXPECT_LE(*std::max_element(actual.begin(), middle + 1), *middle);
            EXPECT_GE(*std::min_element(middle, actual.end()), *middle);
        }
    }
}

/// How many times `count` is called by work after a stop at its `at`-th call; 0 where it ends before.
template<class Work>
std::size_t CallsAfterStop(std::size_t at, Work work) {
    std::stop_source source;
    std::size_t calls = 0;
    const auto count = [&] {
        if (++calls == at)
            source.request_stop();
    };
    try {
        work(count, source.get_token());
    } catch (const Cancelled&) {
        return calls - at;
    }
    return calls < at ? 0 : calls;
}

TEST(Cancellation, LoopsAndSortsLookEvery65536Elements) {
    const Sample normal = Normal(1'000'000, 2);
    for (const std::size_t at : std::vector<std::size_t>{1, 65'537, 200'000, 900'000}) {
        EXPECT_LE(CallsAfterStop(at,
                                 [&](auto count, const std::stop_token& stop) {
                                     for (double value : Elements(normal, stop)) {
                                         count();
                                         ASSERT_EQ(value, value);
                                     }
                                 }),
                  ElementsBetweenLooks);
        EXPECT_LE(CallsAfterStop(at,
                                 [&](auto count, const std::stop_token& stop) {
                                     Looks looks(stop);
                                     for (std::size_t i = 0; i < normal.size(); i += 10)
                                         count(), looks.Handled(10);
                                 }),
                  ElementsBetweenLooks / 10);
    }
    // What the standard library takes to sort that many, in comparisons.
    std::size_t most = 0;
    Sample part(normal.begin(), normal.begin() + ElementsBetweenLooks);
    std::ranges::sort(part, [&](double a, double b) { return ++most, a < b; });
    for (const std::size_t at :
         std::vector<std::size_t>{1, 300'000, 2'000'000, 5'000'000, 10'000'000, 15'000'000})
        EXPECT_LE(CallsAfterStop(at,
                                 [&](auto count, const std::stop_token& stop) {
                                     Sample sample = normal;
                                     Sort(std::span(sample), stop,
                                          [&](double a, double b) { return count(), a < b; });
                                 }),
                  2 * most);
}

struct Data {
    Sample X, Y, SD;
    explicit Data(std::size_t n) : X(Normal(n, 3)), Y(Normal(n, 4)), SD(n, 0.5) {
        for (std::size_t i = 0; i < n; ++i)
            Y[i] += 0.8 * X[i];
    }
};

using Run = std::function<void(const Data&, const std::stop_token&)>;
const std::pair<const char*, Run> routines[] = {
    {"ArrayMax", [](const Data& d, auto& stop) { ArrayMax(d.X, stop); }},
    {"ArrayMin", [](const Data& d, auto& stop) { ArrayMin(d.X, stop); }},
    {"DeviationIntervals", [](const Data& d, auto& stop) { DeviationIntervals(20, 0.8, d.X, d.Y, 95, stop); }},
    {"DistanceMeasures", [](const Data& d, auto& stop) { DistanceMeasures(d.X, d.Y, 3, stop); }},
    {"DiverseStatistics", [](const Data& d, auto& stop) { DiverseStatistics(d.X, d.Y, 20, 36, stop); }},
    {"EDF", [](const Data& d, auto& stop) { EDFNormalityStatistics(d.X, 2, false, stop); }},
    {"FitLine", [](const Data& d, auto& stop) { FitLine(d.X, d.Y, stop); }},
    {"FitLineFamily", [](const Data& d, auto& stop) { FitLineFamily(d.X, d.Y, stop); }},
    {"FitLineXYErrors", [](const Data& d, auto& stop) { FitLineXYErrors(d.X, d.Y, d.SD, d.SD, 1e-30, stop); }},
    {"FitMedian", [](const Data& d, auto& stop) { FitMedian(d.X, d.Y, stop); }},
    {"FTestInterceptSlope", [](const Data& d, auto& stop) { FTestInterceptSlope(d.X, d.Y, 20, 0.8, 20, 36, stop); }},
    {"FTestVariance", [](const Data& d, auto& stop) { FTestVariance(d.Y, d.X, stop); }},
    {"GeneralizedConcordance", [](const Data& d, auto& stop) { GeneralizedConcordance(d.X, d.Y, 1.5, stop); }},
    {"KendallTau", [](const Data& d, auto& stop) { KendallTau(d.X, d.Y, stop); }},
    {"KolmogorovSmirnov2", [](const Data& d, auto& stop) { KolmogorovSmirnov2(d.X, d.Y, stop); }},
    {"MannWhitney", [](const Data& d, auto& stop) { MannWhitney(d.X, d.Y, stop); }},
    {"MeanSquaredError", [](const Data& d, auto& stop) { MeanSquaredError(d.X, stop); }},
    {"MeanVariance", [](const Data& d, auto& stop) { MeanVariance(d.X, stop); }},
    {"MomentStatistics", [](const Data& d, auto& stop) { MomentStatistics(d.X, stop); }},
    {"PairStatistics", [](const Data& d, auto& stop) { PairStatistics(d.X, d.Y, stop); }},
    {"PearsonCorrelation", [](const Data& d, auto& stop) { PearsonCorrelation(d.X, d.Y, stop); }},
    {"ResidualStatistics", [](const Data& d, auto& stop) { ResidualStatistics(20, 0.8, d.X, d.Y, 9, 20, 36, stop); }},
    {"ResistantRSquared", [](const Data& d, auto& stop) { ResistantRSquared(d.Y, 36, d.X, stop); }},
    {"RobustQn", [](const Data& d, auto& stop) { RobustQn(d.X, stop); }},
    {"RobustSn", [](const Data& d, auto& stop) { RobustSn(d.X, stop); }},
    {"ShapiroWilk", [](const Data& d, auto& stop) { ShapiroWilk(d.X, stop); }},
    {"SortRange", [](const Data& d, auto& stop) { auto x = d.X; SortRange(x, 1, x.size(), 0, 0, stop); }},
    {"SpearmanRank", [](const Data& d, auto& stop) { SpearmanRank(d.X, d.Y, false, false, stop); }},
    {"TTestEqualVariance", [](const Data& d, auto& stop) { TTestEqualVariance(d.Y, d.X, stop); }},
    {"TTestPairedCovariance", [](const Data& d, auto& stop) { TTestPairedCovariance(d.Y, d.X, stop); }},
    {"TTestPairedDifference", [](const Data& d, auto& stop) { TTestPairedDifference(d.Y, d.X, stop); }},
    {"TTestUnequalVariance", [](const Data& d, auto& stop) { TTestUnequalVariance(d.Y, d.X, stop); }}};

double ProcessorSeconds(clockid_t clock = CLOCK_THREAD_CPUTIME_ID) {
    std::timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// The processor time that work takes.
template<class Work>
double SecondsOf(Work work) {
    const double start = ProcessorSeconds();
    work();
    return ProcessorSeconds() - start;
}

/// The processor time that a routine works on after a stop that is asked when it has had `at` of it; 0 where
/// it ends before.
double SecondsAfterStop(const Run& run, const Data& data, double at) {
    clockid_t clock{};
    pthread_getcpuclockid(pthread_self(), &clock);
    const double start = ProcessorSeconds();
    std::stop_source source;
    std::atomic<double> asked = INFINITY;
    std::jthread asking([&](const std::stop_token& ended) {
        double now = 0.0;
        while (!ended.stop_requested() && (now = ProcessorSeconds(clock)) < start + at)
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        asked = now;
        source.request_stop();
    });
    try {
        run(data, source.get_token());
    } catch (const Cancelled&) {
        return ProcessorSeconds() - asked;
    }
    return std::max(0.0, ProcessorSeconds() - asked);
}

// Elements are counted by the processor time that the standard library takes to sort as many: what the
// routines do to an element before they look costs no more. The whole sort of a sample that nobody could stop
// would cost ten times.
TEST(Cancellation, EveryLongRoutineStopsSoon) {
    const Data few(std::size_t{1} << 16), data(std::size_t{1} << 19);
    double unit = INFINITY;
    for (int round = 0; round < 5; ++round) {
        Sample sample = few.X;
        unit = std::min(unit, SecondsOf([&] { std::ranges::sort(sample); }));
    }
    std::stop_source stopped;
    stopped.request_stop();
    for (const auto& [name, run] : routines) {
        EXPECT_THROW(run(few, stopped.get_token()), Cancelled) << name;
        const double whole = 8.0 * SecondsOf([&, &each = run] { each(few, {}); });
        for (double share : {0.3, 0.7}) {
            double units = INFINITY; // the least of three: the machine's pauses are not the routine's
            for (int round = 0; round < 3 && units > 3.0; ++round)
                units = std::min(units, SecondsAfterStop(run, data, share * whole) / unit);
            EXPECT_LE(units, 3.0) << name << " at " << share;
        }
    }
}

} // namespace
} // namespace corvane::stats::test
