#include "support/program.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::Ran;

class Switches : public ::testing::Test {
protected:
    Switches() {
        folder.Write("d.KOV", folder.ReadBytesOf("mtcars.KOV"));
        std::filesystem::create_directory(folder / "a b");
        std::filesystem::copy(folder / "d.KOV", folder / "a b/e.KOV");
    }

    /// Runs the program and expects it to end with 0 and without a word.
    void Silent(const std::string& arguments) {
        const Ran ran = folder.Run("$corvane " + arguments);
        EXPECT_EQ(ran.exit, 0) << arguments;
        EXPECT_EQ(ran.out + ran.err, "") << arguments;
    }
    std::size_t Saved(const std::string& where) const {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder / where))
            count += entry.is_regular_file();
        return count;
    }

    struct Folder : testing::ProgramFolder {
        static std::string ReadBytesOf(const std::string& example) {
            return testing::ReadBytes(std::string(CORVANE_EXAMPLES) + "/" + example);
        }
    } folder;
};

TEST_F(Switches, LoadCalculateSaveEnd) {
    std::filesystem::create_directory(folder / "out");
    Silent("\"/F$PWD/a b/e.KOV\" /S /L\"$PWD/out\" /X");
    Silent("/F\"a b/e.KOV\" /S /Lout/"); // relative, and without /X nobody waits
    Silent("/fd.KOV /s /l\"$PWD/out\" /x");
    EXPECT_EQ(Saved("out"), 3U);
    const std::string report = folder.Read("out/Notes0001.TXT");
    EXPECT_NE(report.find("[e.KOV]"), std::string::npos);
    EXPECT_NE(report.find("1970 00:00:00\r\n...."), std::string::npos);
    // Quotes that reach the program are dropped, as in a line; outside of them a blank ends the path.
    Silent("\"/F\\\"$PWD/a b/e.KOV\\\" /S /L\\\"$PWD/out\\\" /X\"");
    Silent("'/Fa\" b\"/e.KOV' /S '/L\"out\"' /X");
    Silent("'/S /F\"d.KOV\"' /Lout");
    Silent("'/F\"'$PWD'/a b/e.KOV\" /S /L'$PWD'/out /X'"); // a path without quotes after one with them
    Silent("'/S /L'$PWD'/out /Fd.KOV /X'");
    EXPECT_EQ(Saved("out"), 8U);
    Silent("/Fd.KOV /S");
    EXPECT_TRUE(folder.Exists("documents/ORRL/KOV Files/Notes0001.TXT"));
    EXPECT_FALSE(folder.Exists("settings"));
}

TEST_F(Switches, WhatIsNotThereIsSkippedInSilence) {
    std::filesystem::create_directory(folder / "out");
    Silent("/X");
    Silent("/Fmissing.KOV /S /Lout /X");
    Silent("\"/F'd.KOV'\" /S /Lout /X");
    Silent("before /Fd.KOV /S /Lout /X"); // text before the first switch joins its token
    Silent("/F d.KOV /S /Lout /X");       // a blank makes a second token
    Silent("\"/F$(printf 'd\\377.KOV')\" /S /Lout /X");
    Silent("/F$(head -c 5000 /dev/zero | tr '\\0' x) /S /Lout /X");
    Silent("'/F\"C:\\my data\\d.KOV\" /S /L\"\\\\srv\\out\" /X'");
    Silent("$(yes /S | head -n 10000) /X");
    EXPECT_EQ(Saved("out"), 0U);
}

TEST_F(Switches, MessagesAndRefusals) {
    Silent("/Cd.KOV /X");
    const Ran noPrinter = folder.Run("mkdir bin; ln -s $corvane bin/c; PATH=$PWD/bin c /Fd.KOV /P /X");
    EXPECT_EQ(noPrinter.exit, 0);
    EXPECT_EQ(noPrinter.err,
              "corvane: Info: Source: Print; Description: this system has no print spooler (lp or "
              "lpr); Code: 1\n");
    folder.Write("lp", "#!/bin/sh\n/bin/cat >printed\n");
    const Ran printed = folder.Run("chmod +x lp; PATH=$PWD $corvane /Fd.KOV /P /X");
    EXPECT_EQ(printed.err, "");
    EXPECT_NE(folder.Read("printed").find("REGRESSION ANALYSIS"), std::string::npos);
    for (const std::string arguments :
         {"'/Fd\\.KOV'", "'/F\"d.KOV'", "'/F1:\\d.KOV'", "'/F\"sub\\d.KOV\"'", "'/Fmy data/d.KOV\"' /S",
          "/Fd.KOV '/S\"'", "/S '\"'", "'/G\"'", "'/F\"d.KOV\" /S\" /Lout'"}) {
        const Ran refused = folder.Run("$corvane " + arguments + " /X");
        EXPECT_EQ(refused.exit, 1) << arguments;
        EXPECT_NE(refused.err.find("with a backslash or an unpaired double quote"), std::string::npos)
            << arguments;
    }
    const Ran unsaved = folder.Run("$corvane /Fd.KOV /S /Lnowhere /X");
    EXPECT_EQ(unsaved.exit, 0);
    EXPECT_EQ(unsaved.err, "corvane: " + (folder / "nowhere/Notes0001.TXT: the results are not saved: "
                                                   "No such file or directory\n"));
    const Ran path = folder.Run("$corvane \"$PWD/typo.KOV\"");
    EXPECT_EQ(path.exit, 1);
}

TEST_F(Switches, RunsAtTheSameTimeKeepEveryReport) {
    std::filesystem::create_directories(folder / "out/Notes0002.TXT"); // a folder has taken that number
    Silent("/Fd.KOV /S /Lout & $corvane /Fd.KOV /S /Lout & $corvane '/S /Fd.KOV' /Lout & "
           "$corvane /S/Fd.KOV /Lout & $corvane /Fd.KOV /S /Lout & wait");
    EXPECT_EQ(Saved("out"), 4U); // without a blank, /S/Fd.KOV is one token
    const Ran limited =
        folder.Run("(ulimit -f 1; $corvane calc d.KOV --out small >/dev/null); echo $?; ls -A small");
    EXPECT_EQ(limited.out, "1\n");
    EXPECT_NE(limited.err.find("small/results.txt: File too large"), std::string::npos);
}

TEST_F(Switches, AFullDiskLeavesNoPartOfAFile) {
    const std::string inTmpfs =
        "unshare -rm sh -c 'mkdir -p full && mount -t tmpfs -o size=4k none full && echo x >full/x && ";
    if (folder.Run(inTmpfs + "true'").exit != 0)
        GTEST_SKIP() << "this system does not let a user mount a small file system";
    const Ran silent =
        folder.Run("export corvane; " + inTmpfs + "$corvane /Fd.KOV /S /Lfull /X; ls -A full'");
    EXPECT_EQ(silent.exit, 0);
    EXPECT_EQ(silent.out, "x\n");
    EXPECT_NE(silent.err.find("Notes0001.TXT: the results are not saved: No space"), std::string::npos);
    const Ran calc =
        folder.Run("export corvane; " + inTmpfs +
                   "$corvane calc d.KOV --set SHOW_LITERATURE=1 --out full; echo $?; ls -A full'");
    EXPECT_TRUE(calc.out.starts_with("KOV v.") && calc.out.ends_with("\n1\nx\n")) << calc.out;
    EXPECT_NE(calc.err.find("full/results.txt: No space left on device"), std::string::npos);
}

} // namespace
} // namespace corvane
