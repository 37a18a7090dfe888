#include "report_of.h"
#include "support/golden.h"

#include <gtest/gtest.h>
#include <sstream>

namespace corvane {
namespace {

using namespace testing;
using Options = AnalysisOptions;
using Strings = std::vector<std::string>;

constexpr std::int16_t off = 0, on = 1;
const Gates all{&Options::RANK_ANALYSIS, &Options::THRESHOLD_ANALYSIS, &Options::DISTANCE_ANALYSIS};

/// The rank columns, a line for each row.
std::string Ranks(const DataMatrix& cells) {
    std::string text;
    for (std::int32_t row = 1; row <= cells.RowCount(); ++row)
        text += CellText(cells.At(ColumnRankX, row)) + " " + CellText(cells.At(ColumnRankY, row)) + "\r\n";
    return text;
}

TEST(RankReports, SwappedWithInvertedRanksAndTheTitlelessTable) {
    const auto run = [](Workbench& bench, const Settings& settings) {
        bench.OpenExample("mtcars.KOV").Only(all).Set(settings);
        return bench
            .Set({{&Options::SwapXY, on}, {&Options::ADD_COMMENT, off}, {&Options::TRESHOLD_XY, "20.5"}})
            .Evaluate();
    };
    Workbench plain, invertedX, invertedY;
    run(plain, {});
    run(invertedY, {{&Options::InvertYRanks, on}});
    ExpectGolden("ranks_mtcars_swapped.txt", run(invertedX, {{&Options::InvertXRanks, on}}).report.Text());
    for (std::int32_t row = 1; row <= 32; ++row) {
        const auto ranks = [&](const Workbench& bench) {
            return std::pair(CellNumber(bench.dataset.cells.At(ColumnRankX, row)).value_or(-1),
                             CellNumber(bench.dataset.cells.At(ColumnRankY, row)).value_or(-1));
        };
        const auto [x, y] = ranks(plain);
        EXPECT_EQ(ranks(invertedX), std::pair(33 - x, y)) << row;
        EXPECT_EQ(ranks(invertedY), std::pair(x, 33 - y)) << row;
    }
}

/// Forty rows of tied whole numbers, every fifth excluded, the last row among them.
TEST(RankReports, TiesAndExcludedRows) {
    const Strings marks{"y", "0", "Yes", "0.5"};
    std::istringstream table(ReadBytes(std::string(CORVANE_TEST_DATA) + "/datasets/ties.csv"));
    Strings rows;
    std::string line;
    std::getline(table, line); // the header
    while (std::getline(table, line)) {
        const std::size_t row = rows.size() + 1;
        rows.push_back(line + ",,," + (row % 5 == 0 ? marks[row / 5 % marks.size()] : row == 1 ? "No" : ""));
    }
    ASSERT_EQ(rows.size(), 40U);
    Workbench bench;
    bench.OpenRows("rows.KOV", rows).Only(all);
    const RunResult run =
        bench.Set({{&Options::TRESHOLD_RANK, "12.5"}, {&Options::TRESHOLD_XY, "3.5"}}).Evaluate();
    ExpectGolden("ranks_ties.txt", run.report.Text());
    ExpectGolden("ranks_ties_columns.txt", Ranks(bench.dataset.cells));
    EXPECT_EQ(run.warnings, Strings{"threshold table by ranks: row 5: Rank X is '.', not a number; counting "
                                    "ended there, with a total of 4"});
}

TEST(RankReports, UnreadThresholdsAndNoRanks) {
    const auto runWith = [](const char* rank, const char* values) {
        return RunOfExample(
            "pearson.KOV", {&Options::THRESHOLD_ANALYSIS},
            {{&Options::TRESHOLD_RANK, std::string(rank)}, {&Options::TRESHOLD_XY, std::string(values)}});
    };
    const RunResult both = runWith("-4.5", "4 mm");
    ExpectGolden("ranks_missing.txt", both.report.Text());
    EXPECT_EQ(both.warnings,
              Strings{"threshold table by X and Y: '4 mm' is not a number; the threshold is -4"});

    const RunResult tooLarge = runWith("3e9", "");
    EXPECT_TRUE(Has(tooLarge, "Rank threshold for:    0.00000\r\n"));
    EXPECT_EQ(tooLarge.warnings.size(), 1U);

    const RunResult neither = runWith("", "");
    EXPECT_EQ(neither.report.Sections().size(), 2U); // header and regression
    EXPECT_EQ(neither.warnings, Strings());
}

TEST(RankReports, ARowWithoutXTakesTheNextRankAndRowsBehindTheLastKeepTheirs) {
    Workbench bench;
    bench.OpenRows("rows.KOV",
                   {"3,,1,,,,", ",,9,,,,", "1,,2,,7,8,0", "2,,4,,,,", "5,,3,,5,6,", "6,,6,,7,8,y"});
    bench.Only({&Options::RANK_ANALYSIS, &Options::THRESHOLD_ANALYSIS});
    const RunResult run = bench.Set({{&Options::TRESHOLD_XY, "3"}}).Evaluate();
    EXPECT_EQ(Ranks(bench.dataset.cells), "2 1\r\n1 3\r\n. .\r\n3 2\r\n5 6\r\n7 8\r\n");
    EXPECT_EQ(run.warnings, Strings{"threshold table by X and Y: row 2: X is '', not a number; counting "
                                    "ended there, with a total of 1"});
    // The share of the only row is one digit too long for its field.
    EXPECT_TRUE(Has(run, "Below          1 (  n/a)        ( 0.00)\r\n")) << run.report.Text();
}

/// A different number of rows for each place around the threshold 2, so that no count could stand for
/// another.
TEST(RankReports, PointsOnTheThresholdFallBelow) {
    Strings rows;
    const std::pair<std::size_t, const char*> places[] = {
        {1, "2,,2,,1,1,"}, {2, "2,,1,,1,1,"}, {3, "1,,2,,1,1,"}, {4, "2,,3,,1,1,"},
        {5, "3,,2,,1,1,"}, {6, "3,,3,,1,1,"}, {7, "1,,1,,1,1,"}, {9, "9,,9,,,,"}}; // the last without a rank
    for (const auto& [count, row] : places)
        rows.insert(rows.end(), count, row);
    const RunResult run = Workbench()
                              .OpenRows("rows.KOV", rows)
                              .Only({&Options::THRESHOLD_ANALYSIS})
                              .Set({{&Options::TRESHOLD_XY, "2"}})
                              .Evaluate();
    EXPECT_TRUE(Has(run, "Below         12 (42.86)      5 (17.86)\r\n"
                         "Above          4 (14.29)      6 (21.43)\r\n"))
        << run.report.Text();
    EXPECT_TRUE(Has(run, "Identical X and Y:    14\r\nIdentical X, Y and Threshold:     1\r\n"))
        << run.report.Text();
}

} // namespace
} // namespace corvane
