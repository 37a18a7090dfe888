#include "report_of.h"
#include "support/golden.h"

#include <gtest/gtest.h>
#include <sstream>

namespace corvane {
namespace {

using Options = AnalysisOptions;
using Strings = std::vector<std::string>;
using testing::Gates;
using testing::Has;
using testing::Settings;

const Gates all{&Options::RANK_ANALYSIS, &Options::THRESHOLD_ANALYSIS, &Options::DISTANCE_ANALYSIS};

/// The run of rows as a dataset file has them.
RunResult RunOfRows(Dataset& dataset, const Strings& rows, Gates gates, Settings settings) {
    testing::MemoryFiles files;
    std::string& text = files.files["/data/rows.KOV"];
    text = "4,0,0\nN=" + std::to_string(rows.size()) + "\nDATA:\n";
    for (const std::string& row : rows)
        text += row + "\n";
    return testing::RunOf(dataset, "/data/rows.KOV", gates, settings, files);
}

/// The rank columns, a line for each row.
std::string Ranks(const DataMatrix& cells) {
    std::string text;
    for (std::int32_t row = 1; row <= cells.RowCount(); ++row)
        text += CellText(cells.At(ColumnRankX, row)) + " " + CellText(cells.At(ColumnRankY, row)) + "\r\n";
    return text;
}

TEST(RankReports, SwappedWithInvertedRanksAndTheTitlelessTable) {
    const std::string path = std::string(CORVANE_EXAMPLES) + "/mtcars.KOV";
    const Settings swapped = {{&Options::SwapXY, std::int16_t{1}},
                              {&Options::ADD_COMMENT, std::int16_t{0}},
                              {&Options::TRESHOLD_XY, "20.5"}};
    const auto run = [&](Dataset& dataset, OptionRow::Member inverted) {
        Settings settings = swapped;
        settings.emplace_back(inverted, std::int16_t{1});
        return testing::RunOf(dataset, path, all, settings);
    };
    Dataset plain, invertedX, invertedY;
    testing::RunOf(plain, path, all, swapped);
    run(invertedY, &Options::InvertYRanks);
    testing::ExpectGolden("ranks_mtcars_swapped.txt", run(invertedX, &Options::InvertXRanks).report.Text());
    for (std::int32_t row = 1; row <= 32; ++row) {
        const auto ranks = [&](const Dataset& dataset) {
            return std::pair(CellNumber(dataset.cells.At(ColumnRankX, row)).value_or(-1),
                             CellNumber(dataset.cells.At(ColumnRankY, row)).value_or(-1));
        };
        const auto [x, y] = ranks(plain);
        EXPECT_EQ(ranks(invertedX), std::pair(33 - x, y)) << row;
        EXPECT_EQ(ranks(invertedY), std::pair(x, 33 - y)) << row;
    }
}

/// Forty rows of tied whole numbers, every fifth excluded, the last row among them.
TEST(RankReports, TiesAndExcludedRows) {
    const Strings marks{"y", "0", "Yes", "0.5"};
    std::istringstream table(testing::ReadBytes(std::string(CORVANE_TEST_DATA) + "/datasets/ties.csv"));
    Strings rows;
    std::string line;
    std::getline(table, line); // the header
    while (std::getline(table, line)) {
        const std::size_t row = rows.size() + 1;
        rows.push_back(line + ",,," + (row % 5 == 0 ? marks[row / 5 % marks.size()] : row == 1 ? "No" : ""));
    }
    ASSERT_EQ(rows.size(), 40U);
    Dataset dataset;
    const RunResult run =
        RunOfRows(dataset, rows, all, {{&Options::TRESHOLD_RANK, "12.5"}, {&Options::TRESHOLD_XY, "3.5"}});
    testing::ExpectGolden("ranks_ties.txt", run.report.Text());
    testing::ExpectGolden("ranks_ties_columns.txt", Ranks(dataset.cells));
    EXPECT_EQ(run.warnings, Strings{"threshold table by ranks: row 5: Rank X is '.', not a number; counting "
                                    "ended there, with a total of 4"});
}

TEST(RankReports, UnreadThresholdsAndNoRanks) {
    const auto runWith = [](const char* rank, const char* values) {
        return testing::RunOfExample(
            "pearson.KOV", {&Options::THRESHOLD_ANALYSIS},
            {{&Options::TRESHOLD_RANK, std::string(rank)}, {&Options::TRESHOLD_XY, std::string(values)}});
    };
    const RunResult both = runWith("-4.5", "4 mm");
    testing::ExpectGolden("ranks_missing.txt", both.report.Text());
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
    Dataset dataset;
    const RunResult run =
        RunOfRows(dataset, {"3,,1,,,,", ",,9,,,,", "1,,2,,7,8,0", "2,,4,,,,", "5,,3,,5,6,", "6,,6,,7,8,y"},
                  {&Options::RANK_ANALYSIS, &Options::THRESHOLD_ANALYSIS}, {{&Options::TRESHOLD_XY, "3"}});
    EXPECT_EQ(Ranks(dataset.cells), "2 1\r\n1 3\r\n. .\r\n3 2\r\n5 6\r\n7 8\r\n");
    EXPECT_EQ(run.warnings, Strings{"threshold table by X and Y: row 2: X is '', not a number; counting "
                                    "ended there, with a total of 1"});
    // The share of the only row is one digit too long for its field.
    EXPECT_TRUE(Has(run, "Below          1 (  n/a)        ( 0.00)\r\n")) << run.report.Text();
}

/// A different number of rows for each place around the threshold 2, so that no count could stand for
/// another.
TEST(RankReports, PointsOnTheThresholdFallBelow) {
    Strings rows;
    const auto add = [&](std::size_t count, const char* row) { rows.insert(rows.end(), count, row); };
    add(1, "2,,2,,1,1,");
    add(2, "2,,1,,1,1,");
    add(3, "1,,2,,1,1,");
    add(4, "2,,3,,1,1,");
    add(5, "3,,2,,1,1,");
    add(6, "3,,3,,1,1,");
    add(7, "1,,1,,1,1,");
    add(9, "9,,9,,,,"); // without a rank
    Dataset dataset;
    const RunResult run =
        RunOfRows(dataset, rows, {&Options::THRESHOLD_ANALYSIS}, {{&Options::TRESHOLD_XY, "2"}});
    EXPECT_TRUE(Has(run, "Below         12 (42.86)      5 (17.86)\r\n"
                         "Above          4 (14.29)      6 (21.43)\r\n"))
        << run.report.Text();
    EXPECT_TRUE(Has(run, "Identical X and Y:    14\r\nIdentical X, Y and Threshold:     1\r\n"))
        << run.report.Text();
}

} // namespace
} // namespace corvane
