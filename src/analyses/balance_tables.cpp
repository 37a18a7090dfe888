#include "analyses/balance_tables.h"

#include "stats/harlow.h"

#include <string>

namespace corvane {
namespace {

using stats::Above, stats::Below, stats::Over, stats::Under;

constexpr double evenShare = 0.25, association = 0;
constexpr std::size_t ruleLength = 89;

const std::string gap(23, ' ');

constexpr Place balancePlaces[] = {
    {"*.OverBelow", "balance.over_below", "", 5, 0},
    {"*.OverAbove", "balance.over_above", "", 5, 0},
    {"*.UnderBelow", "balance.under_below", "", 5, 0},
    {"*.UnderAbove", "balance.under_above", "", 5, 0},
    {"*.Balanced.X2", "balance.even.x2"},
    {"*.Balanced.Prob", "balance.even.p", " (", 7, 5, Look::Probability},
    {"*.Balanced.V", "balance.even.v"},
    {"*.Balanced.C", "balance.even.c"},
    {"*.Current.X2", "balance.association.x2"},
    {"*.Current.Prob", "balance.association.p", " (", 7, 5, Look::Probability},
    {"*.Current.V", "balance.association.v"},
    {"*.Current.C", "balance.association.c"},
};

constexpr Place orthogonalPlaces[] = {
    {"*.OverBelow", "orthogonal.over_below", "", 5, 0},
    {"*.OverAbove", "orthogonal.over_above", "", 5, 0},
    {"*.UnderBelow", "orthogonal.under_below", "", 5, 0},
    {"*.UnderAbove", "orthogonal.under_above", "", 5, 0},
    {"a", "regression.intercept", "Perpendicular lines at   Y = X                            Y = "},
    {"b", "regression.slope", " + "},
    {"*.X2", "balance.association.x2"},
    {"*.Prob", "balance.association.p", " (", 7, 5, Look::Probability},
    {"*.V", "balance.association.v"},
    {"*.C", "balance.association.c"},
};

constexpr Place sharedPlaces[] = {
    {"*.OverBelowPercent", "balance.cell_percent", " (", 5, 2},
    {"*.OverAbovePercent", "balance.cell_percent", " (", 5, 2},
    {"*.UnderBelowPercent", "balance.cell_percent", " (", 5, 2},
    {"*.UnderAbovePercent", "balance.cell_percent", " (", 5, 2},
    {"*.OddsRatio", "balance.odds_ratio"},
    {"*.LnOddsRatio", "balance.odds_ratio.ln"},
    {"*.ASE", "balance.odds_ratio.ln.se"},
    {"*.ProbOddsRatio", "balance.odds_ratio.p"},
};

/// An allocation, the machine name of its half of the section, and the half's title.
struct Half {
    std::string name, title;
    stats::Allocation allocation;
};

/// A cell as a percentage of the pairs. The hundredfold count is a 32-bit number: it fails from 21,474,837
/// pairs in a cell.
double Percentage(std::int32_t cell, double N) {
    return Divide(Integer32(100.0 * cell), N);
}

/// Counts the pairs of a run in two tables as one statement.
void Allocate(RunState& run, double a, double b, stats::Allocation& A, stats::Allocation& B, double p,
              bool perpendicular) {
    run.Statement([&] {
        if (!stats::STAT_Harlow(run.arrays.X, run.arrays.Y, a, b, A, B, p, perpendicular, run.stop))
            throw RunFailure("overflow in the allocation of a pair");
    });
}

void BeginCells(ReportSection& section, const Half& left, const Half& right) {
    std::vector<std::string> columns;
    for (const Half* half : {&left, &right})
        for (const char* side : {"Below", "Above"}) {
            columns.push_back(half->title + ": " + side);
            columns.push_back(columns.back() + ", %");
        }
    section.BeginTable(std::move(columns));
}

void WriteCells(RunState& run, ReportSection& section, const Half& left, const Half& right) {
    section.Rule(ruleLength);
    section.TableHead(
        "                              Below          Above             Below          Above      ");
    section.TableHead(
        "                         --------------- ---------------  --------------- ---------------");
    for (const auto row : {Over, Under}) {
        const std::string place = row == Over ? "*.Over" : "*.Under";
        const auto count = [&](const Half& half, std::size_t side) {
            return RowItem(place + (side == Below ? "Below" : "Above"),
                           static_cast<double>(half.allocation.cells[row][side]), half.name);
        };
        const auto percent = [&](const Half& half, std::size_t side) {
            return RowItem(place + (side == Below ? "BelowPercent" : "AbovePercent"),
                           Percentage(half.allocation.cells[row][side], run.N()), half.name);
        };
        run.Statement([&] {
            section.TableRow({row == Over ? "         Overpredicted  :" : "         Underpredicted :",
                              count(left, Below), percent(left, Below), "%) ", count(left, Above),
                              percent(left, Above), "%)    ", count(right, Below), percent(right, Below),
                              "%) ", count(right, Above), percent(right, Above), "%)"});
        });
    }
    section.Rule(ruleLength);
}

/// One value of both halves.
void WriteValue(RunState& run, ReportSection& section, const char* label, double stats::Allocation::*value,
                const std::string& place, const Half& left, const Half& right) {
    run.Statement([&] {
        section.TableRow({label,
                          {place, left.allocation.*value, left.name},
                          gap,
                          {place, right.allocation.*value, right.name}});
    });
}

void WriteTests(RunState& run, ReportSection& section, const std::string& prefix, const Half& left,
                const Half& right) {
    section.BeginTable({left.title, left.title + ": P", right.title, right.title + ": P"});
    run.Statement([&] {
        const auto statistic = [&](const Half& half) {
            return RowItem(prefix + "X2", half.allocation.X2, half.name);
        };
        const auto probability = [&](const Half& half) {
            return RowItem(prefix + "Prob", half.allocation.Prob, half.name);
        };
        section.TableRow({"      X² (Prob(X²=0))   :", statistic(left), probability(left), ")             ",
                          statistic(right), probability(right), ")"});
    });
    section.BeginTable({left.title, right.title});
    WriteValue(run, section, "      Cramer's V        :", &stats::Allocation::V, prefix + "V", left, right);
    WriteValue(run, section, "      CCC               :", &stats::Allocation::C, prefix + "C", left, right);
}

void WriteOdds(RunState& run, ReportSection& section, const Half& left, const Half& right) {
    using stats::Allocation;
    section.Blank();
    WriteValue(run, section, "Odds ratio              :", &Allocation::OddsRatio, "*.OddsRatio", left, right);
    WriteValue(run, section, "Ln(Odds ratio)          :", &Allocation::LnOddsRatio, "*.LnOddsRatio", left,
               right);
    WriteValue(run, section, "ASE(Ln(Odds ratio))     :", &Allocation::ASE, "*.ASE", left, right);
    WriteValue(run, section, "Prob(H0:Odds ratio = 1) :", &Allocation::ProbZ, "*.ProbOddsRatio", left, right);
}

void WriteComments(ReportSection& section) {
    section.Note("!! .Balanced allocation checks if 25% of the data points were in each cell !!");
    section.Note("!! .Current allocation checks if there is an association among the four cells !!");
    section.Note("!! .Cramer's V evaluates the strength of the association in which 0 is weak and 1 is "
                 "perfect association!!");
    section.Note("!! .Contingency coefficient C is similar to Cramer's V and also lies between 0 and 1 !!");
    section.Note("!! .Odds ratio = 1 indicates independence among the four cells!!");
    section.Note("!! .ASE is the asymptotic standard error !!");
}

void WriteBalance(RunState& run) {
    ReportSection& section = run.report.BeginSection(BalanceSection.frame);
    if (run.Comments())
        WriteComments(section);
    Half predicted{"BalanceTableX", "Model-Predicted Mean", {run.BalanceTableX}};
    Half observed{"BalanceTableY", "Observed Mean", {run.BalanceTableY}};
    const auto allocate = [&](double p) {
        Allocate(run, run.a, run.b, predicted.allocation, observed.allocation, p, false);
    };

    allocate(evenShare);
    section.Blank();
    BeginCells(section, predicted, observed);
    section.TableHead("                              Model-Predicted Mean                 Observed Mean");
    WriteCells(run, section, predicted, observed);
    section.Text("Balanced allocation     :");
    WriteTests(run, section, "*.Balanced.", predicted, observed);
    allocate(association);
    section.Text("Current allocation      :");
    WriteTests(run, section, "*.Current.", predicted, observed);
    WriteOdds(run, section, predicted, observed);
    section.Rule(ruleLength);
}

void WriteOrthogonalBalance(RunState& run) {
    ReportSection& section = run.report.BeginSection(OrthogonalBalanceSection.frame);
    stats::AllocationTable OrthoTableFitted{};
    Half identity{"OrthoTableIdentity", "Y = X", {run.BalanceTableX}};
    Half fitted{"OrthoTableFitted", "Y = a + bX", {OrthoTableFitted}};
    stats::Allocation scratch{run.BalanceTableY};

    Allocate(run, 0, 1, identity.allocation, scratch, association, true);
    Allocate(run, run.a, run.b, fitted.allocation, scratch, association, true);
    run.Statement([&] { section.Row({{"a", run.a}, {"b", run.b}, "X"}); });
    BeginCells(section, identity, fitted);
    WriteCells(run, section, identity, fitted);
    WriteTests(run, section, "*.", identity, fitted);
    WriteOdds(run, section, identity, fitted);
}

} // namespace

const SectionDefinition BalanceSection{
    .frame = {"balance", "BALANCE ANALYSIS (Harlow et al., 2006)", {balancePlaces, sharedPlaces}},
    .gate = {&AnalysisOptions::BALANCE_ANALYSIS},
    .progress = "Balance analysis...",
    .meaning = "Whether the model predicts too much and too little evenly below and above the means.",
    .papers = "harlow2006; agresti1996; agresti2002",
    .write = WriteBalance,
};

const SectionDefinition OrthogonalBalanceSection{
    .frame = {"orthogonal_balance",
              "ORTHOGONAL BALANCE (Harlow et al., 2006)",
              {orthogonalPlaces, sharedPlaces}},
    .gate = {&AnalysisOptions::ORTHOGONAL_BALANCE},
    .progress = "Orthogonal balance...",
    .meaning = "Whether the pairs lie evenly about the lines of identity and of the regression and the lines "
               "at right angles to them.",
    .papers = "harlow2006; agresti1996; agresti2002",
    .write = WriteOrthogonalBalance,
};

} // namespace corvane
