#include "support/program.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace corvane {
namespace {

/// Each line of tests/data/refusals.txt is the exit code, what follows the program's name, and what is on
/// standard error: of an exit with 1 in its only line.
TEST(Refusals, EachSaysWhyAndLeavesEveryFileAsItWas) {
    const testing::ProgramFolder folder;
    folder.Write("broken.KOV", "4,0,0\nOLS_SLS=x\n");
    folder.Write("old.KOV", "1,9,0\n");
    folder.Write("one.KOV", "4,0,0\nOLS_SLS= 1\nN=1\n");
    folder.Write("cut.KOC", "\"<Options>\"\n\"12\"\n");
    folder.Write("d.csv", "X;Y\n1.234;2\n3;4\n5;7\n");
    const std::string state = "; ls; cat *.KOV *.csv";
    const std::string before =
        folder
            .Run("dataset() { printf \"4,0,0\\nN=$(($# - 1))\\nDATA:\\n\" >$1; name=$1; shift; "
                 "for pair; do echo \"$pair,,,,\" >>$name; done; }; "
                 "dataset a.KOV 1,,1 2,,3 3,,2 4,,5 5,,4; dataset b.KOV 2,,1 3,,3 2,,2 5,,5 4,,4; "
                 "dataset two.KOV 1,,1 2,,3; dataset same.KOV 1,,1 2,,2 3,,3; "
                 "dataset short.KOV 1,,2 2,,3 ,,; dataset low.KOV -1,,2 -2,,3 0,,1; "
                 "mkfifo pipe; ln -s a.KOV e.csv" +
                 state)
            .out;
    std::istringstream table(testing::ReadBytes(std::string(CORVANE_TEST_DATA) + "/refusals.txt"));
    int refusals = 0;
    for (std::string exit, arguments, part; std::getline(table, exit, '|');) {
        std::getline(table, arguments, '|');
        std::getline(table, part);
        if (!CORVANE_CHARTS && arguments.starts_with("plot"))
            continue;
        const testing::Ran ran = folder.Run("frank='generate --method frank --mean-x 1 --mean-y 1 --seed 1' "
                                            "good='--var-x 4 --var-y 4 -r 1'; $corvane " +
                                            arguments);
        SCOPED_TRACE(arguments + "\n" + ran.err.substr(0, 1000));
        EXPECT_EQ(std::to_string(ran.exit), exit);
        EXPECT_EQ(ran.out, "");
        EXPECT_NE(ran.err.find(part), std::string::npos) << part;
        EXPECT_TRUE(exit == "2" || std::ranges::count(ran.err, '\n') == 1);
        ++refusals;
    }
    EXPECT_GT(refusals, 60);
    EXPECT_EQ(folder.Run("true" + state).out, before);
}

} // namespace
} // namespace corvane
