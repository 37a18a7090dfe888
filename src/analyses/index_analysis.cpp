#include "analyses/index_analysis.h"

#include "stats/ratio_statistics.h"

#include <optional>
#include <string>

namespace corvane {
namespace {

/// The probabilities have no look of their own: these two print as zero.
constexpr Place places[] = {
    {"RatioOfMeans", "ratio.of_means", "Ave(X)/Ave(Y): "},
    {"Mean", "ratio.mean", "Ave(X/Y)     : "},
    {"SD", "ratio.sd", "SD(X/Y)      : "},
    {"CI05Lower", "ratio.interval_05", "CI (P=0.05)  : ["},
    {"CI05Upper", "ratio.interval_05", ","},
    {"CI10Lower", "ratio.interval_10", "CI (P=0.10)  : ["},
    {"CI10Upper", "ratio.interval_10", ","},
    {"PZero", "ratio.p_zero", "P(Ratio = 0) : "},
    {"POne", "ratio.p_one", "P(Ratio = 1) : "},
};

template<class Value>
Value OrFail(const std::optional<Value>& value, const char* reason) {
    if (!value)
        throw RunFailure(reason);
    return *value;
}

void Write(RunState& run) {
    ReportSection& section = run.report.BeginSection(IndexAnalysisSection.frame);
    const auto row = [&](auto&& write) { run.Statement(write); };
    // What is computed before a failure stays: ratios that are all the same have Mean and SD, and P of 0.
    stats::RatioStatistics ratios{.N = run.arrays.Count()};
    double PZero = 0, POne = 0;
    run.Statement([&] {
        ratios = OrFail(stats::RatioMoments(run.arrays.X, run.arrays.Y, run.stop), "overflow in a division");
        PZero = OrFail(stats::RatioTest(ratios, 0), "division by zero");
        POne = OrFail(stats::RatioTest(ratios, 1), "division by zero");
    });
    row([&] { section.Row({{"RatioOfMeans", Divide(run.pairs.MeanX, run.pairs.MeanY)}}); });
    row([&] { section.Row({{"Mean", ratios.Mean}}); });
    row([&] { section.Row({{"SD", ratios.SD}}); });
    const auto interval = [&](const std::string& name, double P) {
        row([&] {
            const stats::RatioLimits limits = stats::RatioInterval(ratios, P);
            section.Row({{name + "Lower", limits.Lower}, {name + "Upper", limits.Upper}, "]"});
        });
    };
    interval("CI05", 0.05);
    interval("CI10", 0.10);
    row([&] { section.Row({{"PZero", PZero}}); });
    row([&] { section.Row({{"POne", POne}}); });
}

} // namespace

const SectionDefinition IndexAnalysisSection{
    .frame = {"index_analysis", "INDEX ANALYSIS", {places}},
    .gate = {&AnalysisOptions::INDEX_ANALYSIS},
    .progress = "Index...",
    .meaning = "The ratio of predicted to observed, which is 1 for a model without bias.",
    .write = Write,
};

} // namespace corvane
