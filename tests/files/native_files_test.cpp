#include "platform/native/native_file_store.h"
#include "platform/native/native_processes.h"

#include "platform/native/settings_file.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <stdexcept>
#include <unistd.h>

namespace corvane {
namespace {

namespace fs = std::filesystem;

class NativeFiles : public ::testing::Test {
protected:
    std::size_t FilesInFolder() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()));
    }

    testing::TemporaryFolder folder;
    NativeFileStore files;
};

TEST_F(NativeFiles, ReplacesAsOneStepAndKeepsLinkAndPermissions) {
    const std::string file = folder / "d.KOV", link = folder / "link.KOV";
    ASSERT_TRUE(files.Replace(file, "old").done);
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(file, link);
    ASSERT_TRUE(files.Replace(link, std::string("new\0\r\n", 6)).done);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    std::string bytes;
    EXPECT_TRUE(files.Read(file, bytes).done);
    EXPECT_EQ(bytes, std::string("new\0\r\n", 6));
    EXPECT_EQ(FilesInFolder(), 2U);
}

TEST_F(NativeFiles, BytesMayComeInPiecesAndBreakOff) {
    const std::string file = folder / "d.KOV";
    const auto pieces = [](const auto& sink) { sink("one "), sink("two"); };
    ASSERT_TRUE(files.ReplaceFrom(file, pieces).done);
    const auto broken = [](const auto& sink) { sink("three"), throw std::runtime_error("broken off"); };
    EXPECT_THROW(files.ReplaceFrom(file, broken), std::runtime_error);
    std::string bytes;
    EXPECT_TRUE(files.Read(file, bytes).done);
    EXPECT_EQ(bytes, "one two");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(NativeFiles, FailuresSayWhyAndLeaveNothingBehind) {
    std::string bytes = "untouched";
    EXPECT_EQ(files.Read(folder.Path(), bytes).reason, "this is a folder, not a file");
    EXPECT_EQ(files.Read("/dev/zero", bytes).reason, "this is a device, not a file");
    EXPECT_FALSE(files.Read(folder / "missing", bytes).done);
    EXPECT_EQ(bytes, "untouched");
    EXPECT_FALSE(files.Replace(folder / "no such folder/d.KOV", "x").done);
    EXPECT_EQ(files.Replace(folder.Path(), "x").reason, "this is a folder, not a file");
    if (::geteuid() != 0) { // the superuser writes everywhere
        fs::permissions(folder.Path(), fs::perms::owner_read | fs::perms::owner_exec);
        EXPECT_FALSE(files.Replace(folder / "d.KOV", "x").done);
    }
    EXPECT_EQ(FilesInFolder(), 0U);
}

TEST_F(NativeFiles, SettingsComeBackAndABrokenFileIsKeptAside) {
    SettingsFile settings(files, folder / "config");
    EXPECT_TRUE(settings.Read("App", "One").empty());
    EXPECT_TRUE(settings.Write("App", "One", {{"a", "1"}, {"path", "x=y [z]"}}).done);
    EXPECT_TRUE(settings.Write("App", "Two", {{"a", "2"}}).done);
    EXPECT_TRUE(settings.Write("App", "One", {{"a", "3"}}).done);
    EXPECT_EQ(settings.Read("App", "One"), (Settings::Values{{"a", "3"}, {"path", "x=y [z]"}}));

    std::string whole;
    files.Read(folder / "config/App.conf", whole);
    files.Replace(folder / "config/App.conf", "# by hand\r\n\r\n" + whole);
    EXPECT_EQ(settings.Read("App", "Two"), (Settings::Values{{"a", "2"}}));
    for (const std::string& broken :
         {whole.substr(0, whole.size() / 2), whole.substr(0, whole.rfind(';')), std::string("\x00\xFF", 2)}) {
        files.Replace(folder / "config/App.conf", broken);
        EXPECT_TRUE(settings.Read("App", "One").empty());
        EXPECT_FALSE(fs::exists(folder / "config/App.conf"));
    }
    std::string aside;
    EXPECT_TRUE(files.Read(folder / "config/App.conf.broken2", aside).done);
    EXPECT_EQ(aside, whole.substr(0, whole.rfind(';')));
}

TEST(NativeProcesses, RunsACommandLineAndGivesItsExitCode) {
    NativeProcesses processes;
    std::string console;
    EXPECT_EQ(processes.RunAndWait("sh -c \"printf '%s' 'two words'; echo err >&2; exit 3\"", console), 3);
    EXPECT_EQ(console, "two wordserr\n");
    EXPECT_EQ(processes.RunAndWait("true"), 0);
    EXPECT_EQ(processes.RunAndWait("no-such-program-here"), std::nullopt);
    EXPECT_EQ(processes.RunAndWait("  "), std::nullopt);
}

} // namespace
} // namespace corvane
