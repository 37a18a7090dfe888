#include "comparison/comparison_list.h"

#include "core/format/code_page.h"
#include "platform/native/native_file_store.h"
#include "support/fakes.h"
#include "support/golden.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace testing;
using Strings = std::vector<std::string>;

/// The list as "path" or "[path]" where ticked, with ">" at the current row.
std::string Shown(const ComparisonList& list) {
    std::string text;
    for (std::size_t row = 0; row < list.Rows().size(); ++row) {
        const auto& [path, selected] = list.Rows()[row];
        text += (list.Current() == row ? ">" : "") + (selected ? "[" + path + "]" : path) + " ";
    }
    return text;
}

ComparisonList ListOf(const Strings& paths) {
    ComparisonList list;
    list.Add(paths);
    return list;
}

TEST(ComparisonList, AddsEachFileOnceAndCountsThem) {
    ComparisonList list;
    EXPECT_EQ(list.ListCaption(), "File names");
    list.Add(Strings{"a", "b", "a"});
    list.Add(Strings{"b", "c"});
    EXPECT_EQ(Shown(list), "a b c ");
    EXPECT_EQ(list.ListCaption(), "File names (3 files)");
    list.RemoveCurrent(); // there is none
    EXPECT_EQ(Shown(list), "a b c ");
    list.Select(0, true);
    list.SetCurrent(1);
    list.RemoveCurrent(); // and not the ticked one
    EXPECT_EQ(Shown(list), "[a] >c ");
    list.RemoveCurrent();
    EXPECT_EQ(Shown(list), ">[a] ");
    list.RemoveCurrent();
    EXPECT_EQ(Shown(list) + list.ListCaption(), "File names");
    list.RemoveAll();
    EXPECT_EQ(list.WindowCaption(), "Corvane Comparison v. 4.0.0");
}

TEST(ComparisonList, MovesPathsAndLeavesTicks) {
    ComparisonList list = ListOf({"a", "b", "c"});
    list.MoveUp(); // no current row
    list.Select(0, true);
    list.SetCurrent(1);
    list.MoveUp();
    EXPECT_EQ(Shown(list), ">[b] a c ");
    list.MoveUp();
    EXPECT_EQ(Shown(list), "[a] c >b ");
    list.MoveDown();
    EXPECT_EQ(Shown(list), ">[b] a c ");
    list.MoveDown();
    EXPECT_EQ(Shown(list), "[a] >b c ");

    ComparisonList one = ListOf({"a"});
    one.SetCurrent(0);
    one.MoveUp();
    one.MoveDown();
    EXPECT_EQ(Shown(one), ">a ");
    ComparisonList().MoveDown();
}

/// A folder with dataset files of awkward names and a comparison file of them.
class KocFile : public ::testing::Test {
protected:
    KocFile() {
        for (const char* name : {"a,b.KOV", "c \"d\".KOV", "gr\xC3\xBC\xC3\x9F.KOV", "#TRUE#"})
            WriteBytes(folder / name, "");
        list.Add(Strings{folder / "a,b.KOV", folder / "c \"d\".KOV", folder / "gr\xC3\xBC\xC3\x9F.KOV",
                         folder / "#TRUE#"});
        list.Select(0, true);
        list.Select(3, true);
        list.settings = {"14", "8", "5", "4", "\"3\""};
    }
    ComparisonList Opened(const std::string& bytes, std::string* error = nullptr) {
        MemoryFiles memory;
        memory.files["x.KOC"] = bytes;
        ComparisonList opened;
        outcome = opened.Open("x.KOC", memory);
        if (error)
            *error = outcome.Error();
        else
            EXPECT_TRUE(outcome.Complete()) << outcome.Error();
        return opened;
    }
    std::string Row(const char* tick, const char* name) const {
        return std::string(tick) + ",\"" + (folder / name) + "\"\r\n";
    }

    TemporaryFolder folder;
    NativeFileStore files;
    RecordingDialogs dialogs;
    ComparisonList list;
    KocOutcome outcome;
};

TEST_F(KocFile, HoldsTheListByteForByte) {
    const std::string path = folder / "list.KOC";
    ASSERT_TRUE(list.Save(path, files, dialogs)->done);
    const std::string written = ReadBytes(path);
    EXPECT_EQ(DecodeText(written),
              "\"<Options>\"\r\n\"14\"\r\n\"8\"\r\n\"5\"\r\n\"4\"\r\n\"\"\"3\"\"\"\r\n\"</Options>\"\r\n" +
                  Row("#TRUE#", "a,b.KOV") + "#FALSE#,\"" + folder.Path() + "/c \"\"d\"\".KOV\"\r\n" +
                  Row("#FALSE#", "gr\xC3\xBC\xC3\x9F.KOV") + Row("#TRUE#", "#TRUE#"));
    ComparisonList again;
    EXPECT_TRUE(again.Open(path, files).Complete());
    EXPECT_EQ(Shown(again), Shown(list));
    EXPECT_EQ(again.settings.DecimalsCorrelations, "\"3\"");
    EXPECT_EQ(again.WindowCaption(), "Corvane Comparison v. 4.0.0 - list.KOC");

    EXPECT_FALSE(again.Save(path, files, dialogs)); // answered with no
    EXPECT_EQ(dialogs.questions,
              Strings{"The file '" + path + "' already exists. Do you want to overwrite it?"});
    dialogs.answer = true;
    EXPECT_TRUE(again.Save(path, files, dialogs)->done);
    EXPECT_EQ(ReadBytes(path), written);
}

TEST_F(KocFile, OptionsMayBeFewOrMissing) {
    ComparisonList opened = Opened("\"<Options>\"\r\n\"15\"\r\n\"</Options>\"\r\n" + Row("#true#", "#TRUE#"));
    EXPECT_EQ(Shown(opened), "[" + (folder / "#TRUE#") + "] ");
    EXPECT_EQ(opened.settings.DigitsLong + opened.settings.DigitsShort, "159");
    opened = Opened(Row("#FALSE#", "a,b.KOV") + Row("#TRUE#", "#TRUE#"));
    EXPECT_EQ(Shown(opened), (folder / "a,b.KOV") + " [" + (folder / "#TRUE#") + "] ");
    // After the fifth setting one more item is read, whatever it is: here it becomes a tick.
    opened = Opened("\"<Options>\"\r\n1,2,3,4,5\r\n" + Row("#TRUE#", "a,b.KOV"));
    EXPECT_EQ(Shown(opened), "[" + (folder / "a,b.KOV") + "] ");
    EXPECT_EQ(opened.settings.DecimalsCorrelations, "5");

    opened = Opened(Row("#TRUE#", "gone.KOV") + Row("#TRUE#", "#TRUE#"));
    EXPECT_EQ(opened.Rows().size(), 1U);
    EXPECT_EQ(outcome.leftOut, Strings{"x.KOC:1: " + (folder / "gone.KOV") + ": there is no such file"});
}

TEST_F(KocFile, BrokenFilesSayWhere) {
    const std::string whole = KocFileText(list.settings, list.Rows());
    for (std::size_t length = 0; length < whole.size(); ++length) {
        std::string error;
        const ComparisonList opened = Opened(whole.substr(0, length), &error);
        EXPECT_TRUE(Shown(list).starts_with(Shown(opened))) << length;
        // What a cut lost is told, unless a record ends there but for its closing quote.
        const bool recordEnds =
            length > 0 && (whole[length - 1] == '\n' || whole.find('\n', length) < length + 3);
        EXPECT_TRUE(!outcome.Complete() || !outcome.leftOut.empty() || recordEnds) << length;
    }
    std::string error;
    Opened("", &error);
    EXPECT_EQ(error, "x.KOC:1: the file ends where a comparison should follow");
    const ComparisonList opened = Opened(Row("#TRUE#", "#TRUE#") + Row("maybe", "a,b.KOV"), &error);
    EXPECT_EQ(error, "x.KOC:2: a tick is 'maybe', not #TRUE# or #FALSE#");
    EXPECT_EQ(opened.Rows().size(), 1U);
    EXPECT_FALSE(list.Open(folder / "none.KOC", files).Complete());
    EXPECT_EQ(list.Rows().size(), 4U); // unreadable, so nothing changed
}

TEST_F(KocFile, ADropWithOneOpensItAndIgnoresTheRest) {
    WriteBytes(folder / "x.KOC.bak", Row("#TRUE#", "a,b.KOV"));
    EXPECT_FALSE(list.Drop(Strings{folder / "a,b.KOV", "new.koc"}, files));
    EXPECT_EQ(list.ListCaption(), "File names (5 files)");
    const auto dropped = list.Drop(Strings{"other.KOV", folder / "x.KOC.bak", "rest.KOV"}, files);
    EXPECT_TRUE(dropped && dropped->Complete());
    EXPECT_EQ(Shown(list), "[" + (folder / "a,b.KOV") + "] ");
    EXPECT_EQ(list.comparisonPath, folder / "x.KOC.bak");
}

} // namespace
} // namespace corvane
