#include "analyses/residue_regression.h"

#include "stats/distributions.h"

#include <string>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"a", "residual_line.intercept", "Estimate a ± SD : "},
    {"SDa", "regression.intercept.sd", " ± "},
    {"b", "residual_line.slope", "Estimate b ± SD : "},
    {"SDb", "regression.slope.sd", " ± "},
    {"RSquared", "residual_line.r_squared", "r²              : "},
    {"T_a", "test.intercept.t", "H0: a = 0            T-value (P-value): "},
    {"P_a", "test.intercept.p", " (", 7, 5, Look::Probability},
    {"T_b", "test.slope_zero.t", "H0: b = 0            T-value (P-value): "},
    {"P_b", "test.slope_zero.p", " (", 7, 5, Look::Probability},
};

/// The report that the residual analysis has begun.
Report& ResidualReport(RunState& run) {
    return IsSet(run.Options().RESIDUE_WINDOW) ? run.windows.back().content : run.report;
}

void Write(RunState& run) {
    const std::vector<double>&fitted = run.residuals.Fitted, &residue = run.residuals.Residue;
    ReportSection& section = ResidualReport(run).BeginSection(ResidueRegressionSection.frame);
    const stats::LineFit line = stats::FitLine(fitted, residue, run.stop);
    const double RSquared = stats::PearsonCorrelation(fitted, residue, run.stop).RSquared;

    section.Text("Regression of: Residue = a + b×'Regression-Predicted'");
    section.Row({{"a", line.a}, {"SDa", line.SDa}});
    section.Row({{"b", line.b}, {"SDb", line.SDb}});
    section.Row({{"RSquared", RSquared}});
    const auto test = [&](const std::string& name, double estimate, double SD) {
        if (!(SD > 0))
            return;
        run.Statement([&] {
            const double T = TStatistic(estimate, SD);
            section.Row({{"T_" + name, T}, {"P_" + name, stats::TailT(T, run.N() - 2)}, ")"});
        });
    };
    test("a", line.a, line.SDa);
    test("b", line.b, line.SDb);
}

} // namespace

const SectionDefinition ResidueRegressionSection{
    .frame = {"residue_regression", "RESIDUE REGRESSION ANALYSIS", {places}},
    .gate = {&AnalysisOptions::RESIDUAL_REGRESSION_PLOT, &AnalysisOptions::RESIDUAL_ANALYSIS},
    .progress = "Residue regression...",
    .meaning = "Whether the residuals still depend on the fitted values.",
    .papers = "neter1996",
    .write = Write,
    .nested = true,
};

} // namespace corvane
