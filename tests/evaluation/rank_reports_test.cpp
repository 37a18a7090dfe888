#include "core/option_changes.h"
#include "evaluation/calculate.h"
#include "files/dataset_reader.h"
#include "platform/native/native_file_store.h"
#include "support/golden.h"
#include "support/run_fakes.h"

#include <gtest/gtest.h>
#include <sstream>

namespace corvane {
namespace {

using Options = AnalysisOptions;
using Strings = std::vector<std::string>;

/// Runs of the rank analysis, the threshold table and the distances, none of them ticked at the start.
class RankReports : public ::testing::Test {
protected:
    void Load(const std::string& path, const FileStore& files = NativeFileStore()) {
        const LoadOutcome loaded = LoadFile(path, dataset, session, files);
        ASSERT_TRUE(loaded.Complete()) << loaded.Error();
        for (const OptionRow& row : OptionTable())
            if (row.role == OptionRole::Gate)
                ChangeOption(dataset, session, row, std::int16_t{0});
    }
    void LoadExample(const std::string& name) { Load(std::string(CORVANE_EXAMPLES) + "/" + name); }
    /// Rows of a dataset file.
    void LoadRows(const Strings& rows) {
        testing::MemoryFiles files;
        std::string& text = files.files["/data/rows.KOV"];
        text = "4,0,0\nN=" + std::to_string(rows.size()) + "\nDATA:\n";
        for (const std::string& row : rows)
            text += row + "\n";
        Load("/data/rows.KOV", files);
    }
    void Tick(std::initializer_list<std::int16_t Options::*> boxes) {
        for (const auto box : boxes)
            ChangeOption(dataset, session, OptionOf(box), std::int16_t{1});
    }
    std::string Run() {
        testing::RunFakes fakes;
        RunResult result = Calculate(dataset, session, fakes.Services());
        warnings = std::move(result.warnings);
        return result.report.Text();
    }
    /// The rank columns, a line for each row.
    std::string Ranks() const {
        std::string text;
        for (std::int32_t row = 1; row <= dataset.cells.RowCount(); ++row)
            text += CellText(dataset.cells.At(ColumnRankX, row)) + " " +
                    CellText(dataset.cells.At(ColumnRankY, row)) + "\r\n";
        return text;
    }

    Dataset dataset;
    SessionState session;
    Strings warnings;
};

TEST_F(RankReports, AllThreeSectionsWithComments) {
    LoadExample("mtcars.KOV");
    Tick({&Options::RANK_ANALYSIS, &Options::THRESHOLD_ANALYSIS, &Options::DISTANCE_ANALYSIS});
    dataset.options.TRESHOLD_RANK = "15.5";
    dataset.options.TRESHOLD_XY = "21";
    testing::ExpectGolden("ranks_mtcars.txt", Run());
    EXPECT_EQ(warnings, Strings());
}

TEST_F(RankReports, SwappedWithInvertedRanksAndTheTitlelessTable) {
    LoadExample("mtcars.KOV");
    Tick({&Options::RANK_ANALYSIS, &Options::THRESHOLD_ANALYSIS, &Options::DISTANCE_ANALYSIS,
          &Options::SwapXY, &Options::InvertXRanks});
    dataset.options.ADD_COMMENT = 0;
    dataset.options.TRESHOLD_XY = "20.5";
    testing::ExpectGolden("ranks_mtcars_swapped.txt", Run());
    const std::string invertedX = Ranks();
    dataset.options.InvertXRanks = 0;
    dataset.options.InvertYRanks = 1;
    Run();
    const DataMatrix& cells = dataset.cells;
    std::istringstream before(invertedX);
    for (std::int32_t row = 1; row <= 32; ++row) {
        double rankX = 0, rankY = 0;
        before >> rankX >> rankY;
        EXPECT_EQ(CellNumber(cells.At(ColumnRankX, row)), 33 - rankX) << row;
        EXPECT_EQ(CellNumber(cells.At(ColumnRankY, row)), 33 - rankY) << row;
    }
}

/// Forty rows of tied whole numbers, every fifth excluded, the last row among them.
TEST_F(RankReports, TiesAndExcludedRows) {
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
    LoadRows(rows);
    Tick({&Options::RANK_ANALYSIS, &Options::THRESHOLD_ANALYSIS, &Options::DISTANCE_ANALYSIS});
    dataset.options.TRESHOLD_RANK = "12.5";
    dataset.options.TRESHOLD_XY = "3.5";
    testing::ExpectGolden("ranks_ties.txt", Run());
    testing::ExpectGolden("ranks_ties_columns.txt", Ranks());
    EXPECT_EQ(warnings,
              Strings{"threshold table by ranks: row 5: Rank X is '.', not a number; counting ended "
                      "there, with a total of 4"});
}

TEST_F(RankReports, UnreadThresholdsAndNoRanks) {
    LoadExample("pearson.KOV");
    Tick({&Options::THRESHOLD_ANALYSIS});
    dataset.options.TRESHOLD_RANK = "-4.5";
    dataset.options.TRESHOLD_XY = "4 mm";
    testing::ExpectGolden("ranks_missing.txt", Run());
    EXPECT_EQ(warnings, Strings{"threshold table by X and Y: '4 mm' is not a number; the threshold is -4"});

    dataset.options.TRESHOLD_RANK = "3e9";
    dataset.options.TRESHOLD_XY.clear();
    const std::string report = Run();
    EXPECT_NE(report.find("Rank threshold for:    0.00000\r\n"), std::string::npos);
    EXPECT_EQ(warnings.size(), 1U);

    dataset.options.TRESHOLD_RANK.clear();
    EXPECT_TRUE(report.starts_with(Run()));
    EXPECT_EQ(warnings, Strings());
}

TEST_F(RankReports, ARowWithoutXTakesTheNextRankAndRowsBehindTheLastKeepTheirs) {
    LoadRows({"3,,1,,,,", ",,9,,,,", "1,,2,,7,8,0", "2,,4,,,,", "5,,3,,5,6,", "6,,6,,7,8,y"});
    Tick({&Options::RANK_ANALYSIS, &Options::THRESHOLD_ANALYSIS});
    dataset.options.TRESHOLD_XY = "3";
    const std::string report = Run();
    EXPECT_EQ(Ranks(), "2 1\r\n1 3\r\n. .\r\n3 2\r\n5 6\r\n7 8\r\n");
    EXPECT_EQ(
        warnings,
        Strings{"threshold table by X and Y: row 2: X is '', not a number; counting ended there, with a "
                "total of 1"});
    // The share of the only row is one digit too long for its field.
    EXPECT_NE(report.find("Below          1 (  n/a)        ( 0.00)\r\n"), std::string::npos) << report;
}

/// A different number of rows for each place around the threshold 2, so that no count could stand for
/// another.
TEST_F(RankReports, PointsOnTheThresholdFallBelow) {
    Strings rows;
    const auto add = [&](int count, const char* row) { rows.insert(rows.end(), std::size_t(count), row); };
    add(1, "2,,2,,1,1,");
    add(2, "2,,1,,1,1,");
    add(3, "1,,2,,1,1,");
    add(4, "2,,3,,1,1,");
    add(5, "3,,2,,1,1,");
    add(6, "3,,3,,1,1,");
    add(7, "1,,1,,1,1,");
    add(9, "9,,9,,,,"); // without a rank
    LoadRows(rows);
    Tick({&Options::THRESHOLD_ANALYSIS});
    dataset.options.TRESHOLD_XY = "2";
    const std::string report = Run();
    EXPECT_NE(report.find("Below         12 (42.86)      5 (17.86)\r\n"
                          "Above          4 (14.29)      6 (21.43)\r\n"),
              std::string::npos)
        << report;
    EXPECT_NE(report.find("Identical X and Y:    14\r\nIdentical X, Y and Threshold:     1\r\n"),
              std::string::npos)
        << report;
}

} // namespace
} // namespace corvane
