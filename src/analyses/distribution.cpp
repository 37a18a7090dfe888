#include "analyses/distribution.h"

#include "analyses/normality_test.h"
#include "stats/normality.h"

#include <string>
#include <vector>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"W_*", "normality.shapiro_wilk.w"},
    {"P_*", "normality.shapiro_wilk.p", " (", 10, 5, Look::Probability},
};

void WriteShapiroWilk(RunState& run, ReportSection& section, const std::string& name,
                      const stats::ShapiroWilkResult& test) {
    run.Statement([&] {
        section.Row({"SW's W-value for normality for " + name + " (P-value < W) : ",
                     {"W_*", test.W, name},
                     {"P_*", test.P, name},
                     ")"});
    });
}

void Write(RunState& run) {
    const std::vector<double>&X = run.SortedX(), &Y = run.SortedY();
    ReportSection& section = run.report.BeginSection(DistributionSection.frame);
    if (run.Comments()) {
        section.Note("!! .SW is the Shapiro-Wilk's W-value (0 to 1) that measures normal distribution in "
                     "which small values lead !!");
        section.Note("!!  to the rejection of the null hypothesis of normality !!");
    }
    WriteShapiroWilk(run, section, "X", run.NormalityX());
    WriteShapiroWilk(run, section, "Y", run.NormalityY());
    section.Blank();
    section.Heading("Empirical Distribution Function for Normality", '=');
    section.Text("Predicted values (X):");
    run.Statement([&] { NormalityTest(section, X, "X.", run.stop); });
    section.Blank();
    section.Blank();
    section.Text("Observed values (Y):");
    run.Statement([&] { NormalityTest(section, Y, "Y.", run.stop); });
}

} // namespace

const SectionDefinition DistributionSection{
    .frame = {"distribution", "DISTRIBUTION ANALYSES (Shapiro and Wilk, 1965)", {places, NormalityPlaces}},
    .gate = {&AnalysisOptions::DISTRIBUTION_ANALYSIS},
    .progress = "Distribution...",
    .meaning = "Tests of whether the predicted and the observed values come from normal distributions.",
    .papers = "shapiro1965; royston1995; davis1989; dagostino1986",
    .write = Write,
};

} // namespace corvane
