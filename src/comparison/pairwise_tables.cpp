#include "comparison/pairwise_tables.h"

#include "report/transition.h"

#include "core/format/numbers.h"
#include "core/format/text_lists.h"
#include "stats/concordance.h"
#include "stats/correlation.h"
#include "stats/distributions.h"
#include "stats/moments.h"
#include "stats/sums.h"

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
using Cell = std::vector<ReportPiece>;

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

    /// `cellOf(i, j)` gives the fields of a cell.
    void Write(const std::function<Cell(std::size_t, std::size_t)>& cellOf) {
        std::string header(13, ' ');
        for (const ComparedModel& model : models)
            header += Centred(layout.cellWidth, model.tag);
        // The header's line end counts in the rule's length.
        const std::string rule(CharacterCount(header) + 2, '-');
        Line(section, header);
        Line(section, rule);
        for (std::size_t i = 0; i + 1 < models.size(); ++i) {
            if (i > 0)
                section.Blank();
            WriteRow(i, cellOf);
        }
        Line(section, rule);
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
        Line(section, note);
    section.Blank();
}

/// A sample of each model: its value in each of the rows in use.
template<class Value>
std::vector<Sample> Samples(const ComparisonData& data, std::size_t rows, Value&& value) {
    std::vector<Sample> samples(data.models.size());
    for (std::size_t model = 0; model < samples.size(); ++model)
        for (std::size_t row = 0; row < rows; ++row)
            samples[model].push_back(value(model, row));
    return samples;
}

std::vector<stats::CentredSample> CentredSamples(const std::vector<Sample>& samples) {
    std::vector<stats::CentredSample> centred;
    centred.reserve(samples.size());
    for (const Sample& sample : samples)
        centred.push_back(stats::Centre(sample));
    return centred;
}

void WriteCorrelations(Report& report, const ComparisonData& data, std::size_t n,
                       const ReportColumns& columns) {
    ReportSection& section = report.BeginSection({"correlations", "Correlation Coefficient Analysis"});
    WriteNotes(section,
               {"!! .Pearson correlation among model-predicted values",
                "!! .Concordance correlation among model-predicted values", "!! .Cb measures accuracy",
                "!! .The P-value indicates if r and CCC are different from zero"});
    const std::vector<Sample> predictions =
        Samples(data, n, [&](std::size_t model, std::size_t row) { return data.Predicted(model, row); });
    const std::vector<stats::CentredSample> centred = CentredSamples(predictions);
    std::vector<stats::MeanVarianceResult> moments;
    moments.reserve(predictions.size());
    for (const Sample& sample : predictions)
        moments.push_back(stats::MeanVariance(sample));

    constexpr std::int32_t width = 8;
    PairTable table(section, data.models,
                    {width, {" r      : ", " P-value: ", " Cb     : ", " CCC    : ", " P-value: "}, true});
    table.Write([&](std::size_t i, std::size_t j) {
        const stats::Pearson pearson = stats::PearsonCorrelation(centred[i], centred[j]);
        const stats::Concordance concordance = stats::ConcordanceStatistics(
            n, pearson.r, moments[j].Mean, moments[i].Mean, moments[j].Variance, moments[i].Variance, 0);
        Cell cell;
        cell.push_back(F(width, columns.Correlations, pearson.r).Named(table.Name("r", i, j)));
        cell.push_back(FP(width, columns.Probability, pearson.P).Named(table.Name("P_r", i, j)));
        cell.push_back(F(width, columns.Correlations, concordance.Cb).Named(table.Name("Cb", i, j)));
        cell.push_back(F(width, columns.Correlations, concordance.rc).Named(table.Name("CCC", i, j)));
        cell.push_back(FP(width, columns.Probability, concordance.P).Named(table.Name("P_CCC", i, j)));
        return cell;
    });
}

void WriteSquaredErrors(Report& report, const ComparisonData& data, std::size_t n,
                        const ReportColumns& columns) {
    ReportSection& section =
        report.BeginSection({"pairwise_msep", "Pairwise MSEP Analysis (Wallach and Goffinet, 1989)"});
    WriteNotes(
        section,
        {"!! .A positive mean value implies the 'column' model gives a better fit than the 'row' model",
         "!! .The mean is the average of the square error of prediction (SEP) differences",
         "!! .The SE is the standard deviation of the SEP differences divided by square root of n",
         "!! .The P-value indicates if the mean value is different from zero using a t-test"});
    const std::vector<Sample> squares = Samples(data, n, [&](std::size_t model, std::size_t row) {
        const double square = stats::Square(data.Observed(row) - data.Predicted(model, row));
        if (!std::isfinite(square))
            throw RunFailure(data.models[model].path + ": row " + std::to_string(row + 1) +
                             ": the squared error is too large a number");
        return square;
    });

    constexpr std::int32_t width = 12;
    PairTable table(section, data.models, {width, {" Mean   : ", " SE     : ", " P-value: "}, true});
    Sample differences(n);
    table.Write([&](std::size_t i, std::size_t j) {
        for (std::size_t row = 0; row < n; ++row)
            differences[row] = squares[i][row] - squares[j][row];
        const auto [mean, variance] = stats::MeanVariance(differences);
        const double count = static_cast<double>(n);
        const double SE = Divide(SquareRoot(variance), SquareRoot(count));
        const double P = SE == 0 ? 1 : stats::TailT(Divide(mean, SE), count - 1);
        Cell cell;
        cell.push_back(F(width, columns.Statistics, mean).Named(table.Name("Mean", i, j)));
        cell.push_back(F(width, columns.Statistics, SE).Named(table.Name("SE", i, j)));
        cell.push_back(FP(width, columns.Probability, P).Named(table.Name("P", i, j)));
        return cell;
    });
}

void WriteDeviationCorrelations(Report& report, const ComparisonData& data, std::size_t n,
                                const ReportColumns& columns) {
    ReportSection& section =
        report.BeginSection({"deviation_correlations", "Pairwise Deviation Correlation Analysis"});
    WriteNotes(section, {"!! .The P-value indicates if the deviation correlation is different from zero"});
    const std::vector<stats::CentredSample> deviations =
        CentredSamples(Samples(data, n, [&](std::size_t model, std::size_t row) {
            return data.Observed(row) - data.Predicted(model, row);
        }));

    constexpr std::int32_t width = 8;
    PairTable table(section, data.models, {width, {" Corr   : ", " P-value: "}, false});
    table.Write([&](std::size_t i, std::size_t j) {
        const stats::Pearson pearson = stats::PearsonCorrelation(deviations[i], deviations[j]);
        Cell cell;
        cell.push_back(F(width, columns.Correlations, pearson.r).Named(table.Name("Corr", i, j)));
        cell.push_back(FP(width, columns.Probability, pearson.P).Named(table.Name("P", i, j)));
        return cell;
    });
}

/// The weight of the column model, exp(-D/2) / (1 + exp(-D/2)), by whichever of its two forms does not
/// overflow.
double Weight(double D) {
    return D < 0 ? 1 / (1 + std::exp(0.5 * D)) : std::exp(-0.5 * D) / (1 + std::exp(-0.5 * D));
}

/// Which of two models, by their ordinals, is the likelier one. The text's bound is 10000 and the test's
/// 9999.
ReportLine LikelihoodSentence(const PairTable& table, std::size_t i, std::size_t j, double D, double P) {
    constexpr double largestRatio = 9999;
    const bool rowFavoured = D >= 0;
    const auto ordinal = [&](bool row, const char* name) {
        return F(2, 0, static_cast<double>((row ? i : j) + 1)).Named(table.Name(name, i, j));
    };
    const bool hasRatio = rowFavoured || P != 1;
    const double ratio = !hasRatio ? 0 : rowFavoured ? (1 - P) / P : P / (1 - P);
    if (!std::isfinite(ratio))
        throw RunFailure("the AICc' of models " + std::to_string(i + 1) + " and " + std::to_string(j + 1) +
                         " differ by " + NumberText(D) +
                         ", and the latter's probability is too small to divide by");

    ReportLine line;
    line.pieces.emplace_back(".Model ");
    line.pieces.emplace_back(ordinal(rowFavoured, "favoured"));
    if (hasRatio && ratio <= largestRatio) {
        line.pieces.emplace_back(" is ");
        line.pieces.emplace_back(F(6, 1, ratio).Named(table.Name("ratio", i, j)));
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
        {"delta_aic", "Delta Akaike's Information Criterion (DAIC) (Burnham and Anderson, 2002)"});
    WriteNotes(
        section,
        {"!! .There is a P-value probability that model (i + 1) (column) is correct",
         "    and (1 - P) probability that model i (row) is correct",
         "!! .Correct model means more likely, higher likelihood in predicting observed values (linearly)",
         "!! .The DAIC is based on the SSE of the linear regression between observed and predicted values "
         "and "
         "uses AIC3"});
    constexpr std::int32_t width = 8;
    PairTable table(section, data.models, {width, {" DAIC   : ", " P-value: "}, false});
    std::vector<ReportLine> sentences;
    table.Write([&](std::size_t i, std::size_t j) {
        const double D = AICcPrime[j] - AICcPrime[i];
        const double P = Weight(D);
        sentences.push_back(LikelihoodSentence(table, i, j, D, P));
        Cell cell;
        cell.push_back(F(width, columns.Correlations, D).Named(table.Name("DAIC", i, j)));
        cell.push_back(FP(width, columns.Probability, P).Named(table.Name("P", i, j)));
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
    WriteSquaredErrors(report, data, n, columns);
    feedback.ShowProgress("Deviations...");
    WriteDeviationCorrelations(report, data, n, columns);
    WriteInformationDifferences(report, data, adequacy.AICcPrime, columns);
}

} // namespace corvane
