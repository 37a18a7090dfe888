#include "analyses/line_family_table.h"

#include "report/transition.h"

#include "stats/distributions.h"

#include <array>
#include <string>

namespace corvane {
namespace {

struct FamilyRow {
    const char* label;
    const char* name;
};

constexpr std::array<FamilyRow, 6> rows{{
    {"OLS (Y/X)/Vertical LS    : ", "OLS_Y_on_X"},
    {"OLS (X/Y)/Horizontal LS  : ", "OLS_X_on_Y"},
    {"OLS Bisector             : ", "Bisector"},
    {"Orthogonal/Perpendicular : ", "Orthogonal"},
    {"Reduced Major Axis       : ", "ReducedMajorAxis"},
    {"Mean OLS (Y/X and X/Y)   : ", "MeanOLS"},
}};

} // namespace

void WriteLineFamily(RunState& run) {
    ReportSection& section = run.report.BeginSection(
        {"line_family", "ORDINARY (OLS) AND SYMMETRICAL LEAST-SQUARE REGRESSIONS (Isobe et al., 1990)"});
    const std::string rule(98, '-');
    Line(section,
         "Regression type               Intercept: a ± SD [P(H0: a = 0)]      Slope: b ± SD [P(H0: b = 1)]");
    Line(section, rule);
    const double df = run.N() - 2;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const stats::LineFamily& family = run.family;
        run.Statement([&] {
            const std::string name = std::string(rows[i].name) + ".";
            const double Pa = stats::TailT(TStatistic(family.A[i], family.SDA[i]), df);
            const double Pb = stats::TailT(TStatistic(family.B[i] - 1, family.SDB[i]), df);
            Line(section, rows[i].label, F(10, 5, family.A[i]).Named(name + "a"), " ± ",
                 F(10, 5, family.SDA[i]).Named(name + "SDa"), " (", FP(7, 5, Pa).Named(name + "Pa"), ")     ",
                 F(10, 5, family.B[i]).Named(name + "b"), " ± ", F(10, 5, family.SDB[i]).Named(name + "SDb"),
                 " (", FP(7, 5, Pb).Named(name + "Pb"), ")");
        });
    }
    Line(section, rule);
}

} // namespace corvane
