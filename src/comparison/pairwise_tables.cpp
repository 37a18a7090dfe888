#include "comparison/pairwise_tables.h"

#include "core/format/text_lists.h"
#include "stats/concordance.h"
#include "stats/correlation.h"
#include "stats/distributions.h"
#include "stats/information_criteria.h"
#include "stats/moments.h"
#include "stats/pair_statistics.h"
#include "stats/pairs.h"
#include "stats/sums.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <initializer_list>
#include <span>
#include <utility>
#include <vector>

namespace corvane {
namespace {

using Sample = std::vector<double>;

/// Decimals, and the widths that are not given, come from the settings and the table's layout.
constexpr Place correlations[] = {
    {"r_*", "comparison.models.r", "", 8},
    {"P_r_*", "comparison.models.r.p", "", 8, 3, Look::Probability},
    {"Cb_*", "concordance.cb", "", 8},
    {"CCC_*", "comparison.models.ccc", "", 8},
    {"P_CCC_*", "comparison.models.ccc.p", "", 8, 3, Look::Probability},
};

constexpr Place squaredErrors[] = {
    {"Mean_*", "comparison.msep.mean", "", 12},
    {"SE_*", "comparison.msep.se", "", 12},
    {"P_*", "comparison.msep.p", "", 12, 3, Look::Probability},
};

constexpr Place deviationCorrelations[] = {
    {"Corr_*", "comparison.deviations.r", "", 8},
    {"P_*", "comparison.deviations.r.p", "", 8, 3, Look::Probability},
};

constexpr Place informationDifferences[] = {
    {"DAIC_*", "comparison.delta_aic", "", 8},
    {"P_*", "comparison.delta_aic.weight", "", 8, 3, Look::Probability},
    {"favoured_*", "comparison.favoured", ".Model ", 2, 0},
    {"ratio_*", "comparison.evidence_ratio", " is ", 6, 1},
    {"other_*", "comparison.other", " times more likely to be correct than model ", 2, 0},
};

/// A line of a table's rows.
struct CellLine {
    const char* label;
    std::string name; ///< Of its place, less the part that varies.
    std::int32_t decimals;
};

/// How the four tables differ.
struct TableLayout {
    std::int32_t cellWidth;
    std::vector<CellLine> lines;
    bool dashesOnEveryLine; ///< In the diagonal cells; otherwise on the first line alone.
};

/// The part that varies in the names of two models' values.
std::string PairTag(const std::vector<ComparedModel>& models, std::size_t i, std::size_t j) {
    return models[i].tag + "_" + models[j].tag;
}

/// A triangle of cells: a row for every model but the last, and in it a cell for every later model.
class PairTable {
public:
    PairTable(ReportSection& reportSection, const std::vector<ComparedModel>& comparedModels,
              ComparisonSteps& comparisonSteps, TableLayout tableLayout)
        : section(reportSection), models(comparedModels), steps(comparisonSteps),
          layout(std::move(tableLayout)) {}

    /// `cellOf(i, j)` gives the values of a cell, one for each line.
    void Write(const std::function<Sample(std::size_t, std::size_t)>& cellOf) {
        std::string head(13, ' ');
        std::vector<std::string> tags;
        for (const ComparedModel& model : models) {
            tags.push_back(model.tag);
            head += Centred(layout.cellWidth, model.tag);
        }
        // The head's line end counts in the rule's length.
        const std::size_t ruleLength = CharacterCount(head) + 2;
        section.BeginTable(std::move(tags));
        section.TableHead(std::move(head));
        section.Rule(ruleLength);
        for (std::size_t i = 0; i + 1 < models.size(); ++i) {
            if (i > 0)
                section.Blank();
            WriteRow(i, cellOf);
        }
        section.Rule(ruleLength);
    }

private:
    void WriteRow(std::size_t i, const std::function<Sample(std::size_t, std::size_t)>& cellOf) {
        std::vector<std::vector<RowItem>> rows;
        for (std::size_t line = 0; line < layout.lines.size(); ++line)
            rows.push_back({RowTitle(i, line)});
        for (std::size_t j = i + 1; j < models.size(); ++j) {
            const Sample cell = cellOf(i, j);
            for (std::size_t line = 0; line < rows.size(); ++line)
                rows[line].push_back(Item(layout.lines[line], i, j, cell[line]));
            steps.Done();
        }
        for (const std::vector<RowItem>& row : rows)
            section.TableRow(row, i + 1);
    }

    /// A line's label, the blanks of the cells that have their value elsewhere, and the diagonal's dashes.
    std::string RowTitle(std::size_t i, std::size_t line) const {
        const auto width = static_cast<std::size_t>(layout.cellWidth);
        const bool dashes = line == 0 || layout.dashesOnEveryLine;
        return (line == 0 ? Centred(3, models[i].tag) : std::string(3, ' ')) + layout.lines[line].label +
               std::string(width * i, ' ') +
               (dashes ? Centred(layout.cellWidth, "-----") : std::string(width, ' '));
    }

    RowItem Item(const CellLine& line, std::size_t i, std::size_t j, double value) const {
        return RowItem(line.name + "_*", value, PairTag(models, i, j))
            .Sized(layout.cellWidth, line.decimals)
            .Of(models[i].path + " and " + models[j].path + ": " +
                std::string(TrimBlanks(
                    std::string_view(line.label).substr(0, std::string_view(line.label).find(':')))) +
                " of " + section.title);
    }

    ReportSection& section;
    const std::vector<ComparedModel>& models;
    ComparisonSteps& steps;
    TableLayout layout;
};

void WriteNotes(ReportSection& section, std::initializer_list<const char*> notes) {
    for (const char* note : notes)
        section.Note(note);
    section.Blank();
}

void WriteCorrelations(Report& report, const ComparisonData& data, std::size_t n,
                       const ReportColumns& columns, ComparisonSteps& steps) {
    steps.BeginStage(CorrelationsSection.progress);
    ReportSection& section = report.BeginSection(CorrelationsSection.frame);
    WriteNotes(section,
               {"!! .Pearson correlation among model-predicted values",
                "!! .Concordance correlation among model-predicted values", "!! .Cb measures accuracy",
                "!! .The P-value indicates if r and CCC are different from zero"});
    std::vector<Sample> predictions(data.models.size());
    std::vector<stats::CentredSample> centred;
    std::vector<double> sds;
    for (std::size_t model = 0; model < predictions.size(); ++model) {
        steps.Look();
        for (std::size_t row = 0; row < n; ++row)
            predictions[model].push_back(data.Predicted(model, row));
        centred.push_back(stats::Centre(predictions[model]));
        sds.push_back(stats::MeanVariance(predictions[model]).SD);
    }

    const std::int32_t decimals = columns.Correlations;
    PairTable table(section, data.models, steps,
                    {8,
                     {{" r      : ", "r", decimals},
                      {" P-value: ", "P_r", columns.Probability},
                      {" Cb     : ", "Cb", decimals},
                      {" CCC    : ", "CCC", decimals},
                      {" P-value: ", "P_CCC", columns.Probability}},
                     true});
    table.Write([&](std::size_t i, std::size_t j) -> Sample {
        const stats::Pearson pearson = stats::PearsonCorrelation(centred[i], centred[j]);
        const double meanDifference = stats::MeanDifference(predictions[j], predictions[i]);
        const stats::Concordance concordance =
            stats::ConcordanceStatistics({n, pearson.r, meanDifference, sds[j], sds[i], 0});
        return {pearson.r, pearson.P, concordance.Cb, concordance.rc, concordance.P};
    });
}

/// Observed less predicted values of a model, in units of 2^Exponent, in which the largest is just below 1: a
/// square of theirs has a place in a double whatever the data's unit.
struct Deviations {
    int Exponent = 0;
    Sample Values;
};

std::vector<Deviations> DeviationsOf(const ComparisonData& data, std::size_t rows,
                                     const ComparisonSteps& steps) {
    std::vector<Deviations> deviations(data.models.size());
    for (std::size_t model = 0; model < deviations.size(); ++model) {
        steps.Look();
        Sample observed, predicted;
        for (std::size_t row = 0; row < rows; ++row) {
            observed.push_back(data.Observed(row));
            predicted.push_back(data.Predicted(model, row));
        }
        const int exponent = stats::Pairs(predicted, observed).CommonExponent();
        Sample difference = stats::Scaled(observed, exponent);
        predicted = stats::Scaled(predicted, exponent);
        for (std::size_t row = 0; row < rows; ++row)
            difference[row] -= predicted[row];
        const int own = stats::ScaleExponent(difference);
        deviations[model] = {exponent + own, stats::Scaled(difference, own)};
    }
    return deviations;
}

void WriteSquaredErrors(Report& report, const ComparisonData& data, const std::vector<Deviations>& deviations,
                        const ReportColumns& columns, ComparisonSteps& steps) {
    ReportSection& section = report.BeginSection(PairwiseMsepSection.frame);
    WriteNotes(
        section,
        {"!! .A positive mean value implies the 'column' model gives a better fit than the 'row' model",
         "!! .The mean is the average of the square error of prediction (SEP) differences",
         "!! .The SE is the standard deviation of the SEP differences divided by square root of n",
         "!! .The P-value indicates if the mean value is different from zero using a t-test"});
    PairTable table(section, data.models, steps,
                    {12,
                     {{" Mean   : ", "Mean", columns.Statistics},
                      {" SE     : ", "SE", columns.Statistics},
                      {" P-value: ", "P", columns.Probability}},
                     true});
    table.Write([&](std::size_t i, std::size_t j) -> Sample {
        const Deviations &row = deviations[i], &column = deviations[j];
        const int exponent = std::max(row.Exponent, column.Exponent);
        const double ofRow = std::ldexp(1.0, row.Exponent - exponent),
                     ofColumn = std::ldexp(1.0, column.Exponent - exponent);
        Sample differences(row.Values.size());
        for (std::size_t k = 0; k < differences.size(); ++k)
            differences[k] =
                stats::Square(ofRow * row.Values[k]) - stats::Square(ofColumn * column.Values[k]);
        const stats::MeanVarianceResult moments = stats::MeanVariance(differences);
        const double count = static_cast<double>(differences.size());
        const double SE = Divide(moments.SD, SquareRoot(count));
        const double P = SE == 0 ? 1 : stats::TailT(Divide(moments.Mean, SE), count - 1);
        return {stats::Unscale(moments.Mean, 2 * exponent), stats::Unscale(SE, 2 * exponent), P};
    });
}

void WriteDeviationCorrelations(Report& report, const ComparisonData& data,
                                const std::vector<Deviations>& deviations, const ReportColumns& columns,
                                ComparisonSteps& steps) {
    steps.BeginStage(DeviationCorrelationsSection.progress);
    ReportSection& section = report.BeginSection(DeviationCorrelationsSection.frame);
    WriteNotes(section, {"!! .The P-value indicates if the deviation correlation is different from zero"});
    std::vector<stats::CentredSample> centred;
    centred.reserve(deviations.size());
    for (const Deviations& deviation : deviations)
        centred.push_back(stats::Centre(deviation.Values));

    PairTable table(
        section, data.models, steps,
        {8, {{" Corr   : ", "Corr", columns.Correlations}, {" P-value: ", "P", columns.Probability}}, false});
    table.Write([&](std::size_t i, std::size_t j) -> Sample {
        const stats::Pearson pearson = stats::PearsonCorrelation(centred[i], centred[j]);
        return {pearson.r, pearson.P};
    });
}

/// Which of two models, by their ordinals, is the likelier one. The text's bound is 10000 and the test's
/// 9999; without a ratio, since one weight is 0, the model is as much likelier.
void WriteLikelihood(ReportSection& section, const std::string& tag, std::size_t row, std::size_t column,
                     double difference) {
    constexpr double largestRatio = 9999;
    const bool rowFavoured = difference >= 0;
    const RowItem favoured("favoured_*", static_cast<double>(rowFavoured ? row : column), tag);
    const RowItem other("other_*", static_cast<double>(rowFavoured ? column : row), tag);
    const auto ratio = stats::EvidenceRatio(difference);
    if (ratio && *ratio <= largestRatio)
        section.Row({favoured, {"ratio_*", *ratio, tag}, other});
    else
        section.Row({favoured, " is >10000", other});
}

void WriteInformationDifferences(Report& report, const ComparisonData& data,
                                 std::span<const double> AICcPrime, const ReportColumns& columns,
                                 ComparisonSteps& steps) {
    ReportSection& section = report.BeginSection(DeltaAicSection.frame);
    WriteNotes(
        section,
        {"!! .There is a P-value probability that model (i + 1) (column) is correct",
         "    and (1 - P) probability that model i (row) is correct",
         "!! .Correct model means more likely, higher likelihood in predicting observed values (linearly)",
         "!! .The DAIC is based on the SSE of the linear regression between observed and predicted values "
         "and "
         "uses AIC3"});
    const auto difference = [&](std::size_t i, std::size_t j) { return AICcPrime[j] - AICcPrime[i]; };
    PairTable table(
        section, data.models, steps,
        {8, {{" DAIC   : ", "DAIC", columns.Correlations}, {" P-value: ", "P", columns.Probability}}, false});
    table.Write([&](std::size_t i, std::size_t j) -> Sample {
        return {difference(i, j), stats::AkaikeWeight(difference(i, j))};
    });
    for (std::size_t i = 0; i < data.models.size(); ++i)
        for (std::size_t j = i + 1; j < data.models.size(); ++j)
            WriteLikelihood(section, PairTag(data.models, i, j), i + 1, j + 1, difference(i, j));
}

} // namespace

void WritePairwiseTables(Report& report, const ComparisonData& data, const Adequacy& adequacy,
                         const ReportColumns& columns, ComparisonSteps& steps) {
    const std::size_t n = adequacy.ValidCount;
    for (std::size_t row = 0; row < n; ++row)
        static_cast<void>(data.Observed(row)); // throws where a blank row is before the end
    WriteCorrelations(report, data, n, columns, steps);
    steps.BeginStage(PairwiseMsepSection.progress);
    const std::vector<Deviations> deviations = DeviationsOf(data, n, steps);
    WriteSquaredErrors(report, data, deviations, columns, steps);
    WriteDeviationCorrelations(report, data, deviations, columns, steps);
    WriteInformationDifferences(report, data, adequacy.AICcPrime, columns, steps);
}

const SectionDefinition CorrelationsSection{
    .frame = {"correlations", "Correlation Coefficient Analysis", {correlations}},
    .progress = "Correlations...",
    .meaning = "How far the predictions of two models agree with each other.",
    .papers = "neter1996; lin1989",
};

const SectionDefinition PairwiseMsepSection{
    .frame = {"pairwise_msep", "Pairwise MSEP Analysis (Wallach and Goffinet, 1989)", {squaredErrors}},
    .progress = "Squared errors...",
    .meaning = "Whether the squared errors of two models differ.",
    .papers = "wallach1989",
};

const SectionDefinition DeviationCorrelationsSection{
    .frame = {"deviation_correlations", "Pairwise Deviation Correlation Analysis", {deviationCorrelations}},
    .progress = "Deviations...",
    .meaning = "Whether two models go wrong on the same pairs.",
    .papers = "neter1996",
};

const SectionDefinition DeltaAicSection{
    .frame = {"delta_aic",
              "Delta Akaike's Information Criterion (DAIC) (Burnham and Anderson, 2002)",
              {informationDifferences}},
    .meaning = "Which of two models is the likelier one by the information criterion of its regression.",
    .papers = "burnham2002",
};

} // namespace corvane
