#include "support/program.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::Ran;

TEST(Streams, NoTextSteersTheTerminalThatShowsIt) {
    const testing::ProgramFolder folder;
    // Colour, a line end and a right-to-left override; script(1) gives the program a terminal.
    folder.Write("run", R"(name=$(printf 'e\033[31m\n\342\200\256.KOV')
cp "$examples/mtcars.KOV" "$name"; printf '%s' "$name" >name
printf '#TRUE#,"/listed%s"\n' "$name" >l.KOC
"$corvane" calc "$name"
"$corvane" calc "$name" --json -
"$corvane" calc "no$name"
"$corvane" calc d --set "$name"
"$corvane" calc "$name" --set "N=$name"
"$corvane" plot d "$name" -o a.svg
"$corvane" compare l.KOC "$name"
"$corvane" compare l.KOC
"$corvane" "--$name"
"$corvane" "/F\"$name"
"$corvane" "/F$name" /S "/L$name")");
    folder.Run("export corvane examples; script -qec 'sh run' shown </dev/null");
    const std::string shown = folder.Read("shown"), name = folder.Read("name");
    EXPECT_EQ(shown.find("\033[31m"), std::string::npos) << shown;
    EXPECT_EQ(shown.find("\xE2\x80\xAE"), std::string::npos);
    for (const char* words : {"[e\\u001B[31m", R"(noe\u001B[31m\n\u202E.KOV)", "/listede\\u001B",
                              "KIND: ", "not expected: --e", "unpaired", "not saved"})
        EXPECT_NE(shown.find(words), std::string::npos) << words << "\n" << shown;
    const Ran piped =
        folder.Run("export corvane; sh -c '$corvane calc \"$(cat name)\"; $corvane calc no\"$(cat name)\"'");
    EXPECT_NE(piped.out.find("[" + name + "]"), std::string::npos);
    EXPECT_EQ(piped.err, "corvane: no" + name + ": No such file or directory\n");
}

TEST(Streams, AnOutputThatCannotBeWrittenEndsWithOne) {
    const testing::ProgramFolder folder;
    for (const std::string words :
         {"--help", "--version", "plot --help", "calc $examples/mtcars.KOV", "import t.csv --force -o t.KOV"})
        for (const std::string end : {">/dev/full", ">&-", ">&- <&-"}) {
            const Ran ran =
                folder.Run("printf 'x,y\\n1,2\\n2,3\\n3,5\\n' >t.csv; $corvane " + words + " " + end);
            EXPECT_EQ(ran.exit, 1) << words << end;
            EXPECT_NE(ran.err.find("standard output"), std::string::npos) << words << end << ran.err;
        }
    // No file may take the number of a closed stream and then its text.
    const std::string saved = "$corvane calc $examples/mtcars.KOV --out ";
    folder.Run(saved + "open");
    EXPECT_EQ(folder.Run(saved + "closed >&- 2>&- <&-").exit, 1);
    EXPECT_EQ(folder.Read("closed/results.txt"), folder.Read("open/results.txt"));
}

} // namespace
} // namespace corvane
