#include "app/comparison_action.h"
#include "app/open_file.h"
#include "app/output_guard.h"
#include "app/run_folder.h"
#include "app/save_file.h"
#include "core/grid_operations.h"
#include "support/fakes.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::MemoryFiles;

TEST(OpenFile, TellsTheKindByTheEnding) {
    for (const auto& [name, kind] : {std::pair{"a/b.KOV", FileKind::Dataset},
                                     {"b.koc", FileKind::Comparison},
                                     {"b.Csv", FileKind::Table},
                                     {"b", FileKind::Dataset},
                                     {".csv", FileKind::Dataset},
                                     {".KOC", FileKind::Comparison}})
        EXPECT_EQ(KindOfFile(name), kind) << name;
}

TEST(OpenFile, ARefusedFileLeavesTheTargetAloneAndABrokenOneSaysWhere) {
    MemoryFiles files;
    files.files = {{"/old.KOV", "1,9,0\nDATA:\n"},
                   {"/no.KOV", "hello\n"},
                   {"/two.csv", "x,y\n\"1\n"},
                   {"/part.KOV", "4,0,0\nN=5\nDATA:\n1,,2,,,,\n3,,4"},
                   {"/few.KOV", "4,0,0\nN=1\nN=2\nDATA:\n1,,2,,,,\n3,,4,,,,\n"},
                   {"/t.csv", "x,y\n1,2\n3,many\n"}};
    struct Case {
        const char* path;
        OpenEnd end;
        std::size_t line, fewRowsLine, warnings;
        const char* x; ///< The first X cell afterwards, where it was 9.
    };
    for (const Case& c : {Case{"/gone.KOV", OpenEnd::Refused, 0, 0, 0, "9"},
                          {"/old.KOV", OpenEnd::OldVersion, 1, 0, 0, "9"},
                          {"/no.KOV", OpenEnd::Refused, 1, 0, 0, "9"},
                          {"/two.csv", OpenEnd::Refused, 2, 0, 0, "9"},
                          {"/part.KOV", OpenEnd::Partial, 5, 0, 0, "1"},
                          {"/few.KOV", OpenEnd::Opened, 0, 2, 0, "1"},
                          {"/t.csv", OpenEnd::Opened, 0, 0, 1, "1"}}) {
        Dataset dataset;
        SessionState session;
        session.CurrentDatasetName = "before";
        dataset.cells.Set(ColumnX, 1, 9.0);
        const OpenOutcome opened = OpenDataset(c.path, dataset, session, files);
        EXPECT_EQ(opened.end, c.end) << c.path << opened.Error();
        EXPECT_EQ(opened.line, c.line) << opened.Error();
        EXPECT_EQ(opened.fewRowsLine, c.fewRowsLine) << c.path;
        EXPECT_EQ(opened.warnings.size(), c.warnings) << c.path;
        EXPECT_EQ(opened.reason.empty(), opened.Whole()) << c.path;
        EXPECT_EQ(CellText(dataset.cells.At(ColumnX, 1)), c.x) << c.path;
        EXPECT_EQ(session.CurrentDatasetName, *c.x == '9' ? "before" : c.path);
    }
}

TEST(SaveFile, ReplacesOnlyWhatItMay) {
    MemoryFiles files;
    Dataset dataset;
    dataset.cells.Set(ColumnX, 1, 7.5);
    EXPECT_TRUE(ExportTable("/t.csv", dataset, Existing::Keep, files).done);
    const FileResult taken = SaveDataset("/t.csv", dataset, Existing::Keep, files);
    EXPECT_TRUE(!taken.done && taken.taken);
    EXPECT_EQ(taken.reason, "/t.csv: File exists");
    EXPECT_NE(files.files["/t.csv"].find("\r\n7.5,"), std::string::npos);
    EXPECT_TRUE(SaveDataset("/t.csv", dataset, Existing::Replace, files).done);
    EXPECT_TRUE(files.files["/t.csv"].starts_with("4,"));

    OutputGuard guard;
    guard.Read("/d.KOV", "the dataset");
    EXPECT_EQ(guard.Claim("Save as", "/x/../d.KOV"), "Save as /x/../d.KOV would replace the dataset");
    EXPECT_EQ(guard.Claim("Save as", "/e.KOV"), "");
}

TEST(OutputFolders, GoAgainUnlessTheyAreKeptOrUsed) {
    const testing::TemporaryFolder folder;
    namespace fs = std::filesystem;
    for (const int use : {0, 1, 2}) {
        {
            OutputFolder output;
            ASSERT_EQ(output.Make(folder / "a/b/c/"), "");
            EXPECT_TRUE(fs::is_directory(folder / "a/b/c"));
            if (use == 1)
                fs::create_directory(folder / "a/other");
            if (use == 2)
                output.Keep();
        }
        EXPECT_EQ(fs::exists(folder / "a/b/c"), use == 2);
        EXPECT_EQ(fs::exists(folder / "a/b"), use == 2);
        EXPECT_EQ(fs::exists(folder / "a"), use > 0);
    }
}

TEST(ComparisonAction, FillsTicksAndTakesItsSnapshot) {
    MemoryFiles files;
    ComparisonList list;
    EXPECT_TRUE(FillComparison({"/a/../b.KOV", "/c.KOV", "/d.KOV"}, list, files).Whole());
    EXPECT_EQ(TickOnly(std::vector<std::size_t>{1, 4}, list), "4: the list has 3 files");
    EXPECT_EQ(TickOnly(std::vector<std::size_t>{3, 1}, list), "");
    ChangeSettings({.longDigits = 15, .shortDigits = {}, .decimals = {{"1", "2", "0"}}}, list.settings);
    const ComparisonSnapshot taken = TakeSnapshot(list, true, testing::FixedClock());
    ASSERT_EQ(taken.files.size(), 3U);
    EXPECT_EQ(taken.files[0].path, "/b.KOV");
    EXPECT_TRUE(taken.files[0].selected && !taken.files[1].selected && taken.files[2].selected);
    EXPECT_EQ(taken.settings.DigitsLong + taken.settings.DigitsShort + taken.settings.DecimalsCorrelations,
              "1590");
    EXPECT_EQ(FillComparison({"/gone.KOC"}, list, files).end, OpenEnd::Refused);
    EXPECT_EQ(list.Rows().size(), 3U);
}

} // namespace
} // namespace corvane
