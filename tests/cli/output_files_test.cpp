#include "support/program.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::Ran;

class OutputFiles : public ::testing::Test {
protected:
    /// Runs a command as in a fresh folder with the dataset d.KOV and the folder o, and expects that it
    /// refuses with this line and leaves the dataset alone.
    void ExpectRefused(const std::string& setUp, const std::string& command, const std::string& line) {
        Run("rm -rf * && mkdir o && cp $examples/mtcars.KOV d.KOV && " + setUp);
        const Ran ran = Run("$corvane " + command);
        EXPECT_EQ(ran.exit, 1) << command;
        EXPECT_EQ(ran.out + ran.err, "corvane: " + line + "\n") << command;
        EXPECT_EQ(Run("cmp d.KOV $examples/mtcars.KOV").exit, 0) << command;
    }
    Ran Run(const std::string& command) const { return folder.Run(command); }
    static bool Has(const std::string& text, const std::string& part) {
        return text.find(part) != std::string::npos;
    }

    testing::ProgramFolder folder;
};

TEST_F(OutputFiles, NeverReplaceWhatIsReadOrEachOther) {
    const std::string symbolic = "ln -s ../d.KOV o/d.svg", hard = "ln d.KOV o/results.txt",
                      read = "would replace the dataset";
    ExpectRefused(symbolic, "calc d.KOV --json o/d.svg", "--json o/d.svg " + read);
    ExpectRefused(hard, "calc d.KOV --json o/../o/results.txt", "--json o/../o/results.txt " + read);
    ExpectRefused(hard, "calc d.KOV --out o", "--out o: results.txt " + read);
    ExpectRefused("ln -s ../d.KOV o/results.txt", "calc o/results.txt --out o",
                  "--out o: results.txt " + read);
    ExpectRefused("ln d.KOV o/plot-31-x.svg", "calc d.KOV --out o", "--out o: plot-31-x.svg " + read);
    ExpectRefused("true", "calc d.KOV --out o --json o/residue.txt",
                  "--json o/residue.txt would replace a file of --out o");
    ExpectRefused("ln -s new/../o/Residue0000.TXT link; mkdir new", "calc d.KOV --out ./o --json link",
                  "--json link would replace a file of --out ./o");
    ExpectRefused("true", "calc d.KOV --out none/o --json none/o/results.txt",
                  "--json none/o/results.txt would replace a file of --out none/o");
    for (const std::string out : {"n/", "n/.", "n//", "n/sub/", "./n/x/.."})
        for (const std::string command : {"calc d.KOV", "compare d.KOV e.KOV"})
            for (const std::string name : {"/results.txt", "//plot-04-x.svg"})
                ExpectRefused("cp d.KOV e.KOV", command + " --out " + out + " --json " + out + name,
                              "--json " + out + name + " would replace a file of --out " + out);
    ExpectRefused("cp d.KOV e.KOV; " + hard, "compare d.KOV e.KOV --out o",
                  "--out o: results.txt would replace a file of the comparison");
    ExpectRefused(symbolic, "compare e.KOV d.KOV --json o/d.svg",
                  "--json o/d.svg would replace a file of the comparison");
    for (const std::string other : {"ln d.KOV e.csv", "ln -s d.KOV e.csv"})
        ExpectRefused(other, "export d.KOV --force -o e.csv", "-o e.csv would replace the file that is read");
#if CORVANE_CHARTS
    ExpectRefused(symbolic, "plot d.KOV scatter --force -o o/d.svg", "-o o/d.svg " + read);
#endif
    // A link under a name of --out is replaced and not followed; other names are free.
    const Ran linked =
        Run("rm -f o/*; ln -s ../d.KOV o/results.txt; $corvane calc d.KOV --out o --json o/r.json");
    EXPECT_EQ(linked.exit, 0) << linked.err;
    EXPECT_EQ(Run("test ! -L o/results.txt && test -s o/r.json && cmp d.KOV $examples/mtcars.KOV").exit, 0);
}

TEST_F(OutputFiles, OfSixAtOnceOneIsCreated) {
    const std::string exits =
        folder
            .RunSix("$corvane generate --method frank -n 3000 --mean-x 1 --mean-y 1 --var-x 1 --var-y 1 "
                    "-r 0.5 --seed $i -o one.KOV && echo $i >winner")
            .out;
    EXPECT_EQ(std::ranges::count(exits, '0'), 1) << exits;
    EXPECT_EQ(Run("i=$(cat winner); $corvane generate --method frank -n 3000 --mean-x 1 --mean-y 1 --var-x 1 "
                  "--var-y 1 -r 0.5 --seed $i -o again.KOV && cmp one.KOV again.KOV")
                  .exit,
              0);
    folder.Write("t.csv", "X;Y\n1;2\n3;4\n");
    const std::string imports = folder.RunSix("$corvane import t.csv -o two.KOV >/dev/null").out;
    EXPECT_EQ(std::ranges::count(imports, '0'), 1) << imports;
}

TEST_F(OutputFiles, TheProgramCleansUpAtSignals) {
    // It has begun as soon as it opens its input: SIGTERM and SIGHUP are caught; SIGINT is ignored in the
    // background.
    const Ran ran = Run("mkfifo in; $corvane calc in & exec 3>in; "
                        "echo $((0x$(sed -n 's/SigCgt:.//p' /proc/$!/status) & 0x4003)); "
                        "kill $!; wait $!; echo $?");
    EXPECT_EQ(ran.out, std::to_string(0x4001) + "\n143\n") << ran.err;
}

TEST_F(OutputFiles, AnInterruptedRunEndsWith130AndLeavesNothing) {
    // The run has begun once its residue file is reserved; the comparison, once it opens its first file.
    Run("$corvane generate --method frank -n 300000 --mean-x 9 --mean-y 9 --var-x 1 --var-y 1 -r 0.5 --seed "
        "1 "
        "-o d.KOV; mkfifo in.KOV");
    const Ran calc = Run("$corvane calc d.KOV --all --set SAVE_RESIDUE_TEXT=1 --out a/o --json j.json >out & "
                         "until [ -e a/o/Residue0000.TXT ]; do sleep 0.01; done; "
                         "kill $!; wait $!; echo $?; cat out; ls -d a j.json 2>/dev/null");
    EXPECT_EQ(calc.out + calc.err, "130\n");
    const Ran compare = Run("$corvane compare in.KOV d.KOV --out b --json k.json >out & exec 3>in.KOV; "
                            "kill $!; exec 3>&-; wait $!; echo $?; cat out; ls -d b k.json 2>/dev/null");
    EXPECT_EQ(compare.out + compare.err, "130\n");
}

TEST_F(OutputFiles, AResidueFileThatIsNotSavedFailsTheRunButNotTheReport) {
    // The listing of 600 rows passes the limit of 50 kB; the other files do not.
    const Ran ran =
        Run("$corvane generate --method frank -n 600 --mean-x 9 --mean-y 9 --var-x 1 --var-y 1 -r 0.5 "
            "--seed 1 -o d.KOV; (ulimit -f 100; $corvane calc d.KOV --out o --json r.json "
            "--set RESIDUAL_ANALYSIS=1 --set SAVE_RESIDUE_TEXT=1)");
    const std::string message = "the residual listing was not saved: o/Residue0000.TXT: File too large";
    EXPECT_EQ(ran.exit, 1);
    EXPECT_EQ(ran.err, "corvane: d.KOV: " + message + "\n");
    EXPECT_TRUE(Has(ran.out, "\nN               :        600 ")) << ran.out;
    EXPECT_TRUE(Has(folder.Read("r.json"), "\"messages\": [\n    \"" + message + "\"\n  ]"));
    EXPECT_TRUE(Has(folder.Read("o/residue.txt"), "saved in file:o/Residue0000.TXT\r\n"));
    EXPECT_FALSE(folder.Exists("o/Residue0000.TXT"));
}

TEST_F(OutputFiles, FilesOfAnEarlierRunAreTold) {
    const std::string calc = "$corvane calc $examples/mtcars.KOV --out o ";
    const std::string residue = "--set RESIDUAL_ANALYSIS=1 --set SAVE_RESIDUE_TEXT=1 ";
    const Ran first =
        Run(calc + residue +
            "--all && $corvane export $examples/mtcars.KOV -o o/d.csv && LC_ALL=C ls o | grep -v -e csv "
            "-e results >old && cp -r o before && " +
            calc);
    EXPECT_EQ(first.exit, 0);
    std::string names = folder.Read("old");
    EXPECT_TRUE(names.starts_with("Residue0000.TXT\ndeviation.txt\n") && names.ends_with("residue.txt\n"))
        << names;
    names.pop_back();
    for (std::size_t at = 0; (at = names.find('\n', at)) != std::string::npos;)
        names.replace(at, 1, ", ");
    EXPECT_TRUE(first.err.ends_with("\ncorvane: o: left from an earlier run: " + names + "\n") ||
                first.err == "corvane: o: left from an earlier run: " + names + "\n")
        << first.err;
    EXPECT_TRUE(Has(Run("diff -rq before o").out, "results.txt"));
    EXPECT_EQ(std::ranges::count(Run("diff -rq before o").out, '\n'), 1);
    EXPECT_EQ(Run("rm -r o; " + calc + "; " + calc + residue).err, "");
    EXPECT_EQ(Run("rm o/residue.txt; " + calc + "--json r.json").err,
              "corvane: o: left from an earlier run: Residue0000.TXT\n");
    EXPECT_TRUE(Has(folder.Read("r.json"),
                    "\"messages\": [\n    \"o: left from an earlier run: Residue0000.TXT\"\n"));
}

TEST_F(OutputFiles, RowsWithoutContentCostNothing) {
    folder.Write("n.KOV", "4,0,0\nN: 2147483646");
    const Ran ran =
        Run("ulimit -v 1000000; $corvane export n.KOV -o n.csv && wc -l <n.csv; $corvane calc n.KOV; "
            "$corvane calc $examples/mtcars.KOV --all --set N=2147483646 >/dev/null; "
            "{ echo 4,0,0; yes; } | $corvane calc /dev/stdin");
    EXPECT_EQ(ran.out, "1\n");
    EXPECT_TRUE(ran.err.starts_with("corvane: n.KOV: of the 2147483646 rows that N announces, 2147483646 are "
                                    "not in the file and are left out\n"
                                    "corvane: n.KOV: 0 rows are in use, at least 3 are needed\n"))
        << ran.err;
    const Ran blank = Run("{ printf '4,0,0\\nN=1503\\nDATA:\\n'; yes 1,,2,,,, | head -n 3; yes ,,,,,, | "
                          "head -n 1500; } >b.KOV; $corvane export b.KOV -o b.csv && wc -l <b.csv");
    EXPECT_EQ(blank.out + blank.err, "1504\n");
    EXPECT_TRUE(ran.err.ends_with("\ncorvane: /dev/stdin: there is not enough memory for it\n")) << ran.err;
}

} // namespace
} // namespace corvane
