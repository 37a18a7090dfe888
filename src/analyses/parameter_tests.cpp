#include "analyses/parameter_tests.h"

#include "stats/distributions.h"
#include "stats/intercept_slope_test.h"

#include <string>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"T_r", "test.correlation.t", "H0: r = 0            T-value (P-value): "},
    {"P_r", "test.correlation.p", " (", 7, 5, Look::Probability},
    {"T_a", "test.intercept.t", "H0: a = 0            T-value (P-value): "},
    {"P_a", "test.intercept.p", " (", 7, 5, Look::Probability},
    {"T_b", "test.slope_zero.t", "H0: b = 0            T-value (P-value): "},
    {"P_b", "test.slope_zero.p", " (", 7, 5, Look::Probability},
    {"T_b1", "test.slope_one.t", "H0: b = 1            T-value (P-value): "},
    {"P_b1", "test.slope_one.p", " (", 7, 5, Look::Probability},
    {"F1", "test.identity.dent_blackie.f", "H0: a = 0 & b = 1    F-value (P-value): "},
    {"P1", "test.identity.dent_blackie.p", " (", 7, 5, Look::Probability},
    {"F2", "test.identity.mayer.f", "H0: a = 0 & b = 1    F-value (P-value): "},
    {"P2", "test.identity.mayer.p", " (", 7, 5, Look::Probability},
};

/// One t-test of a coefficient: t = (estimate - null value) / SD with N - 2 degrees of freedom.
void WriteTTest(RunState& run, ReportSection& section, const std::string& name, double difference,
                double sd) {
    run.Statement([&] {
        const double t = TStatistic(difference, sd);
        section.Row({{"T_" + name, t}, {"P_" + name, stats::TailT(t, run.N() - 2)}, ")"});
    });
}

void Write(RunState& run) {
    const auto test = stats::FTestInterceptSlope(run.arrays.X, run.arrays.Y, run.a, run.b, run.pairs.MeanX,
                                                 run.pairs.MeanY, run.stop);
    ReportSection& section = run.report.BeginSection(ParameterTestsSection.frame);
    run.Statement([&] { section.Row({{"T_r", run.pearson.T}, {"P_r", run.pearson.P}, ")"}); });
    if (run.SDa > 0)
        WriteTTest(run, section, "a", run.a, run.SDa);
    if (run.SDb > 0) {
        WriteTTest(run, section, "b", run.b, run.SDb);
        WriteTTest(run, section, "b1", run.b - 1, run.SDb);
    }
    run.Statement([&] { section.Row({{"F1", test.F1}, {"P1", test.P1}, ") (Dent and Blackie, 1979)"}); });
    run.Statement([&] { section.Row({{"F2", test.F2}, {"P2", test.P2}, ") (Mayer et al., 1994)"}); });
}

} // namespace

const SectionDefinition ParameterTestsSection{
    .frame = {"parameter_tests", "PARAMETER PROBABILITIES (Neter et al., 1996)", {places}},
    .gate = {&AnalysisOptions::PARAMETER_TEST},
    .progress = "Parameters...",
    .meaning = "Tests of the line's intercept and slope against those of a model without bias.",
    .papers = "neter1996; dent1979; mayer1994",
    .write = Write,
};

} // namespace corvane
