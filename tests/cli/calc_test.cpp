#include "support/program.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::Ran;

class Calc : public ::testing::Test {
protected:
    Ran Run(const std::string& command) const { return folder.Run(command); }
    static bool Has(const std::string& text, const std::string& part) {
        return text.find(part) != std::string::npos;
    }

    /// Expects failure with one line on standard error that holds `part`, and nothing on standard output.
    void ExpectRefused(const std::string& command, int exit, const std::string& part) {
        const Ran ran = Run(command);
        EXPECT_EQ(ran.exit, exit) << command;
        EXPECT_EQ(ran.out, "") << command;
        EXPECT_TRUE(Has(ran.err, part)) << command << "\n" << ran.err;
        if (exit == 1) {
            EXPECT_EQ(std::count(ran.err.begin(), ran.err.end(), '\n'), 1) << command << "\n" << ran.err;
        }
    }

    testing::ProgramFolder folder;
};

TEST_F(Calc, PrintsTheReportWithLineFeedsAndSavesItWithCrLf) {
    const Ran ran = Run("$corvane calc $examples/mtcars.KOV --out out/deep");
    EXPECT_EQ(ran.exit, 0) << ran.err;
    EXPECT_EQ(ran.err, "");
    EXPECT_TRUE(Has(ran.out, "[mtcars.KOV]"));
    EXPECT_TRUE(Has(ran.out, "01-Jan-1970 00:00:00\n....."));
    EXPECT_TRUE(Has(ran.out, "\nREGRESSION ANALYSIS: Y = a + b×X (Neter et al., 1996)\n=====")) << ran.out;
    EXPECT_FALSE(Has(ran.out, "\r"));
    std::string saved = folder.Read("out/deep/results.txt");
    EXPECT_TRUE(Has(saved, "\r\n"));
    std::erase(saved, '\r');
    EXPECT_EQ(saved, ran.out);
}

TEST_F(Calc, SetsOptionsFromLeftToRightAfterAll) {
    const std::string base = "$corvane calc $examples/mtcars.KOV ";
    EXPECT_TRUE(Has(Run(base + "--set robustr=true").out, "Robust Regression (Median)\n"));
    EXPECT_TRUE(Has(Run(base + "--set SwapXY=1").out, "Swapped X <=> Y\n"));
    const std::string both = Run(base + "--set OLS_SLS=0 --all --set SHOW_LITERATURE=0").out;
    EXPECT_FALSE(Has(both, "ORDINARY (OLS)"));
    EXPECT_FALSE(Has(both, "REFERENCES"));
    EXPECT_TRUE(Has(both, "PARAMETER PROBABILITIES"));
    EXPECT_EQ(Run(base + "--set SwapXY=1 --set SwapXY=0").out, Run(base).out);
    const Ran weighted = Run(base + "--set WLSM=True");
    EXPECT_EQ(weighted.exit, 0);
    EXPECT_TRUE(Has(weighted.err, "mtcars.KOV: Because at least one SD X or SD Y is zero"));
}

TEST_F(Calc, RefusesWithOneClearLine) {
    folder.Write("broken.KOV", "4,0,0\nOLS_SLS=x\n");
    folder.Write("old.KOV", "1,9,0\n");
    folder.Write("two.KOV", "4,0,0\nN=2\nDATA:\n1,,2,,,,\n2,,3,,,,\n");
    folder.Write("same.KOV", "4,0,0\nN=3\nDATA:\n1,,1,,,,\n2,,2,,,,\n3,,3,,,,\n");
    ExpectRefused("$corvane calc missing.KOV", 1, "missing.KOV: No such file");
    ExpectRefused("$corvane calc .", 1, "folder");
    ExpectRefused("$corvane calc broken.KOV", 1, "broken.KOV:2: OLS_SLS is 'x', not 0, 1 or 2");
    ExpectRefused("$corvane calc old.KOV", 1, "old.KOV:1: The version of this file is not compatible");
    ExpectRefused("$corvane calc two.KOV", 1, "two.KOV: 2 rows are in use, at least 3 are needed");
    folder.Write("one.KOV", "4,0,0\nOLS_SLS= 1\nN=1\n");
    ExpectRefused("$corvane calc one.KOV", 1, "one.KOV:3: At least 3 rows");
    ExpectRefused("$corvane calc same.KOV", 1, "same.KOV: X and Y values are identical. Computation halted!");
    const std::string base = "$corvane calc $examples/cars.KOV ";
    ExpectRefused(base + "--set OLS_SLZ=1", 1, "did you mean OLS_SLS?");
    ExpectRefused(base + "--set OLS_SLS=7", 1, "OLS_SLS takes 0, 1 or 2, not '7'");
    ExpectRefused(base + "--set N=1", 1, "At least 3 rows");
    ExpectRefused(base + "--set ROBUSTR=False", 1, "No option for regression is selected");
    ExpectRefused(base + "--set \"OLS_SLS=$(printf 'a\\033[31m')\"", 1, "not 'a?[31m'");
    ExpectRefused(base + "--out old.KOV", 1, "old.KOV: ");
    ExpectRefused("SOURCE_DATE_EPOCH=soon " + base, 1, "SOURCE_DATE_EPOCH");
    ExpectRefused(base + ">/dev/full", 1, "standard output");
}

TEST_F(Calc, WritesJsonBesideTheReportOrInsteadOfIt) {
    const std::string weighted = "$corvane calc $examples/mtcars.KOV --set WLSM=True ",
                      plain = Run(weighted).out;
    EXPECT_EQ(Run(weighted + "--json r.json").out, plain);
    const Ran piped = Run(weighted + "--json -");
    EXPECT_EQ(piped.out, folder.Read("r.json"));
    EXPECT_TRUE(piped.out.starts_with("{\n") && piped.out.ends_with("\n}\n")) << piped.out;
    EXPECT_TRUE(Has(piped.out, "\"Because at least one SD X or SD Y is zero")) << piped.out;
    EXPECT_TRUE(Has(piped.err, "Because at least one SD X or SD Y is zero"));

    folder.Write("d.KOV", "4,0,0\nN=3\nDATA:\n1,,2,,,,\n2,,3,,,,\n3,,5,,,,\n");
    const Ran bytes = Run("mkdir \"$(printf 'b\\377')\" && cd b* && $corvane calc ../d.KOV --json -");
    EXPECT_TRUE(Has(bytes.out, "/b\xEF\xBF\xBD/../d.KOV\"")) << bytes.out << bytes.err;
    ExpectRefused("$corvane calc d.KOV --json none/r.json", 1, "none/r.json: No such file");
    ExpectRefused("$corvane calc d.KOV --json ./d.KOV", 1, "would replace the dataset");
    ExpectRefused("mkfifo pipe; $corvane calc d.KOV --json pipe", 1, "pipe: this is a device or a pipe");
    ExpectRefused("$corvane calc d.KOV --json - >/dev/full", 1, "standard output");
    EXPECT_FALSE(folder.Exists("none"));
}

TEST_F(Calc, SaysOnceWhatTheReportDoesNot) {
    folder.Write("dots.KOV", "4,0,0\nN=4\nDATA:\n1,,2,,,,\n2,,3,,,,y\n3,,5,,,,\n4,,4,,,,\n");
    const Ran ran = Run("$corvane calc dots.KOV --set THRESHOLD_ANALYSIS=1 --set TRESHOLD_RANK=2 "
                        "--set TRESHOLD_XY=3 --json -");
    const std::string warning = "threshold table by ranks: row 2: Rank X is '.', not a number; counting "
                                "ended there, with a total of 1";
    EXPECT_EQ(ran.exit, 0);
    EXPECT_EQ(ran.err, "corvane: warning: dots.KOV: " + warning + "\n");
    EXPECT_TRUE(Has(ran.out, "\"messages\": [\n    \"" + warning + "\"\n  ]")) << ran.out;
}

TEST_F(Calc, TheBootstrapTakesASeedAndWarnsOfTheSizeThatItCannotDraw) {
    const std::string base = "$corvane calc $examples/mtcars.KOV --set MSPE_BOOTSTRAP=1 ";
    const std::string seven = Run(base + "--seed 7").out;
    EXPECT_EQ(Run(base + "--seed 7").out, seven);
    EXPECT_NE(Run(base + "--seed 8").out, seven);
    const Ran ran = Run(base + "--set MSPE_BOOTSTRAP_SIZE=200000");
    EXPECT_EQ(ran.exit, 0);
    EXPECT_TRUE(Has(ran.err, "mtcars.KOV: bootstrap of MSEP: 200000% of 32 pairs")) << ran.err;
    EXPECT_TRUE(Has(ran.err, " 64000, outside the limits of ±32767")) << ran.err;
    EXPECT_EQ(std::count(ran.err.begin(), ran.err.end(), '\n'), 1) << ran.err;
    const Ran many = Run(base + "--set MSPE_BOOTSTRAP_SUBSAMPLE=2000000000");
    EXPECT_TRUE(Has(many.err, "2000000000 sub-samples are more than 100000000")) << many.err;
    EXPECT_TRUE(Has(many.out, "Mean MSEP             :              0.00000"));
}

TEST_F(Calc, SavesResidueFilesInTheFolderOfTheWindows) {
    const std::string base = "$corvane calc $examples/cars.KOV --set RESIDUAL_ANALYSIS=1 "
                             "--set SAVE_RESIDUE_TEXT=1 ";
    EXPECT_EQ(Run(base + "--out o && " + base + "--out o").err,
              "corvane: o: left from an earlier run: Residue0000.TXT\n");
    EXPECT_TRUE(folder.Read("o/Residue0001.TXT").starts_with("Analysis of Residuals\r\n"));
    EXPECT_EQ(folder.Read("o/Residue0000.TXT"), folder.Read("o/Residue0001.TXT"));
    EXPECT_TRUE(Has(folder.Read("o/residue.txt"), "saved in file:o/Residue0001.TXT\r\n\r\n"));

    const Ran homeless = Run(base + "--set RESIDUE_WINDOW=0");
    EXPECT_TRUE(Has(homeless.err, "corvane: warning: ") && Has(homeless.err, "no residue file was written"));
    EXPECT_TRUE(Has(homeless.out, "  #  X values"));
}

TEST_F(Calc, WrongUsageExitsWithTwo) {
    for (const char* arguments : {"calc", "calc a b", "calc --set", "calc d.KOV --set OLS_SLS",
                                  "calc d.KOV --what", "calc d.KOV --set =1", "calc d.KOV --json"})
        ExpectRefused(std::string("$corvane ") + arguments, 2, "");
    EXPECT_EQ(Run("$corvane --version").out, "corvane 4.0.0\n");
    EXPECT_EQ(Run("$corvane --help").exit, 0);
    EXPECT_TRUE(Has(Run("$corvane calc --help").out, "--set"));
}

} // namespace
} // namespace corvane
