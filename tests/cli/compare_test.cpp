#include "support/program.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::Ran;

/// Three models of the same five observations.
class CompareCommand : public ::testing::Test {
protected:
    CompareCommand() {
        const auto write = [&](const char* name, const char* X) {
            std::string text = "4,0,0\nN=5\nDATA:\n";
            for (int row = 0; row < 5; ++row)
                text += X[row] + std::string(",,") + "13254"[row] + ",,,,\n";
            folder.Write(name, text);
        };
        write("a.KOV", "12345");
        write("b.KOV", "23254");
        write("c.KOV", "54321");
    }
    Ran Run(const std::string& arguments) const { return folder.Run("$corvane compare " + arguments); }
    static bool Has(const std::string& text, const std::string& part) {
        return text.find(part) != std::string::npos;
    }

    testing::ProgramFolder folder;
};

TEST_F(CompareCommand, PrintsAndSavesTheReportAndItsJson) {
    const Ran ran = Run("--select 1,3 a.KOV ./b.KOV c.KOV a.KOV --references --out out/deep --json r.json");
    EXPECT_EQ(ran.exit, 0) << ran.err;
    EXPECT_EQ(ran.err, "");
    EXPECT_TRUE(Has(ran.out, "COMPARISON OF MODELS" + std::string(36, ' ') + "01-Jan-1970 00:00:00\n....."));
    EXPECT_TRUE(
        Has(ran.out, "\n  1 = " + folder.Path() + "/a.KOV\n  3 = " + folder.Path() + "/c.KOV\n\n\nModel"));
    EXPECT_TRUE(Has(ran.out, "\n\n\nREFERENCES\n==========\nBibby"));
    std::string saved = folder.Read("out/deep/results.txt");
    EXPECT_TRUE(Has(saved, "\r\n"));
    std::erase(saved, '\r');
    EXPECT_EQ(saved, ran.out);
    EXPECT_EQ(Run("a.KOV b.KOV c.KOV --select 3,1 --references --json -").out, folder.Read("r.json"));
}

TEST_F(CompareCommand, AComparisonFileKeepsItsTicksAndSettings) {
    folder.Write("l.koc",
                 "\"<Options>\"\n\"9\"\n\"8\"\n\"</Options>\"\n#TRUE#,\"a.KOV\"\n#TRUE#,\"gone.KOV\"\n"
                 "#FALSE#,\"b.KOV\"\n#TRUE#,\"c.KOV\"\n");
    const Ran ticked = Run("l.koc --decimals=-1,3,1");
    EXPECT_EQ(ticked.exit, 0);
    EXPECT_EQ(ticked.err, "corvane: warning: l.koc:6: gone.KOV: there is no such file\n"
                          "corvane: warning: long digits: 9 is below 10; 12 is used\n");
    EXPECT_TRUE(Has(ticked.out, "\n  1 = a.KOV\n  3 = c.KOV\n"));
    EXPECT_TRUE(Has(ticked.out, "\nObs  :       3.0000 ")) << ticked.out;
    EXPECT_TRUE(Has(Run("l.koc --select 2,1").out, "\n  1 = a.KOV\n  2 = b.KOV\n"));
    EXPECT_EQ(Run("l.koc --long=12").err, "corvane: warning: l.koc:6: gone.KOV: there is no such file\n");
}

TEST_F(CompareCommand, TheMessageNamesTheRowAtTheOrdinal) {
    folder.Write("e.KOV", "4,0,0\nN=5\nDATA:\n1,,1,,,,\n2,,3.0,,,,\n1,,2,,,,\n1,,5,,,,\n1,,4,,,,\n");
    const Ran differ = Run("c.KOV a.KOV e.KOV --select 2,3");
    EXPECT_EQ(differ.exit, 1);
    EXPECT_EQ(differ.err,
              "corvane: Model Comparison: Observed values have to be identical!; Please check observed "
              "value #2 of file '" +
                  folder.Path() + "/a.KOV'; Calculation aborted!\ncorvane: " + folder.Path() +
                  "/e.KOV:5: row 2: Y is '3.0', and '3' in a file before it\n");
}

} // namespace
} // namespace corvane
