#include "analyses/generalized_concordance_table.h"

#include "report/transition.h"

#include "core/format/text_lists.h"
#include "stats/generalized_concordance.h"

#include <array>
#include <string>

namespace corvane {
namespace {

struct DistanceRow {
    const char* label;
    const char* name;
};

constexpr std::array<DistanceRow, 7> rows{{
    {"SQUARED distance                           ", "Squared"},
    {"ABSOLUTE distance                          ", "Absolute"},
    {"ABSOLUTE distance to POWER 1.5             ", "Power"},
    {"Winsorized Squared distance                ", "WinsorizedSquared"},
    {"Winsorized Absolute distance               ", "WinsorizedAbsolute"},
    {"Winsorized Absolute distance to POWER 1.5  ", "WinsorizedPower"},
    {"Huber function                             ", "Huber"},
}};

} // namespace

void WriteGeneralizedConcordance(RunState& run) {
    ReportSection& section = run.report.BeginSection(
        {"generalized_concordance",
         "GENERALIZED CONCORDANCE CORRELATION COEFFICIENT (King and Chinchilli, 2001a,b)"});
    const std::string header =
        "Method                                          CCC (rg ± SE rg)     Lower - Upper 95% CI";
    const std::string rule(CharacterCount(header), '-');
    Line(section, header);
    Line(section, rule);
    const auto [Rg, SE, Lower, Upper] = stats::GeneralizedConcordance(run.arrays.X, run.arrays.Y, 1.5);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string name = std::string(rows[i].name) + ".";
        Line(section, rows[i].label, F(10, 5, Rg[i]).Named(name + "Rg"), " ± ",
             F(10, 5, SE[i]).Named(name + "SE"), "   [", F(10, 5, Lower[i]).Named(name + "Lower").Trimmed(),
             ", ", F(10, 5, Upper[i]).Named(name + "Upper").Trimmed(), "]");
    }
    Line(section, rule);
}

} // namespace corvane
