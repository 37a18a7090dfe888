#include "comparison/adequacy_table.h"

#include "core/format/text_lists.h"
#include "stats/concordance.h"
#include "stats/error_measures.h"
#include "stats/information_criteria.h"
#include "stats/moment_statistics.h"

#include <array>
#include <cmath>
#include <optional>
#include <span>
#include <utility>

namespace corvane {
namespace {

/// The columns after the three moments, in their order.
enum Index { RSquared, MSEP, MB, MEF, CD, Cb, CCC, AIC, AICc, AICcPrime, IndexCount };

struct IndexColumn {
    const char* title;
    const char* name;
    bool isLong;       ///< A long column or a short one.
    bool isStatistics; ///< With the decimals of statistics or of correlations.
};

constexpr std::array<IndexColumn, IndexCount> indexColumns{{
    {"r²", "RSquared", false, false},
    {"MSEP", "MSEP", true, true},
    {"MB", "MB", true, true},
    {"MEF", "MEF", false, false},
    {"CD", "CD", false, false},
    {"Cb", "Cb", false, false},
    {"CCC", "CCC", false, false},
    {"AIC", "AIC", true, false},
    {"AICc", "AICc", true, false},
    {"AICc'", "AICcPrime", true, false},
}};

/// Widths and decimals come from the settings.
constexpr Place places[] = {
    {"Mean_*", "moments.mean"},
    {"SD_*", "moments.sd"},
    {"Median_*", "moments.median"},
    {"RSquared_*", "regression.r_squared"},
    {"MSEP_*", "msep"},
    {"MB_*", "bias.mean"},
    {"MEF_*", "error.mef"},
    {"CD_*", "error.cd"},
    {"Cb_*", "concordance.cb"},
    {"CCC_*", "comparison.ccc"},
    {"AIC_*", "comparison.aic"},
    {"AICc_*", "comparison.aicc"},
    {"AICcPrime_*", "comparison.aicc_prime"},
    {"best_*", "comparison.best"},
};

constexpr const char* momentTitles[] = {"Mean", "SD", "Median"};

constexpr const char* notes[] = {
    ".SD = Standard deviation",
    ".r² = Coefficient of determination of a linear regression of Y on X (closer to 1 is better)",
    ".MSEP = Mean square error of prediction (smaller is better)",
    ".MB = Mean bias (closer to zero is better)",
    ".MEF = Modeling efficiency factor (closer to 1 is better)",
    ".CD = Coefficient of model determination (closer to 1 is better)",
    ".Cb = Model accuracy (closer to 1 is better)",
    ".CCC = Concordance correlation coefficient (closer to 1 is better)",
    ".AIC = Akaike's Information Criterion (smaller is better)",
    ".AICc = Corrected Akaike's Information Criterion (smaller is better)",
    ".AICc' = Burnham et al. (2011)'s corrected AIC (smaller is better): without the n*(ln(2*Pi)+1) term",
};

using Indexes = std::array<double, IndexCount>;

/// The pairs of one model.
struct ModelPairs {
    std::vector<double> X, Y;
};

/// Takes a model's pairs from the first `rows` rows and leaves in `rows` how many of these are observed. A
/// row keeps its place, so one that is not observed is a pair of zeros, and the pairs are cut to that many.
ModelPairs TakePairs(const ComparisonData& data, std::size_t model, std::size_t& rows) {
    ModelPairs pairs;
    std::size_t valid = 0;
    bool differ = false;
    for (std::size_t row = 0; row < rows; ++row) {
        const bool observed = data.IsObserved(row);
        const double y = observed ? data.Observed(row) : 0;
        const double x = observed ? data.Predicted(model, row) : 0;
        valid += observed;
        differ = differ || x != y;
        pairs.X.push_back(x);
        pairs.Y.push_back(y);
    }
    if (!differ)
        throw IdenticalToObservations(data.models[model].path, model + 1);
    rows = valid;
    pairs.X.resize(rows);
    pairs.Y.resize(rows);
    return pairs;
}

/// `sameRows`: the moments of Y are those of these pairs.
Indexes IndexesOf(const ComparedModel& model, const ModelPairs& pairs,
                  const stats::MomentStatisticsResult& momentsX,
                  const stats::MomentStatisticsResult& momentsY, bool sameRows) {
    const auto& [X, Y] = pairs;
    const stats::ErrorMeasures errors = stats::DiverseStatistics(X, Y, momentsX.Mean, momentsY.Mean);
    // The positive root: a model that runs against the observations shows that in its MEF, not in its CCC.
    const double r = SquareRoot(errors.RSquared);
    // The variance of the differences counts for the intraclass coefficient only.
    const double meanDifference = sameRows ? -errors.MeanBias : momentsX.Mean - momentsY.Mean;
    const stats::Concordance concordance =
        stats::ConcordanceStatistics({X.size(), r, meanDifference, momentsX.SD, momentsY.SD, 0});
    const auto criteria = stats::LineInformationCriteria(X, Y);
    if (!criteria)
        throw RunFailure(model.path +
                         ": 4 observed values are in use, and AICc divides by their number less 4; it takes "
                         "5 or more");
    return {errors.RSquared, errors.MSEP,    errors.MeanBias, errors.MEF,     errors.CD,
            concordance.Cb,  concordance.rc, criteria->AIC,   criteria->AICc, criteria->AICcPrime};
}

/// The size by which a value competes for "best", the smaller the better. CD is judged by its distance from
/// 1, but MEF and Cb by their size alone.
double Rank(Index index, double value) {
    switch (index) {
    case RSquared:
    case MEF:
    case Cb:
    case CCC:
        return -value;
    case MB:
        return std::abs(value);
    case CD:
        return std::abs(std::abs(value) - 1);
    default:
        return value;
    }
}

/// The table's lines.
class AdequacyTable {
public:
    AdequacyTable(ReportSection& reportSection, const ReportColumns& reportColumns)
        : section(reportSection), columns(reportColumns) {}

    void WriteHead() {
        section.Blank();
        std::vector<std::string> titles(std::begin(momentTitles), std::end(momentTitles));
        std::string head = "Model:";
        for (const std::string& title : titles)
            head += Centred(columns.Long, title);
        for (const IndexColumn& column : indexColumns) {
            titles.emplace_back(column.title);
            head += Centred(Width(column), column.title);
        }
        section.BeginTable(std::move(titles));
        section.TableHead(std::move(head));
        WriteRule('-');
    }

    void WriteObserved(const stats::MomentStatisticsResult& moments) {
        std::vector<RowItem> items{"Obs  : "};
        AddMoments(items, moments, "observed", "the observations");
        section.TableRow(items);
    }

    void WriteModel(const ComparedModel& model, const stats::MomentStatisticsResult& moments,
                    const Indexes& indexes) {
        std::vector<RowItem> items{AtRight(3, model.tag) + "  : "};
        AddMoments(items, moments, model.tag, model.path);
        for (std::size_t i = 0; i < IndexCount; ++i) {
            const IndexColumn& column = indexColumns[i];
            const std::int32_t decimals = column.isStatistics ? columns.Statistics : columns.Correlations;
            items.push_back(RowItem(std::string(column.name) + "_*", indexes[i], model.tag)
                                .Sized(Width(column), decimals)
                                .Of(model.path + ": " + column.title));
        }
        section.TableRow(items);
    }

    void WriteBest(std::span<const std::size_t> ordinals) {
        WriteRule('=');
        std::vector<RowItem> items{"Best :" + std::string(static_cast<std::size_t>(3 * columns.Long), ' ')};
        for (std::size_t i = 0; i < IndexCount; ++i)
            items.push_back(RowItem("best_*", static_cast<double>(ordinals[i]), indexColumns[i].name)
                                .Sized(Width(indexColumns[i]), 0));
        section.TableRow(items, std::size(momentTitles));
        WriteRule('-');
        for (const char* note : notes)
            section.Note(note);
    }

private:
    std::int32_t Width(const IndexColumn& column) const {
        return column.isLong ? columns.Long : columns.Short;
    }

    void WriteRule(char character) {
        section.Rule(static_cast<std::size_t>(8 * columns.Long + 5 * columns.Short + 7), character);
    }

    void AddMoments(std::vector<RowItem>& items, const stats::MomentStatisticsResult& moments,
                    const std::string& tag, const std::string& whose) const {
        const double values[] = {moments.Mean, moments.SD, moments.Median};
        for (std::size_t i = 0; i < std::size(values); ++i)
            items.push_back(RowItem(std::string(momentTitles[i]) + "_*", values[i], tag)
                                .Sized(columns.Long, columns.Statistics)
                                .Of(whose + ": " + momentTitles[i]));
    }

    ReportSection& section;
    const ReportColumns& columns;
};

std::string InColumn(std::int32_t width, std::string_view text, std::int16_t alignment) {
    Field field{std::string(text), width, 0, alignment};
    if (auto shown = FormatField(field))
        return std::move(*shown);
    throw RunFailure(QuotedForMessage(text) + " does not fit a column of width " + std::to_string(width));
}

} // namespace

std::string Centred(std::int32_t width, std::string_view text) {
    return InColumn(width, text, AlignCentre);
}

std::string AtRight(std::int32_t width, std::string_view text) {
    return InColumn(width, text, AlignRight);
}

Adequacy WriteAdequacy(Report& report, const ComparisonData& data, const ReportColumns& columns,
                       ComparisonSteps& steps) {
    AdequacyTable table(report.BeginSection(AdequacySection.frame), columns);
    table.WriteHead();
    Adequacy adequacy;
    adequacy.ValidCount = data.N;
    std::optional<stats::MomentStatisticsResult> momentsY; // of the first model's rows, for all models
    std::size_t firstRows = 0;
    std::array<std::size_t, IndexCount> bestOrdinals{};
    Indexes best{};
    for (std::size_t model = 0; model < data.models.size(); ++model) {
        const ModelPairs pairs = TakePairs(data, model, adequacy.ValidCount);
        const stats::MomentStatisticsResult momentsX = stats::MomentStatistics(pairs.X);
        if (!momentsY) {
            momentsY = stats::MomentStatistics(pairs.Y);
            firstRows = pairs.Y.size();
            table.WriteObserved(*momentsY);
        }
        const Indexes indexes =
            IndexesOf(data.models[model], pairs, momentsX, *momentsY, pairs.Y.size() == firstRows);
        table.WriteModel(data.models[model], momentsX, indexes);
        adequacy.AICcPrime.push_back(indexes[AICcPrime]);
        for (std::size_t i = 0; i < IndexCount; ++i) {
            const double rank = Rank(static_cast<Index>(i), indexes[i]);
            if (bestOrdinals[i] == 0 || rank < best[i]) {
                best[i] = rank;
                bestOrdinals[i] = model + 1;
            }
        }
        steps.Done();
    }
    table.WriteBest(bestOrdinals);
    return adequacy;
}

const SectionDefinition AdequacySection{
    .frame = {"adequacy", "Model Adequacy Indexes", {places}},
    .meaning = "How well each model agrees with the observations, and which is best by each index.",
    .papers = "burnham2002; burnham2011; lin1989; loague1991; neter1996; zacharias1996",
};

} // namespace corvane
