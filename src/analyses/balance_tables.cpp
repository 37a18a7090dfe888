#include "analyses/balance_tables.h"

#include "report/transition.h"

#include "analyses/balance.h"

#include <string>

namespace corvane {
namespace {

constexpr double evenShare = 0.25, association = 0;

const std::string rule(89, '-');
const std::string gap(23, ' ');

/// An allocation and the machine name of its half of the section.
struct Half {
    std::string name;
    Allocation allocation;
};

/// A cell as a percentage of the pairs. The hundredfold count is a 32-bit number: it fails from 21,474,837
/// pairs in a cell.
double Percentage(std::int32_t cell, double N) {
    return Divide(Integer32(100.0 * cell), N);
}

void WriteCells(RunState& run, ReportSection& section, const Half& left, const Half& right) {
    Line(section, rule);
    Line(section,
         "                              Below          Above             Below          Above      ");
    Line(section,
         "                         --------------- ---------------  --------------- ---------------");
    for (const auto row : {Over, Under}) {
        const auto name = [&](const Half& half, std::size_t side) {
            return half.name + (row == Over ? ".Over" : ".Under") + (side == Below ? "Below" : "Above");
        };
        const auto count = [&](const Half& half, std::size_t side) {
            return F(5, 0, static_cast<double>(half.allocation.cells[row][side])).Named(name(half, side));
        };
        const auto percent = [&](const Half& half, std::size_t side) {
            return F(5, 2, Percentage(half.allocation.cells[row][side], run.N()))
                .Named(name(half, side) + "Percent");
        };
        run.Statement([&] {
            Line(section,
                 row == Over ? "         Overpredicted  :" : "         Underpredicted :", count(left, Below),
                 " (", percent(left, Below), "%) ", count(left, Above), " (", percent(left, Above), "%)    ",
                 count(right, Below), " (", percent(right, Below), "%) ", count(right, Above), " (",
                 percent(right, Above), "%)");
        });
    }
    Line(section, rule);
}

/// One value of both halves.
void WriteValue(RunState& run, ReportSection& section, const char* label, double Allocation::*value,
                const std::string& name, const Half& left, const Half& right) {
    run.Statement([&] {
        Line(section, label, F(10, 5, left.allocation.*value).Named(left.name + name), gap,
             F(10, 5, right.allocation.*value).Named(right.name + name));
    });
}

void WriteTests(RunState& run, ReportSection& section, const std::string& prefix, const Half& left,
                const Half& right) {
    run.Statement([&] {
        Line(section,
             "      X² (Prob(X²=0))   :", F(10, 5, left.allocation.X2).Named(left.name + prefix + "X2"), " (",
             FP(7, 5, left.allocation.Prob).Named(left.name + prefix + "Prob"), ")             ",
             F(10, 5, right.allocation.X2).Named(right.name + prefix + "X2"), " (",
             FP(7, 5, right.allocation.Prob).Named(right.name + prefix + "Prob"), ")");
    });
    WriteValue(run, section, "      Cramer's V        :", &Allocation::V, prefix + "V", left, right);
    WriteValue(run, section, "      CCC               :", &Allocation::C, prefix + "C", left, right);
}

void WriteOdds(RunState& run, ReportSection& section, const Half& left, const Half& right) {
    section.Blank();
    WriteValue(run, section, "Odds ratio              :", &Allocation::OddsRatio, ".OddsRatio", left, right);
    WriteValue(run, section, "Ln(Odds ratio)          :", &Allocation::LnOddsRatio, ".LnOddsRatio", left,
               right);
    WriteValue(run, section, "ASE(Ln(Odds ratio))     :", &Allocation::ASE, ".ASE", left, right);
    WriteValue(run, section, "Prob(H0:Odds ratio = 1) :", &Allocation::ProbZ, ".ProbOddsRatio", left, right);
}

} // namespace

void WriteBalance(RunState& run) {
    ReportSection& section = run.report.BeginSection({"balance", "BALANCE ANALYSIS (Harlow et al., 2006)"});
    if (run.Comments()) {
        Line(section, "!! .Balanced allocation checks if 25% of the data points were in each cell !!");
        Line(section, "!! .Current allocation checks if there is an association among the four cells !!");
        Line(section, "!! .Cramer's V evaluates the strength of the association in which 0 is weak and 1 is "
                      "perfect association!!");
        Line(section, "!! .Contingency coefficient C is similar to Cramer's V and also lies between 0 and 1 "
                      "!!");
        Line(section, "!! .Odds ratio = 1 indicates independence among the four cells!!");
        Line(section, "!! .ASE is the asymptotic standard error !!");
    }
    Half predicted{"BalanceTableX", {run.BalanceTableX}};
    Half observed{"BalanceTableY", {run.BalanceTableY}};
    bool perpendicular = false;
    const auto allocate = [&](double p) {
        run.Statement([&] {
            STAT_Harlow(run.arrays.X, run.arrays.Y, run.a, run.b, predicted.allocation, observed.allocation,
                        p, perpendicular);
        });
    };

    allocate(evenShare);
    section.Blank();
    Line(section, "                              Model-Predicted Mean                 Observed Mean");
    WriteCells(run, section, predicted, observed);
    Line(section, "Balanced allocation     :");
    WriteTests(run, section, ".Balanced.", predicted, observed);
    allocate(association);
    Line(section, "Current allocation      :");
    WriteTests(run, section, ".Current.", predicted, observed);
    WriteOdds(run, section, predicted, observed);
    Line(section, rule);
}

void WriteOrthogonalBalance(RunState& run) {
    ReportSection& section =
        run.report.BeginSection({"orthogonal_balance", "ORTHOGONAL BALANCE (Harlow et al., 2006)"});
    AllocationTable OrthoTableFitted{};
    Half identity{"OrthoTableIdentity", {run.BalanceTableX}};
    Half fitted{"OrthoTableFitted", {OrthoTableFitted}};
    Allocation scratch{run.BalanceTableY};
    const auto allocate = [&](double a, double b, Half& half) {
        bool perpendicular = true;
        run.Statement([&] {
            STAT_Harlow(run.arrays.X, run.arrays.Y, a, b, half.allocation, scratch, association,
                        perpendicular);
        });
    };

    allocate(0, 1, identity);
    allocate(run.a, run.b, fitted);
    run.Statement([&] {
        Line(section,
             "Perpendicular lines at   Y = X                            Y = ", F(10, 5, run.a).Named("a"),
             " + ", F(10, 5, run.b).Named("b"), "X");
    });
    WriteCells(run, section, identity, fitted);
    WriteTests(run, section, ".", identity, fitted);
    WriteOdds(run, section, identity, fitted);
}

} // namespace corvane
