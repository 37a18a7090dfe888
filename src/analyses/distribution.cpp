#include "analyses/distribution.h"

#include "report/transition.h"

#include "analyses/normality_test.h"
#include "stats/normality.h"

#include <string>
#include <vector>

namespace corvane {
namespace {

void WriteShapiroWilk(RunState& run, ReportSection& section, const std::string& name,
                      const std::vector<double>& sample) {
    const stats::ShapiroWilkResult test = stats::ShapiroWilk(sample);
    run.Statement([&] {
        Line(section, "SW's W-value for normality for " + name + " (P-value < W) : ",
             F(10, 5, test.W).Named("W_" + name), " (", FP(10, 5, test.P).Named("P_" + name), ")");
    });
}

} // namespace

void WriteDistribution(RunState& run) {
    const std::vector<double>&X = run.SortedX(), &Y = run.SortedY();
    ReportSection& section =
        run.report.BeginSection({"distribution", "DISTRIBUTION ANALYSES (Shapiro and Wilk, 1965)"});
    if (run.Comments()) {
        Line(section, "!! .SW is the Shapiro-Wilk's W-value (0 to 1) that measures normal distribution in "
                      "which small values lead !!");
        Line(section, "!!  to the rejection of the null hypothesis of normality !!");
    }
    WriteShapiroWilk(run, section, "X", X);
    WriteShapiroWilk(run, section, "Y", Y);
    section.Blank();
    Line(section, "Empirical Distribution Function for Normality");
    Line(section, std::string(45, '='));
    Line(section, "Predicted values (X):");
    run.Statement([&] { NormalityTest(section, X, "X."); });
    section.Blank();
    section.Blank();
    Line(section, "Observed values (Y):");
    run.Statement([&] { NormalityTest(section, Y, "Y."); });
}

} // namespace corvane
