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

TEST(Generate, ReplacesWhereItIsForced) {
    testing::ProgramFolder folder;
    folder.Write("old.KOV", "old");
    EXPECT_EQ(folder
                  .Run("$corvane generate --method frank --mean-x 1 --mean-y 1 --var-x 4 --var-y 4 -r 1 "
                       "-n 010 -o old.KOV --force")
                  .exit,
              0);
    EXPECT_NE(folder.Read("old.KOV").find("\nN=10\r"), std::string::npos);
}

} // namespace
} // namespace corvane
