#include "analyses/residue_regression.h"

#include "report/transition.h"

#include "stats/distributions.h"

#include <string>

namespace corvane {

void WriteResidueRegression(const RunState& run, Report& report) {
    const std::vector<double>&fitted = run.residuals.Fitted, &residue = run.residuals.Residue;
    ReportSection& section = report.BeginSection({"residue_regression", "RESIDUE REGRESSION ANALYSIS"});
    const stats::LineFit line = stats::FitLine(fitted, residue);
    const double RSquared = stats::PearsonCorrelation(fitted, residue).RSquared;

    Line(section, "Regression of: Residue = a + b×'Regression-Predicted'");
    Line(section, "Estimate a ± SD : ", F(10, 5, line.a).Named("a"), " ± ", F(10, 5, line.SDa).Named("SDa"));
    Line(section, "Estimate b ± SD : ", F(10, 5, line.b).Named("b"), " ± ", F(10, 5, line.SDb).Named("SDb"));
    Line(section, "r²              : ", F(10, 5, RSquared).Named("RSquared"));
    const auto test = [&](const std::string& name, double estimate, double SD) {
        if (!(SD > 0))
            return;
        section.Statement([&] {
            const double T = TStatistic(estimate, SD);
            Line(section,
                 "H0: " + name + " = 0            T-value (P-value): ", F(10, 5, T).Named("T_" + name), " (",
                 FP(7, 5, stats::TailT(T, run.N() - 2)).Named("P_" + name), ")");
        });
    };
    test("a", line.a, line.SDa);
    test("b", line.b, line.SDb);
}

} // namespace corvane
