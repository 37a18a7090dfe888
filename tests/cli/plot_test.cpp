#include "support/program.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace corvane {
namespace {

using testing::Ran;

bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(PlotCommand, PaintsIntoFilesAndReplacesNoneUnasked) {
    const testing::ProgramFolder folder;
    const std::string scatter = "$corvane plot $examples/mtcars.KOV scatter -o s.svg ";
    const Ran painted = folder.Run(scatter);
    ASSERT_EQ(painted.exit, 0) << painted.err;
    EXPECT_EQ(painted.out + painted.err, "");
    EXPECT_TRUE(Has(folder.Read("s.svg"), ">Observed (Y)<"));
    const Ran again = folder.Run(scatter);
    EXPECT_EQ(again.exit, 1);
    EXPECT_EQ(again.err, "corvane: s.svg exists; --force replaces it\n");
    EXPECT_EQ(
        folder.Run(scatter + "--force --log xy --stats trend,mean --grid --no-legend --format 0.0").exit, 0);
    EXPECT_FALSE(Has(folder.Read("s.svg"), ">Obs<"));
    const Ran separate = folder.Run("$corvane plot $examples/mtcars.KOV histogram -o h.pdf --set "
                                    "HIST_PLOT_SEPARATE=true --set HIST_PLOT_DIFFERENCE=1");
    EXPECT_EQ(separate.exit, 0) << separate.err;
    for (const char* name : {"h.pdf", "h-2.pdf", "h-3.pdf"})
        EXPECT_EQ(folder.Read(name).substr(0, 5), "%PDF-") << name;
}

TEST(PlotCommand, EveryLookAndTheSizeReachThePicture) {
    const testing::ProgramFolder folder;
    std::set<std::string> pictures;
    for (const std::string look :
         {"", "--look no-frame", "--look plot-shadow", "--look area-shadow", "--look plot-colour",
          "--look area-colour", "--look no-frame,plot-shadow"}) {
        EXPECT_EQ(
            folder.Run("$corvane plot $examples/cars.KOV scatter --force -o s.png --size 320,400 " + look)
                .exit,
            0);
        EXPECT_TRUE(pictures.insert(folder.Read("s.png")).second) << look;
    }
    // Of a PNG the width and the height, big-endian, twice as many as asked for.
    EXPECT_EQ(folder.Read("s.png").substr(16, 8), std::string("\0\0\x02\x80\0\0\x03\x20", 8));
}

TEST(PlotCommand, NoPictureReplacesAnother) {
    const testing::ProgramFolder folder;
    const std::string histogram =
        "$corvane plot $examples/mtcars.KOV histogram --set HIST_PLOT_DIFFERENCE=1 ";
    const Ran linked = folder.Run("touch a.svg; ln -s a.svg a-2.svg; " + histogram + "--force -o a.svg");
    EXPECT_EQ(linked.exit, 1);
    EXPECT_EQ(linked.err, "corvane: -o a-2.svg would replace the file of -o a.svg\n");
    EXPECT_EQ(folder.Read("a.svg"), "");
    std::string exits = folder.RunSix("$corvane plot $examples/mtcars.KOV scatter -o six.svg").out;
    EXPECT_EQ(std::ranges::count(exits, '0'), 1) << exits;
}

TEST(PlotCommand, CalcSavesTheChartsOfItsRun) {
    const testing::ProgramFolder folder;
    const Ran ran = folder.Run("$corvane calc $examples/mtcars.KOV --all --out out && ls out");
    ASSERT_EQ(ran.exit, 0) << ran.err;
    for (const char* name :
         {"results.txt", "plot-01-Kleijnen Analysis.svg", "plot-04-Histogram of X and Y.svg"})
        EXPECT_TRUE(Has(ran.out, name)) << name;
}

TEST(PlotCommand, ThePictureIsTheSameWhateverTheEnvironmentSays) {
    const testing::ProgramFolder folder;
    const Ran ran = folder.Run(R"(unset DISPLAY WAYLAND_DISPLAY
plot() { $corvane plot $examples/mtcars.KOV scatter --force -o $1; }
plot a.png && TZ=UTC0 plot a.pdf && TZ=XYZ-9 plot b.pdf && cmp a.pdf b.pdf || exit 3
for platform in xcb minimal nonsense ''; do
    QT_QPA_PLATFORM=$platform QT_QPA_PLATFORMTHEME=gtk3 QT_SCALE_FACTOR=2 QT_FATAL_WARNINGS=1 plot b.png || exit 4
    cmp a.png b.png || exit 5
done
SOURCE_DATE_EPOCH=2e99 plot c.pdf)");
    EXPECT_EQ(ran.exit, 1) << ran.out;
    EXPECT_EQ(ran.err, "corvane: SOURCE_DATE_EPOCH is no count of seconds since 1970\n");
    EXPECT_TRUE(Has(folder.Read("a.pdf"), "/CreationDate (D:19700101000000Z)"));
}

TEST(PlotCommand, ChartsThatCannotBePaintedComeAfterAllElse) {
    const testing::ProgramFolder folder;
    const std::string calc = " calc $examples/mtcars.KOV --all --seed 1 ";
    const Ran plain = folder.Run("$corvane" + calc + "--out plain");
    const Ran ran = folder.Run("mkdir bin out && touch out/plot-77-x.svg && cp $corvane bin/c && printf "
                               "'[Paths]\\nPlugins=/none\\n' >bin/qt.conf"
                               " && bin/c" +
                               calc + "--out out --json j.json");
    EXPECT_EQ(ran.exit, 1);
    EXPECT_EQ(ran.out, plain.out);
    EXPECT_TRUE(Has(ran.err,
                    "corvane: out/plot-09-Deviation vs Model-Predicted.svg: the chart could not be painted"));
    EXPECT_EQ(folder.Read("out/residue.txt"), folder.Read("plain/residue.txt"));
    const std::string json = folder.Read("j.json");
    std::istringstream told(ran.err);
    std::size_t at = json.find("\"messages\"");
    for (std::string line; std::getline(told, line) && at != json.npos;)
        at = json.find('"' + line.substr(line.find(": out") + 2) + '"', at);
    EXPECT_NE(at, json.npos) << ran.err << json;
    EXPECT_TRUE(Has(ran.err, "\ncorvane: out: left from an earlier run: plot-77-x.svg\n"));
    // The program itself needs one descriptor beside the standard streams, a chart some more.
    const std::string closed = "exec 3>&- 4>&- 5>&- 6>&- 7>&- 8>&- 9>&-; "; // what the test was given
    for (const int most : {4, 5, 6, 20}) {
        const Ran few =
            folder.Run(closed + "ulimit -n " + std::to_string(most) + "; $corvane" + calc + "--out few");
        EXPECT_EQ(few.exit, few.err.empty() ? 0 : 1) << few.err;
        EXPECT_EQ(few.out, plain.out) << most;
    }
}

} // namespace
} // namespace corvane
