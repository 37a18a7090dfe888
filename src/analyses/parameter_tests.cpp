#include "analyses/parameter_tests.h"

#include "stats/distributions.h"
#include "stats/intercept_slope_test.h"

#include <string>

namespace corvane {
namespace {

/// One t-test of a coefficient: t = (estimate - null value) / SD with N - 2 degrees of freedom.
void WriteTTest(RunState& run, ReportSection& section, const char* label, const std::string& name,
                double difference, double sd) {
    run.Statement([&] {
        const double t = TStatistic(difference, sd);
        section.Line(label, F(10, 5, t).Named("T_" + name), " (",
                     FP(7, 5, stats::TailT(t, run.N() - 2)).Named("P_" + name), ")");
    });
}

} // namespace

void WriteParameterTests(RunState& run) {
    const auto test = stats::FTestInterceptSlope(run.arrays.X, run.arrays.Y, run.a, run.b, run.pairs.MeanX,
                                                 run.pairs.MeanY);
    ReportSection& section =
        run.report.BeginSection("parameter_tests", "PARAMETER PROBABILITIES (Neter et al., 1996)");
    run.Statement([&] {
        section.Line("H0: r = 0            T-value (P-value): ", F(10, 5, run.pearson.T).Named("T_r"), " (",
                     FP(7, 5, run.pearson.P).Named("P_r"), ")");
    });
    if (run.SDa > 0)
        WriteTTest(run, section, "H0: a = 0            T-value (P-value): ", "a", run.a, run.SDa);
    if (run.SDb > 0) {
        WriteTTest(run, section, "H0: b = 0            T-value (P-value): ", "b", run.b, run.SDb);
        WriteTTest(run, section, "H0: b = 1            T-value (P-value): ", "b1", run.b - 1, run.SDb);
    }
    run.Statement([&] {
        section.Line("H0: a = 0 & b = 1    F-value (P-value): ", F(10, 5, test.F1).Named("F1"), " (",
                     FP(7, 5, test.P1).Named("P1"), ") (Dent and Blackie, 1979)");
    });
    run.Statement([&] {
        section.Line("H0: a = 0 & b = 1    F-value (P-value): ", F(10, 5, test.F2).Named("F2"), " (",
                     FP(7, 5, test.P2).Named("P2"), ") (Mayer et al., 1994)");
    });
}

} // namespace corvane
