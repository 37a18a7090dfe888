#include "analyses/residual_table.h"

#include "core/format/text_lists.h"
#include "stats/distributions.h"

#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

constexpr std::int32_t rowNumberWidth = 3, valueWidth = 9;

/// A column that can be chosen.
struct Choice {
    bool chosen;
    const char* name;
    const char* header;
    const char* fileHeader;
    const std::vector<double>& values;
    std::function<bool(double)> starred = {};
};

std::string HeaderCell(std::string_view text, std::int32_t width) {
    return AlignField(text, width, AlignRight) + ' ';
}

std::function<bool(double)> Outside(double lower, double upper) {
    return [=](double value) { return value < lower || value > upper; };
}

const ListingColumn* Find(const Listing& table, std::string_view name) {
    const auto found = std::ranges::find(table.columns, name, &ListingColumn::name);
    return found == table.columns.end() ? nullptr : &*found;
}

} // namespace

double ResidualTable::Count(std::string_view name, const std::function<bool(double)>& test) const {
    const ListingColumn* column = Find(rows, name);
    return column ? static_cast<double>(std::ranges::count_if(*column->values, test)) : 0;
}

double ResidualTable::Starred(std::string_view name) const {
    const ListingColumn* column = Find(rows, name);
    return column ? Count(name, column->starred) : 0;
}

ResidualTable ListResiduals(const RunState& run, const stats::InfluenceLimits& limits) {
    const AnalysisOptions& options = run.Options();
    const EvaluationArrays& pairs = run.arrays;
    const stats::Residuals& r = run.residuals;
    const SessionState& session = run.session;
    const auto highLeverage = [limit = limits.Leverage](double h) { return h > limit; };
    // This marks the distances below the median of F(p, N - p), as the section's label words it.
    const auto belowMedian = [df = run.N() - 2](double D) { return 1 - stats::ProbF(D, 2, df) > 0.5; };
    const auto largeDFFITS = [limit = limits.DFFITS](double value) { return std::abs(value) > limit; };
    const Choice choices[] = {
        {options.RESIDUE_1, "X", "X values", "X values", pairs.X},
        {options.RESIDUE_2, "Y", "Y values", "Y values", pairs.Y},
        {options.RESIDUE_3, "Deviation", "Deviation", "Deviation", r.Deviation,
         Outside(session.DeviationLower, session.DeviationUpper)},
        {options.RESIDUE_4, "Fitted", "Y Pred.", "Y Pred.", r.Fitted},
        {options.RESIDUE_5, "Residue", "Residue", "Y Residue", r.Residue,
         Outside(session.ResidueLower, session.ResidueUpper)},
        {options.RESIDUE_6, "NormRes", "NormRes", "NormRes", r.NormRes},
        {options.RESIDUE_7, "SERes", "SE Res.", "SE Res.", r.SERes},
        {options.RESIDUE_8, "SemiStdtR", "SemiStdtR", "SemiStdR", r.SemiStdtR},
        {options.RESIDUE_9, "StdtRes", "StdtRes", "StdRes", r.StdtRes},
        // Its limits are those of the comment and of the count's label, whatever the session's are.
        {options.RESIDUE_10, "RStdtRes", "RStdtRes", "RSdtRed", r.RStdtRes, Outside(-2.5, 2.5)},
        {options.RESIDUE_11, "Leverage", "Leverage", "Leverage", r.Leverage, highLeverage},
        {options.RESIDUE_12, "CookD", "Cook'D", "Cook'D", r.CookD, belowMedian},
        {options.RESIDUE_13, "DFFITS", "DFFITS", "DFFITS", r.DFFITS, largeDFFITS},
        {options.RESIDUE_14, "PRESS", "PRESS", "PRESS", r.PRESS},
    };

    ResidualTable table;
    table.rows.rows = pairs.Count();
    table.header = table.fileHeader = HeaderCell("#", rowNumberWidth);
    table.titles.emplace_back("#");
    table.rows.columns.push_back({"Row", nullptr, " "});
    for (const Choice& choice : choices) {
        if (!choice.chosen)
            continue;
        table.header += HeaderCell(choice.header, valueWidth);
        table.fileHeader += HeaderCell(choice.fileHeader, valueWidth);
        table.titles.emplace_back(choice.header);
        table.rows.columns.push_back({choice.name, run.Share(choice.values), " ", choice.starred});
    }
    return table;
}

} // namespace corvane
