#include "analyses/line_family_table.h"

#include "stats/distributions.h"

#include <array>
#include <string>
#include <string_view>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"OLS_Y_on_X.a", "lines.vertical.intercept", "OLS (Y/X)/Vertical LS    : "},
    {"OLS_X_on_Y.a", "lines.horizontal.intercept", "OLS (X/Y)/Horizontal LS  : "},
    {"Bisector.a", "lines.bisector.intercept", "OLS Bisector             : "},
    {"Orthogonal.a", "lines.orthogonal.intercept", "Orthogonal/Perpendicular : "},
    {"ReducedMajorAxis.a", "lines.reduced_major_axis.intercept", "Reduced Major Axis       : "},
    {"MeanOLS.a", "lines.mean_ols.intercept", "Mean OLS (Y/X and X/Y)   : "},
    {"OLS_Y_on_X.b", "lines.vertical.slope", ")     "},
    {"OLS_X_on_Y.b", "lines.horizontal.slope", ")     "},
    {"Bisector.b", "lines.bisector.slope", ")     "},
    {"Orthogonal.b", "lines.orthogonal.slope", ")     "},
    {"ReducedMajorAxis.b", "lines.reduced_major_axis.slope", ")     "},
    {"MeanOLS.b", "lines.mean_ols.slope", ")     "},
    {"*.SDa", "lines.intercept.sd", " ± "},
    {"*.Pa", "lines.intercept.p", " (", 7, 5, Look::Probability},
    {"*.SDb", "lines.slope.sd", " ± "},
    {"*.Pb", "lines.slope.p", " (", 7, 5, Look::Probability},
};

/// In the order of stats::LineFamily.
constexpr std::array<std::string_view, 6> lines{
    "OLS_Y_on_X", "OLS_X_on_Y", "Bisector", "Orthogonal", "ReducedMajorAxis", "MeanOLS",
};

constexpr std::size_t ruleLength = 98;

void Write(RunState& run) {
    ReportSection& section = run.report.BeginSection(LineFamilySection.frame);
    section.BeginTable({"a", "SD a", "P(a = 0)", "b", "SD b", "P(b = 1)"});
    section.TableHead(
        "Regression type               Intercept: a ± SD [P(H0: a = 0)]      Slope: b ± SD [P(H0: b = 1)]");
    section.Rule(ruleLength);
    const double df = run.N() - 2;
    const stats::LineFamily& family = run.family;
    for (std::size_t i = 0; i < lines.size(); ++i)
        run.Statement([&] {
            const std::string line(lines[i]);
            const double Pa = stats::TailT(TStatistic(family.A[i], family.SDA[i]), df);
            const double Pb = stats::TailT(TStatistic(family.B[i] - 1, family.SDB[i]), df);
            section.TableRow({{line + ".a", family.A[i]},
                              {"*.SDa", family.SDA[i], line},
                              {"*.Pa", Pa, line},
                              {line + ".b", family.B[i]},
                              {"*.SDb", family.SDB[i], line},
                              {"*.Pb", Pb, line},
                              ")"});
        });
    section.Rule(ruleLength);
}

} // namespace

const SectionDefinition LineFamilySection{
    .frame = {"line_family",
              "ORDINARY (OLS) AND SYMMETRICAL LEAST-SQUARE REGRESSIONS (Isobe et al., 1990)",
              {places}},
    .gate = {&AnalysisOptions::OLS_SLS},
    .progress = "OLS and SLS...",
    .meaning = "Six least-squares lines that differ in what they take for the error: of the observed values, "
               "of the model's, or of both.",
    .papers = "isobe1990; feigelson1992",
    .write = Write,
};

} // namespace corvane
