#include "analyses/threshold_table.h"

#include "core/format/numbers.h"
#include "core/format/text_lists.h"

#include <string>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"*.Threshold", "threshold.value"},
    {"*.XBelowYBelow", "threshold.both_below", "", 5, 0},
    {"*.XBelowYBelowPercent", "threshold.cell_percent", " (", 5, 2},
    {"*.XAboveYBelow", "threshold.predicted_above", "", 5, 0},
    {"*.XAboveYBelowPercent", "threshold.cell_percent", " (", 5, 2},
    {"*.XBelowYAbove", "threshold.observed_above", "", 5, 0},
    {"*.XBelowYAbovePercent", "threshold.cell_percent", " (", 5, 2},
    {"*.XAboveYAbove", "threshold.both_above", "", 5, 0},
    {"*.XAboveYAbovePercent", "threshold.cell_percent", " (", 5, 2},
    {"*.Identical", "threshold.identical", "Identical X and Y: ", 5, 0},
    {"*.AllIdentical", "threshold.all_identical", "Identical X, Y and Threshold: ", 5, 0},
};

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
    .name = "Rank",
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
    .name = "XY",
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

/// A row of the table: the rows of the dataset whose Y is on one side of the threshold.
void WriteRow(RunState& run, ReportSection& section, const Kind& kind, const char* side, double below,
              double above, double total) {
    const std::string places = std::string("Y") + side;
    const auto share = [&](double cell) { return Divide(cell * 100, total); };
    run.Statement([&] {
        section.TableRow({side + std::string(6, ' '),
                          {"*.XBelow" + places, below, kind.name},
                          {"*.XBelow" + places + "Percent", share(below), kind.name},
                          ")  ",
                          {"*.XAbove" + places, above, kind.name},
                          {"*.XAbove" + places + "Percent", share(above), kind.name},
                          ")"});
    });
}

void WriteTable(RunState& run, ReportSection& section, const Kind& kind, std::int32_t& threshold) {
    constexpr std::size_t ruleLength = 39;
    ReadThreshold(run, kind, threshold);
    const Counts counts = CountRows(run, kind, threshold);
    section.Blank();
    run.Statement([&] {
        section.Row({kind.label, {"*.Threshold", static_cast<double>(threshold), kind.name}});
    });
    section.BeginTable({"X Below", "X Below, %", "X Above", "X Above, %"});
    section.TableHead(kind.title);
    section.TableHead("             --------------------------");
    section.TableHead(kind.columnTitles);
    section.Rule(ruleLength);
    WriteRow(run, section, kind, "Below", counts.BelowBelow, counts.XAboveYBelow, counts.Total);
    WriteRow(run, section, kind, "Above", counts.XBelowYAbove, counts.AboveAbove, counts.Total);
    section.Rule(ruleLength);
    const auto remark = [&](const char* place, double count) {
        if (count > 0)
            run.Statement([&] { section.Row({{place, count, kind.name}}); });
    };
    remark("*.Identical", counts.Identical);
    remark("*.AllIdentical", counts.AllIdentical);
}

void Write(RunState& run) {
    const bool ranks = !run.Options().TRESHOLD_RANK.empty(), values = !run.Options().TRESHOLD_XY.empty();
    if (!ranks && !values)
        return;
    SectionFrame frame = ThresholdTableSection.frame;
    if (!ranks)
        frame.title = "";
    ReportSection& section = run.report.BeginSection(frame);
    std::int32_t threshold = 0;
    if (ranks)
        WriteTable(run, section, byRanks, threshold);
    if (values)
        WriteTable(run, section, byValues, threshold);
}

} // namespace

const SectionDefinition ThresholdTableSection{
    .frame = {"threshold_table", "THRESHOLD TABLE", {places}},
    .gate = {&AnalysisOptions::THRESHOLD_ANALYSIS},
    .progress = "Threshold analysis...",
    .meaning = "How often prediction and observation lie on the same side of a threshold.",
    .write = Write,
};

} // namespace corvane
