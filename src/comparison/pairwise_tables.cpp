#include "comparison/pairwise_tables.h"

#include "core/format/text_lists.h"
#include "stats/concordance.h"
#include "stats/correlation.h"
#include "stats/distributions.h"
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
/// The fields of a cell, one for each line of a row.
using Cell = std::vector<ReportField>;

/// How the four tables differ.
struct TableLayout {
    std::int32_t cellWidth;
    std::vector<const char*> labels; ///< Of the lines of a row.
    bool dashesOnEveryLine;          ///< In the diagonal cells; otherwise on the first line alone.
};

/// A triangle of cells: a row for every model but the last, and in it a cell for every later model.
class PairTable {
public:
    PairTable(ReportSection& reportSection, const std::vector<ComparedModel>& comparedModels,
              TableLayout tableLayout)
        : section(reportSection), models(comparedModels), layout(std::move(tableLayout)) {}

    /// The machine name of a value in the cell of two models.
    std::string Name(const char* value, std::size_t i, std::size_t j) const {
        return std::string(value) + "_" + models[i].tag + "_" + models[j].tag;
    }

    /// A number in the cell of two models, `value` its machine name.
    ReportField Number(const char* value, std::size_t i, std::size_t j, std::int32_t decimals, double number,
                       bool probability = false) const {
        const std::string place = models[i].path + " and " + models[j].path + ": " +
                                  (probability ? "P-value" : value) + " of " + section.title;
        return PlacedNumber(probability ? FP : F, layout.cellWidth, decimals, number, place)
            .Named(Name(value, i, j));
    }

    /// `cellOf(i, j)` gives the fields of a cell.
    void Write(const std::function<Cell(std::size_t, std::size_t)>& cellOf) {
        std::string header(13, ' ');
        for (const ComparedModel& model : models)
            header += Centred(layout.cellWidth, model.tag);
        // The header's line end counts in the rule's length.
        const std::string rule(CharacterCount(header) + 2, '-');
        section.Line(header);
        section.Line(rule);
        for (std::size_t i = 0; i + 1 < models.size(); ++i) {
            if (i > 0)
                section.Line();
            WriteRow(i, cellOf);
        }
        section.Line(rule);
    }

private:
    void WriteRow(std::size_t i, const std::function<Cell(std::size_t, std::size_t)>& cellOf) {
        const auto width = static_cast<std::size_t>(layout.cellWidth);
        std::vector<ReportLine> lines(layout.labels.size());
        for (std::size_t line = 0; line < lines.size(); ++line) {
            const bool dashes = line == 0 || layout.dashesOnEveryLine;
            lines[line].pieces.emplace_back(
                (line == 0 ? Centred(3, models[i].tag) : std::string(3, ' ')) + layout.labels[line] +
                std::string(width * i, ' ') +
                (dashes ? Centred(layout.cellWidth, "-----") : std::string(width, ' ')));
        }
        for (std::size_t j = i + 1; j < models.size(); ++j) {
            Cell cell = cellOf(i, j);
            for (std::size_t line = 0; line < lines.size(); ++line)
                lines[line].pieces.emplace_back(std::move(cell[line]));
        }
        for (ReportLine& line : lines)
            section.lines.push_back(std::move(line));
    }

    ReportSection& section;
    const std::vector<ComparedModel>& models;
    TableLayout layout;
};

void WriteNotes(ReportSection& section, std::initializer_list<const char*> notes) {
    for (const char* note : notes)
        section.Line(note);
    section.Line();
}

void WriteCorrelations(Report& report, const ComparisonData& data, std::size_t n,
                       const ReportColumns& columns) {
    ReportSection& section = report.BeginSection("correlations", "Correlation Coefficient Analysis");
    WriteNotes(section,
               {"!! .Pearson correlation among model-predicted values",
                "!! .Concordance correlation among model-predicted values", "!! .Cb measures accuracy",
                "!! .The P-value indicates if r and CCC are different from zero"});
    std::vector<Sample> predictions(data.models.size());
    std::vector<stats::CentredSample> centred;
    std::vector<double> sds;
    for (std::size_t model = 0; model < predictions.size(); ++model) {
        for (std::size_t row = 0; row < n; ++row)
            predictions[model].push_back(data.Predicted(model, row));
        centred.push_back(stats::Centre(predictions[model]));
        sds.push_back(stats::MeanVariance(predictions[model]).SD);
    }

    PairTable table(section, data.models,
                    {8, {" r      : ", " P-value: ", " Cb     : ", " CCC    : ", " P-value: "}, true});
    table.Write([&](std::size_t i, std::size_t j) {
        const stats::Pearson pearson = stats::PearsonCorrelation(centred[i], centred[j]);
        const double meanDifference = stats::MeanDifference(predictions[j], predictions[i]);
        const stats::Concordance concordance =
            stats::ConcordanceStatistics({n, pearson.r, meanDifference, sds[j], sds[i], 0});
        Cell cell;
        cell.push_back(table.Number("r", i, j, columns.Correlations, pearson.r));
        cell.push_back(table.Number("P_r", i, j, columns.Probability, pearson.P, true));
        cell.push_back(table.Number("Cb", i, j, columns.Correlations, concordance.Cb));
        cell.push_back(table.Number("CCC", i, j, columns.Correlations, concordance.rc));
        cell.push_back(table.Number("P_CCC", i, j, columns.Probability, concordance.P, true));
        return cell;
    });
}

/// Observed less predicted values of a model, in units of 2^Exponent, in which the largest is just below 1: a
/// square of theirs has a place in a double whatever the data's unit.
struct Deviations {
    int Exponent = 0;
    Sample Values;
};

std::vector<Deviations> DeviationsOf(const ComparisonData& data, std::size_t rows) {
    std::vector<Deviations> deviations(data.models.size());
    for (std::size_t model = 0; model < deviations.size(); ++model) {
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
                        const ReportColumns& columns) {
    ReportSection& section =
        report.BeginSection("pairwise_msep", "Pairwise MSEP Analysis (Wallach and Goffinet, 1989)");
    WriteNotes(
        section,
        {"!! .A positive mean value implies the 'column' model gives a better fit than the 'row' model",
         "!! .The mean is the average of the square error of prediction (SEP) differences",
         "!! .The SE is the standard deviation of the SEP differences divided by square root of n",
         "!! .The P-value indicates if the mean value is different from zero using a t-test"});
    PairTable table(section, data.models, {12, {" Mean   : ", " SE     : ", " P-value: "}, true});
    table.Write([&](std::size_t i, std::size_t j) {
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
        Cell cell;
        cell.push_back(
            table.Number("Mean", i, j, columns.Statistics, stats::Unscale(moments.Mean, 2 * exponent)));
        cell.push_back(table.Number("SE", i, j, columns.Statistics, stats::Unscale(SE, 2 * exponent)));
        cell.push_back(table.Number("P", i, j, columns.Probability, P, true));
        return cell;
    });
}

void WriteDeviationCorrelations(Report& report, const ComparisonData& data,
                                const std::vector<Deviations>& deviations, const ReportColumns& columns) {
    ReportSection& section =
        report.BeginSection("deviation_correlations", "Pairwise Deviation Correlation Analysis");
    WriteNotes(section, {"!! .The P-value indicates if the deviation correlation is different from zero"});
    std::vector<stats::CentredSample> centred;
    centred.reserve(deviations.size());
    for (const Deviations& deviation : deviations)
        centred.push_back(stats::Centre(deviation.Values));

    PairTable table(section, data.models, {8, {" Corr   : ", " P-value: "}, false});
    table.Write([&](std::size_t i, std::size_t j) {
        const stats::Pearson pearson = stats::PearsonCorrelation(centred[i], centred[j]);
        Cell cell;
        cell.push_back(table.Number("Corr", i, j, columns.Correlations, pearson.r));
        cell.push_back(table.Number("P", i, j, columns.Probability, pearson.P, true));
        return cell;
    });
}

/// The weight of the column model, exp(-D/2) / (1 + exp(-D/2)), in the form that ends at 0 and 1 where an
/// exponential leaves the range of a double.
double Weight(double D) {
    return 1 / (1 + std::exp(0.5 * D));
}

/// Which of two models, by their ordinals, is the likelier one. The text's bound is 10000 and the test's
/// 9999; without a ratio, since one weight is 0, the model is as much likelier.
ReportLine LikelihoodSentence(const PairTable& table, std::size_t i, std::size_t j, double D, double P) {
    constexpr double largestRatio = 9999;
    const bool rowFavoured = D >= 0;
    const auto ordinal = [&](bool row, const char* name) {
        return F(2, 0, static_cast<double>((row ? i : j) + 1)).Named(table.Name(name, i, j));
    };
    const double better = rowFavoured ? 1 - P : P, worse = rowFavoured ? P : 1 - P;

    ReportLine line;
    line.pieces.emplace_back(".Model ");
    line.pieces.emplace_back(ordinal(rowFavoured, "favoured"));
    if (worse > 0 && better / worse <= largestRatio) {
        line.pieces.emplace_back(" is ");
        line.pieces.emplace_back(F(6, 1, better / worse).Named(table.Name("ratio", i, j)));
    } else {
        line.pieces.emplace_back(" is >10000");
    }
    line.pieces.emplace_back(" times more likely to be correct than model ");
    line.pieces.emplace_back(ordinal(!rowFavoured, "other"));
    return line;
}

void WriteInformationDifferences(Report& report, const ComparisonData& data,
                                 std::span<const double> AICcPrime, const ReportColumns& columns) {
    ReportSection& section = report.BeginSection(
        "delta_aic", "Delta Akaike's Information Criterion (DAIC) (Burnham and Anderson, 2002)");
    WriteNotes(
        section,
        {"!! .There is a P-value probability that model (i + 1) (column) is correct",
         "    and (1 - P) probability that model i (row) is correct",
         "!! .Correct model means more likely, higher likelihood in predicting observed values (linearly)",
         "!! .The DAIC is based on the SSE of the linear regression between observed and predicted values "
         "and "
         "uses AIC3"});
    PairTable table(section, data.models, {8, {" DAIC   : ", " P-value: "}, false});
    std::vector<ReportLine> sentences;
    table.Write([&](std::size_t i, std::size_t j) {
        const double D = AICcPrime[j] - AICcPrime[i];
        const double P = Weight(D);
        sentences.push_back(LikelihoodSentence(table, i, j, D, P));
        Cell cell;
        cell.push_back(table.Number("DAIC", i, j, columns.Correlations, D));
        cell.push_back(table.Number("P", i, j, columns.Probability, P, true));
        return cell;
    });
    for (ReportLine& sentence : sentences)
        section.lines.push_back(std::move(sentence));
}

} // namespace

void WritePairwiseTables(Report& report, const ComparisonData& data, const Adequacy& adequacy,
                         const ReportColumns& columns, Feedback& feedback) {
    const std::size_t n = adequacy.ValidCount;
    for (std::size_t row = 0; row < n; ++row)
        static_cast<void>(data.Observed(row)); // throws where a blank row stands before the end
    feedback.ShowProgress("Correlations...");
    WriteCorrelations(report, data, n, columns);
    feedback.ShowProgress("Squared errors...");
    const std::vector<Deviations> deviations = DeviationsOf(data, n);
    WriteSquaredErrors(report, data, deviations, columns);
    feedback.ShowProgress("Deviations...");
    WriteDeviationCorrelations(report, data, deviations, columns);
    WriteInformationDifferences(report, data, adequacy.AICcPrime, columns);
}

} // namespace corvane
