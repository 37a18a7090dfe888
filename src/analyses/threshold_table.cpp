#include "analyses/threshold_table.h"

#include "report/transition.h"

#include "core/format/numbers.h"
#include "core/format/text_lists.h"

#include <string>

namespace corvane {
namespace {

/// The two tables: their words, and the columns that they read.
struct Kind {
    const char* name; ///< In the names of the values.
    std::string AnalysisOptions::*text;
    const char *label, *words; ///< In the report and in warnings.
    const char *title, *columnTitles;
    Column columnX, columnY;
    const char *wordsX, *wordsY;
};

constexpr Kind byRanks{
    .name = "Rank.",
    .text = &AnalysisOptions::TRESHOLD_RANK,
    .label = "Rank threshold for: ",
    .words = "by ranks",
    .title = "                   Model-predicted     ",
    .columnTitles = "Observed     Below         Above       ",
    .columnX = ColumnRankX,
    .columnY = ColumnRankY,
    .wordsX = "Rank X",
    .wordsY = "Rank Y",
};

constexpr Kind byValues{
    .name = "XY.",
    .text = &AnalysisOptions::TRESHOLD_XY,
    .label = "XY datapoints threshold for: ",
    .words = "by X and Y",
    .title = "                   Model-predicted",
    .columnTitles = "Observed     Below         Above",
    .columnX = ColumnX,
    .columnY = ColumnY,
    .wordsX = "X",
    .wordsY = "Y",
};

struct Counts {
    double BelowBelow = 0, XBelowYAbove = 0, XAboveYBelow = 0, AboveAbove = 0;
    double Identical = 0, Total = 0;
    double AllIdentical = 0; ///< X, Y and threshold
};

double NumberAt(const DataMatrix& cells, int column, std::int32_t row, const char* words) {
    const CellView cell = cells.At(column, row);
    if (const auto number = CellNumber(cell))
        return *number;
    throw RunFailure("row " + std::to_string(row) + ": " + words + " is " + QuotedForMessage(CellText(cell)) +
                     ", not a number");
}

/// Counts the rows around the threshold; a point on it in one coordinate counts as below. At a cell that is
/// no number counting ends, and what was counted stays.
void ErrorAnalysis(const DataMatrix& cells, const Kind& kind, double threshold, Counts& counts) {
    const std::int32_t last = cells.LastFilledRow();
    for (std::int32_t row = 1; row <= last; ++row) {
        if (IsEmpty(cells.At(ColumnRankX, row)))
            continue;
        const double x = NumberAt(cells, kind.columnX, row, kind.wordsX);
        const double y = NumberAt(cells, kind.columnY, row, kind.wordsY);
        if (x == threshold && y == threshold)
            ++counts.AllIdentical; // in none of the four cells
        else if (x <= threshold)
            ++(y <= threshold ? counts.BelowBelow : counts.XBelowYAbove);
        else
            ++(y <= threshold ? counts.XAboveYBelow : counts.AboveAbove);
        if (x == y)
            ++counts.Identical;
        ++counts.Total;
    }
}

void Warn(RunState& run, const Kind& kind, const std::string& text) {
    run.warnings.push_back(std::string("threshold table ") + kind.words + ": " + text);
    run.FileFailure(run.warnings.back());
}

/// A text that cannot be converted leaves the threshold as it was.
void ReadThreshold(RunState& run, const Kind& kind, std::int32_t& threshold) {
    const std::string& text = run.Options().*kind.text;
    const auto failure = Statement([&] {
        const auto number = ReadNumber(text);
        if (!number)
            throw RunFailure(QuotedForMessage(text) + " is not a number");
        threshold = Integer32(*number);
    });
    if (failure)
        Warn(run, kind, *failure + "; the threshold is " + std::to_string(threshold));
}

Counts CountRows(RunState& run, const Kind& kind, double threshold) {
    Counts counts;
    const auto failure = Statement([&] { ErrorAnalysis(run.dataset.cells, kind, threshold, counts); });
    if (failure)
        Warn(run, kind, *failure + "; counting ended there, with a total of " + NumberText(counts.Total));
    return counts;
}

void WriteTable(RunState& run, ReportSection& section, const Kind& kind, std::int32_t& threshold) {
    ReadThreshold(run, kind, threshold);
    const Counts counts = CountRows(run, kind, threshold);
    const std::string rule(39, '-'), name = kind.name;
    section.Blank();
    run.Statement([&] {
        Line(section, kind.label, F(10, 5, static_cast<double>(threshold)).Named(name + "Threshold"));
    });
    Line(section, kind.title);
    Line(section, "             --------------------------");
    Line(section, kind.columnTitles);
    Line(section, rule);
    const auto writeRow = [&](const char* label, const std::string& place, double below, double above) {
        const auto share = [&](double cell) { return F(5, 2, Divide(cell * 100, counts.Total)); };
        run.Statement([&] {
            Line(section, label, F(5, 0, below).Named(name + "XBelow" + place), " (",
                 share(below).Named(name + "XBelow" + place + "Percent"), ")  ",
                 F(5, 0, above).Named(name + "XAbove" + place), " (",
                 share(above).Named(name + "XAbove" + place + "Percent"), ")");
        });
    };
    writeRow("Below      ", "YBelow", counts.BelowBelow, counts.XAboveYBelow);
    writeRow("Above      ", "YAbove", counts.XBelowYAbove, counts.AboveAbove);
    Line(section, rule);
    if (counts.Identical > 0)
        run.Statement([&] {
            Line(section, "Identical X and Y: ", F(5, 0, counts.Identical).Named(name + "Identical"));
        });
    if (counts.AllIdentical > 0)
        run.Statement([&] {
            Line(section,
                 "Identical X, Y and Threshold: ", F(5, 0, counts.AllIdentical).Named(name + "AllIdentical"));
        });
}

} // namespace

void WriteThresholdTable(RunState& run) {
    const bool ranks = !run.Options().TRESHOLD_RANK.empty(), values = !run.Options().TRESHOLD_XY.empty();
    if (!ranks && !values)
        return;
    ReportSection& section = run.report.BeginSection({"threshold_table", ranks ? "THRESHOLD TABLE" : ""});
    std::int32_t threshold = 0;
    if (ranks)
        WriteTable(run, section, byRanks, threshold);
    if (values)
        WriteTable(run, section, byValues, threshold);
}

} // namespace corvane
