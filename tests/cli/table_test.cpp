#include "support/program.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::Ran;

class Tables : public ::testing::Test {
protected:
    Ran Run(const std::string& command) const { return folder.Run(command); }

    testing::ProgramFolder folder;
};

TEST_F(Tables, AnExportImportedIsTheSameDataset) {
    EXPECT_EQ(
        Run("$corvane export $examples/pearson.KOV -o p.csv && $corvane import p.csv -o q.KOV >/dev/null "
            "&& $corvane export q.KOV -o q.CSV && cmp p.csv q.CSV")
            .exit,
        0);
    const Ran table = Run("$corvane calc p.csv --set WLSM=True"),
              dataset = Run("$corvane calc q.KOV --set WLSM=True");
    EXPECT_EQ(table.exit, 0);
    EXPECT_NE(table.out.find("[p.csv]"), std::string::npos);
    EXPECT_EQ(table.out.substr(table.out.find("\n....")), dataset.out.substr(dataset.out.find("\n....")));
    EXPECT_TRUE(table.err.starts_with("corvane: p.csv: 10 rows; X is column 1 'X'; SD X is")) << table.err;
}

TEST_F(Tables, OptionsReachTheImportAndWarningsTheUser) {
    folder.Write("t.txt", "\"1,234\",a,x\n5,2,3\n7,8,\n\"2,5\",4,6\n");
    const Ran ran = Run(
        "$corvane import t.txt --x 2 --y 1 --sdx 3 --decimal comma --separator comma --header no -o t.kov");
    EXPECT_EQ(ran.exit, 0);
    EXPECT_EQ(ran.out,
              "t.txt: 4 rows, no header; Y is column 1; X is column 2; SD X is column 3; separated by "
              "comma, decimal comma; the first pair is X 'a', Y '1.234'\n");
    EXPECT_EQ(ran.err, "corvane: warning: t.txt:1: column 2: 'a' is no number; a run takes it for 0\n"
                       "corvane: warning: t.txt:1: column 3: 'x' is no number; a run takes it for 0\n");
    EXPECT_NE(folder.Read("t.kov").find("\"2\",\"3\",\"5\",\"\",\"\",\"\",\"\"\r\n"), std::string::npos);
    folder.Write("n.csv", "x;y\n1,5;2\n2;\n3;5\n4;4\n");
    const Ran calc = Run("$corvane calc n.csv --json -");
    const std::string warning = "n.csv:3: X without Y; a run takes the Y for 0 unless the row is excluded";
    EXPECT_TRUE(
        calc.err.starts_with("corvane: warning: " + warning + "\ncorvane: n.csv: 4 rows; X is column 1 'x'"))
        << calc.err;
    EXPECT_NE(calc.out.find("\"messages\": [\n    \"" + warning + "\",\n    \"n.csv: 4 rows; X"),
              std::string::npos)
        << calc.out;
}

TEST_F(Tables, ALongValueIsCutInAMessage) {
    folder.Write("d.csv", "X;Y\n1;2\n3;4\n5;7\n");
    for (const char* end : {"", "=1"}) {
        const Ran ran =
            Run(std::string("$corvane calc d.csv --set $(head -c 100000 /dev/zero | tr '\\0' x)") + end);
        EXPECT_EQ(ran.exit, *end == 0 ? 2 : 1);
        EXPECT_NE(ran.err.find("xx…xx"), std::string::npos);
        EXPECT_LT(ran.err.size(), 600U);
    }
}

} // namespace
} // namespace corvane
