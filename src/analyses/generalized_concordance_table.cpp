#include "analyses/generalized_concordance_table.h"

#include "core/format/text_lists.h"
#include "stats/generalized_concordance.h"

#include <array>
#include <string>
#include <string_view>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"Squared.Rg", "generalized.squared", "SQUARED distance                           "},
    {"Absolute.Rg", "generalized.absolute", "ABSOLUTE distance                          "},
    {"Power.Rg", "generalized.power", "ABSOLUTE distance to POWER 1.5             "},
    {"WinsorizedSquared.Rg", "generalized.winsorized_squared", "Winsorized Squared distance                "},
    {"WinsorizedAbsolute.Rg", "generalized.winsorized_absolute",
     "Winsorized Absolute distance               "},
    {"WinsorizedPower.Rg", "generalized.winsorized_power", "Winsorized Absolute distance to POWER 1.5  "},
    {"Huber.Rg", "generalized.huber", "Huber function                             "},
    {"*.SE", "generalized.se", " ± "},
    {"*.Lower", "generalized.limits", "   [", 10, 5, Look::Trimmed},
    {"*.Upper", "generalized.limits", ", ", 10, 5, Look::Trimmed},
};

/// In the order of stats::GeneralizedConcordanceResult.
constexpr std::array<std::string_view, 7> distances{
    "Squared", "Absolute", "Power", "WinsorizedSquared", "WinsorizedAbsolute", "WinsorizedPower", "Huber",
};

void Write(RunState& run) {
    ReportSection& section = run.report.BeginSection(GeneralizedConcordanceSection.frame);
    const std::string head =
        "Method                                          CCC (rg ± SE rg)     Lower - Upper 95% CI";
    const std::size_t ruleLength = CharacterCount(head);
    section.BeginTable({"CCC (rg)", "SE rg", "Lower 95% CI", "Upper 95% CI"});
    section.TableHead(head);
    section.Rule(ruleLength);
    const auto [Rg, SE, Lower, Upper] =
        stats::GeneralizedConcordance(run.arrays.X, run.arrays.Y, 1.5, run.stop);
    for (std::size_t i = 0; i < distances.size(); ++i) {
        const std::string distance(distances[i]);
        section.TableRow({RowItem(distance + ".Rg", Rg[i]).Between(Lower[i], Upper[i]),
                          {"*.SE", SE[i], distance},
                          {"*.Lower", Lower[i], distance},
                          {"*.Upper", Upper[i], distance},
                          "]"});
    }
    section.Rule(ruleLength);
}

} // namespace

const SectionDefinition GeneralizedConcordanceSection{
    .frame = {"generalized_concordance",
              "GENERALIZED CONCORDANCE CORRELATION COEFFICIENT (King and Chinchilli, 2001a,b)",
              {places}},
    .gate = {&AnalysisOptions::GENERAL_CCC},
    .progress = "Generalized CCC...",
    .meaning =
        "The concordance of predicted and observed values by seven measures of distance, most of which "
        "give far pairs less weight than the square does.",
    .papers = "king2001a; king2001b",
    .write = Write,
};

} // namespace corvane
