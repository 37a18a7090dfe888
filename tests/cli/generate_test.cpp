#include "support/program.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::Ran;

TEST(Generate, WritesDatasetsThatCalculate) {
    testing::ProgramFolder folder;
    const std::string arguments = " -n 200 --mean-x -5 --mean-y=-.5 --var-x 4 --var-y 9 -r 0.8 -o ";
    for (const std::string method : {"frank", "clayton", "harlow"}) {
        const std::string generate = "$corvane generate --method " + method + arguments;
        const Ran ran =
            folder.Run(generate + "a.KOV --seed 7 && " + generate + "b.KOV --seed 7 && " + generate +
                       "c.KOV --seed 8 && " + generate + "d.KOV && $corvane calc a.KOV");
        EXPECT_EQ(ran.exit, 0) << ran.err;
        EXPECT_EQ(ran.err, "");
        EXPECT_NE(ran.out.find("\nN               :        200 "), std::string::npos) << ran.out;
        EXPECT_EQ(folder.Read("a.KOV"), folder.Read("b.KOV"));
        EXPECT_NE(folder.Read("a.KOV"), folder.Read("c.KOV"));
        EXPECT_NE(folder.Read("a.KOV"), folder.Read("d.KOV"));
        folder.Run("rm *.KOV");
    }
}

TEST(Generate, RefusesWithOneClearLine) {
    testing::ProgramFolder folder;
    folder.Write("old.KOV", "old");
    const std::string start = "$corvane generate --method frank --mean-x 1 --mean-y 1 --seed 1 ",
                      good = start + "-n 9 --var-x 4 --var-y 4 -r 1 ";
    const auto refused = [&](const std::string& command, const std::string& message) {
        const Ran ran = folder.Run(command);
        EXPECT_EQ(ran.exit, 1) << command;
        EXPECT_EQ(ran.err, "corvane: " + message + "\n");
    };
    refused(start + "-n -3 --var-x 0 --var-y 4 -r 2 -o a.KOV", "Number of data points cannot be less than 3");
    refused(start + "-n 3 --var-x 0 --var-y 4 -r -2 -o a.KOV", "Correlation has to be between o and 1");
    refused(start + "-n 3 --var-x 0 --var-y 4 -r 1 -o a.KOV", "Variance cannot be negative or zero");
    refused(good + "-o old.KOV", "old.KOV exists; --force replaces it");
    refused(good + "-o none/a.KOV", "none/a.KOV: No such file or directory");
    EXPECT_EQ(folder.Read("old.KOV"), "old");
    EXPECT_EQ(folder.Run(good + "-o old.KOV --force").exit, 0);
    EXPECT_NE(folder.Read("old.KOV"), "old");
    for (const char* wrong : {"", "-o ''", "-o a.KOV --method gauss", "-o a.KOV --mean-x inf",
                              "-o a.KOV -n 9.5", "-o a.KOV b", "-o a"})
        EXPECT_EQ(folder.Run(good + wrong).exit, 2) << wrong;
    EXPECT_FALSE(folder.Exists("a"));
    const std::string plain =
        "$corvane generate --method frank --mean-x 1 --mean-y 1 --var-x 4 --var-y 4 -r 1 "
        "-o b.KOV ";
    for (const char* wrong : {"-n 0x10", "-n 9.5", "-n 99999999999", "-n 9 --seed -1"}) {
        const Ran ran = folder.Run(plain + wrong);
        EXPECT_EQ(ran.exit, 2) << wrong;
        EXPECT_NE(ran.err.find("' is no whole number from "), std::string::npos) << ran.err;
    }
    EXPECT_EQ(folder.Run(plain + "-n 010").exit, 0);
    EXPECT_NE(folder.Read("b.KOV").find("\nN=10\r"), std::string::npos);
}

} // namespace
} // namespace corvane
