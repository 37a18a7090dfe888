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

TEST_F(Calc, SaysItsVersionAndHowToUseIt) {
    EXPECT_EQ(Run("$corvane --version").out, "corvane 4.0.0\n");
    EXPECT_EQ(Run("$corvane --help").exit, 0);
    EXPECT_TRUE(Has(Run("$corvane calc --help").out, "--set"));
    const Ran soon = Run("SOURCE_DATE_EPOCH=soon $corvane calc $examples/cars.KOV");
    EXPECT_EQ(soon.exit, 1);
    EXPECT_TRUE(Has(soon.err, "SOURCE_DATE_EPOCH"));
}

} // namespace
} // namespace corvane
