#include "analyses/index_analysis.h"

#include "report/transition.h"

#include "stats/distributions.h"
#include "stats/moment_statistics.h"

#include <string>
#include <vector>

namespace corvane {
namespace {

struct Ratios {
    double Mean = 0, SD = 0, PZero = 0, POne = 0;
};

/// What is computed before a failure stays: ratios that are all the same have Mean and SD, and P of 0.
void RatioAnalysis(const std::vector<double>& X, const std::vector<double>& Y, Ratios& result) {
    std::vector<double> ratio(X.size());
    for (std::size_t i = 0; i < ratio.size(); ++i)
        if (Y[i] != 0)
            ratio[i] = Divide(X[i], Y[i]);
    const auto moments = stats::MomentStatistics(ratio);
    result.Mean = moments.Mean;
    result.SD = moments.SD;
    // N - 2 degrees of freedom although these are tests of one sample: a convention of this analysis.
    const double N = static_cast<double>(ratio.size()), error = Divide(moments.SD, SquareRoot(N));
    result.PZero = stats::TailT(Divide(moments.Mean, error), N - 2);
    result.POne = stats::TailT(Divide(moments.Mean - 1, error), N - 2);
}

} // namespace

void WriteIndexAnalysis(RunState& run) {
    ReportSection& section = run.report.BeginSection({"index_analysis", "INDEX ANALYSIS"});
    Ratios ratios;
    run.Statement([&] { RatioAnalysis(run.arrays.X, run.arrays.Y, ratios); });
    run.Statement([&] {
        Line(section,
             "Ave(X)/Ave(Y): ", F(10, 5, Divide(run.pairs.MeanX, run.pairs.MeanY)).Named("RatioOfMeans"));
    });
    run.Statement([&] { Line(section, "Ave(X/Y)     : ", F(10, 5, ratios.Mean).Named("Mean")); });
    run.Statement([&] { Line(section, "SD(X/Y)      : ", F(10, 5, ratios.SD).Named("SD")); });
    // The quantile of the lower tail is negative, so L is the lower limit; the tail outside each limit has
    // the probability of the label. N degrees of freedom, unlike the tests.
    const auto interval = [&](const char* label, const std::string& name, double P) {
        run.Statement([&] {
            const double t = stats::InverseT(P, run.N()), half = t * ratios.SD / SquareRoot(run.N());
            Line(section, label, F(10, 5, ratios.Mean + half).Named(name + "Lower"), ",",
                 F(10, 5, ratios.Mean - half).Named(name + "Upper"), "]");
        });
    };
    interval("CI (P=0.05)  : [", "CI05", 0.05);
    interval("CI (P=0.10)  : [", "CI10", 0.10);
    // Not marked as probabilities: these two print as zero.
    run.Statement([&] { Line(section, "P(Ratio = 0) : ", F(10, 5, ratios.PZero).Named("PZero")); });
    run.Statement([&] { Line(section, "P(Ratio = 1) : ", F(10, 5, ratios.POne).Named("POne")); });
}

} // namespace corvane
