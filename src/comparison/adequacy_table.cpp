#include "comparison/adequacy_table.h"

#include "core/format/text_lists.h"
#include "stats/concordance.h"
#include "stats/error_measures.h"
#include "stats/line_fits.h"
#include "stats/moment_statistics.h"
#include "stats/sums.h"

#include <array>
#include <cmath>
#include <numbers>
#include <optional>
#include <span>

namespace corvane {
namespace {

/// The columns behind the three moments, in their order.
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

void SetInformationCriteria(Indexes& indexes, const ComparedModel& model, const ModelPairs& pairs) {
    const double n = static_cast<double>(pairs.X.size());
    // In units of a power of two, since SSE itself may be out of a double's range where its logarithm is not.
    const int exponent = stats::ScaleExponent(pairs.Y);
    const double SSE = stats::FitLine(pairs.X, stats::Scaled(pairs.Y, exponent)).Chi2;
    if (n < 4 || !(SSE > 0))
        return;
    if (n == 4)
        throw RunFailure(model.path +
                         ": 4 observed values are in use, and AICc divides by their number less 4; it takes "
                         "5 or more");
    constexpr double parameters = 3, twicePi = 6.283186; // to these digits: the report's AIC rests on them
    const double c = std::log(twicePi) + 1;
    const double q = std::log(SSE / n) + 2 * exponent * std::numbers::ln2;
    const double correction = Divide(2 * parameters * (parameters + 1), n - parameters - 1);
    indexes[AIC] = n * (q + c) + 2 * parameters;
    indexes[AICc] = correction + n * (q + c) + 2 * parameters;
    indexes[AICcPrime] = correction + n * q + 2 * parameters;
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
    Indexes indexes{errors.RSquared, errors.MSEP,    errors.MeanBias, errors.MEF,
                    errors.CD,       concordance.Cb, concordance.rc};
    SetInformationCriteria(indexes, model, pairs);
    return indexes;
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

    void WriteHeader() {
        section.Line();
        std::string header = "Model:";
        for (const char* title : {"Mean", "SD", "Median"})
            header += Centred(columns.Long, title);
        for (const IndexColumn& column : indexColumns)
            header += Centred(Width(column), column.title);
        section.Line(header);
        WriteRule('-');
    }

    void WriteRule(char character) {
        section.Line(
            std::string(static_cast<std::size_t>(8 * columns.Long + 5 * columns.Short + 7), character));
    }

    void WriteObserved(const stats::MomentStatisticsResult& moments) {
        ReportLine line;
        line.pieces.emplace_back("Obs  : ");
        AddMoments(line, moments, "observed", "the observations");
        section.lines.push_back(std::move(line));
    }

    void WriteModel(const ComparedModel& model, const stats::MomentStatisticsResult& moments,
                    const Indexes& indexes) {
        const std::string& tag = model.tag;
        ReportLine line;
        line.pieces.emplace_back(F(3, 0, tag));
        line.pieces.emplace_back("  : ");
        AddMoments(line, moments, tag, model.path);
        for (std::size_t i = 0; i < IndexCount; ++i) {
            const IndexColumn& column = indexColumns[i];
            const std::int32_t decimals = column.isStatistics ? columns.Statistics : columns.Correlations;
            line.pieces.emplace_back(
                PlacedNumber(F, Width(column), decimals, indexes[i], model.path + ": " + column.title)
                    .Named(column.name + ("_" + tag)));
        }
        section.lines.push_back(std::move(line));
    }

    void WriteBest(std::span<const std::size_t> ordinals) {
        WriteRule('=');
        ReportLine line;
        line.pieces.emplace_back("Best :" + std::string(static_cast<std::size_t>(3 * columns.Long), ' '));
        for (std::size_t i = 0; i < IndexCount; ++i)
            line.pieces.emplace_back(F(Width(indexColumns[i]), 0, static_cast<double>(ordinals[i]))
                                         .Named(std::string("best_") + indexColumns[i].name));
        section.lines.push_back(std::move(line));
        WriteRule('-');
        for (const char* note : notes)
            section.Line(note);
    }

private:
    std::int32_t Width(const IndexColumn& column) const {
        return column.isLong ? columns.Long : columns.Short;
    }

    void AddMoments(ReportLine& line, const stats::MomentStatisticsResult& moments, const std::string& whose,
                    const std::string& place) {
        const auto add = [&](double value, const std::string& name) {
            line.pieces.emplace_back(
                PlacedNumber(F, columns.Long, columns.Statistics, value, place + ": " + name)
                    .Named(name + "_" + whose));
        };
        add(moments.Mean, "Mean");
        add(moments.SD, "SD");
        add(moments.Median, "Median");
    }

    ReportSection& section;
    const ReportColumns& columns;
};

} // namespace

std::string Centred(std::int32_t width, std::string_view text) {
    Field field{std::string(text), width, 0, AlignCentre};
    if (auto shown = FormatField(field))
        return std::move(*shown);
    throw RunFailure(QuotedForMessage(text) + " does not fit a column of width " + std::to_string(width));
}

ReportField PlacedNumber(ReportField (*format)(std::int32_t, std::int32_t, CellValue), std::int32_t width,
                         std::int32_t decimals, double value, const std::string& place) {
    try {
        return format(width, decimals, value);
    } catch (const RunFailure& failure) {
        throw RunFailure(place + ": " + failure.what());
    }
}

Adequacy WriteAdequacy(Report& report, const ComparisonData& data, const ReportColumns& columns) {
    AdequacyTable table(report.BeginSection("adequacy", "Model Adequacy Indexes"), columns);
    table.WriteHeader();
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
    }
    table.WriteBest(bestOrdinals);
    return adequacy;
}

} // namespace corvane
