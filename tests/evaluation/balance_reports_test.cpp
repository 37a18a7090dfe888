#include "analyses/balance_tables.h"
#include "core/option_changes.h"
#include "evaluation/calculate.h"
#include "files/dataset_reader.h"
#include "platform/native/native_file_store.h"
#include "support/run_fakes.h"
#include "support/golden.h"

#include <gtest/gtest.h>
#include <initializer_list>

namespace corvane {
namespace {

using Options = AnalysisOptions;
using Ticks = std::initializer_list<std::pair<OptionRow::Member, OptionValue>>;

/// The report of a file with no section ticked but those given.
RunResult ReportOf(const FileStore& files, const std::string& path, Ticks ticks) {
    Dataset dataset;
    SessionState session;
    EXPECT_TRUE(LoadFile(path, dataset, session, files).Complete());
    for (const OptionRow& row : OptionTable())
        if (row.role == OptionRole::Gate)
            ChangeOption(dataset, session, row, std::int16_t{0});
    for (const auto& [member, value] : ticks)
        ChangeOption(dataset, session, OptionOf(member), value);
    testing::RunFakes fakes;
    return Calculate(dataset, session, fakes.Services());
}

std::string ExampleReport(const std::string& example, Ticks ticks) {
    return ReportOf(NativeFileStore(), std::string(CORVANE_EXAMPLES) + "/" + example, ticks).report.Text();
}

constexpr std::int16_t off = 0, on = 1;
const Ticks both = {{&Options::BALANCE_ANALYSIS, on}, {&Options::ORTHOGONAL_BALANCE, on}};

RunResult PairsReport(int rows, const std::string& pairs) {
    testing::MemoryFiles files;
    files.files["/data/pairs.KOV"] = "4,0,0\nADD_COMMENT= 0\nN=" + std::to_string(rows) + "\nDATA:\n" + pairs;
    return ReportOf(files, "/data/pairs.KOV", both);
}

TEST(BalanceReports, RegularLeastSquares) {
    testing::ExpectGolden("balance_mtcars.txt", ExampleReport("mtcars.KOV", both));
}

TEST(BalanceReports, SwappedWithoutComments) {
    testing::ExpectGolden("balance_mtcars_swapped.txt",
                          ExampleReport("mtcars.KOV", {{&Options::BALANCE_ANALYSIS, on},
                                                       {&Options::ORTHOGONAL_BALANCE, on},
                                                       {&Options::SwapXY, on},
                                                       {&Options::ADD_COMMENT, off}}));
}

TEST(BalanceReports, OrthogonalAloneWithAFallingLine) {
    testing::ExpectGolden("balance_pearson.txt",
                          ExampleReport("pearson.KOV", {{&Options::ORTHOGONAL_BALANCE, on}}));
}

TEST(BalanceReports, SlopeOfExactlyZero) {
    testing::ExpectGolden("balance_level.txt",
                          PairsReport(5, "1,,1,,,,\n2,,3,,,,\n3,,2,,,,\n4,,3,,,,\n5,,1,,,,\n").report.Text());
}

TEST(BalanceReports, AllPairsTied) {
    testing::ExpectGolden("balance_tied.txt",
                          PairsReport(4, "2,,3,,,,\n2,,3,,,,\n2,,3,,,,\n2,,3,,,,\n").report.Text());
}

TEST(BalanceReports, AFailedAllocationShowsTheTableOfBalanceAnalysis) {
    // Mean X + mean Y overflows, which only the line Y = X needs: its half has old cells and no results.
    const RunResult result = PairsReport(4, ".80e308,,1.00e308,,,,\n.84e308,,.94e308,,,,\n"
                                            ".88e308,,.93e308,,,,\n.92e308,,.90e308,,,,\n");
    const ReportSection& orthogonal = result.report.Sections().back();
    EXPECT_EQ(orthogonal.failures.size(), 1U);
    EXPECT_EQ(orthogonal.lines[4].Text(),
              "         Overpredicted  :      ( 0.00%)     1 (25.00%)        1 (25.00%)       ( 0.00%)");
    EXPECT_EQ(orthogonal.lines[5].Text(),
              "         Underpredicted :    2 (50.00%)     1 (25.00%)        1 (25.00%)     2 (50.00%)");
    EXPECT_EQ(orthogonal.lines[7].Text(),
              "      X² (Prob(X²=0))   :   0.00000 (0.00001)                1.33333 (0.24821)");
}

TEST(BalanceReports, ACellWhoseHundredfoldIsTooLargeTakesItsLineAway) {
    Dataset dataset;
    SessionState session;
    testing::RunFakes fakes;
    const RunServices services = fakes.Services();
    RunState run{dataset, session, services};
    run.arrays.X = {1, 2, 4};
    run.arrays.Y = {2, 1, 3};
    run.b = 1e-310; // no allocation: the tables stay as they are
    run.BalanceTableX = {{{1, 1}, {21474836, 1}}};
    run.BalanceTableY = {{{1, 21474837}, {1, 1}}};
    WriteBalance(run);
    EXPECT_EQ(run.report.Current().failures.size(), 3U); // both allocations, and the line
    const std::string text = run.report.Text();
    EXPECT_EQ(text.find("Overpredicted"), std::string::npos);
    EXPECT_NE(text.find("Underpredicted :  n/a (  n/a%)     1 (33.33%)        1"), std::string::npos) << text;
}

} // namespace
} // namespace corvane
