#include "platform/native/desktop_programs.h"
#include "platform/native/native_file_store.h"
#include "platform/native/native_processes.h"

#include "platform/native/settings_file.h"
#include "platform/native/unfinished_file.h"
#include "support/temporary_folder.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <pty.h>
#include <stdexcept>
#include <sys/stat.h>
#include <sys/wait.h>
#include <tuple>
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

TEST_F(NativeFiles, AReplacedFileKeepsWhoseItIsButNoSetIdBits) {
    const std::string file = folder / "d.KOV";
    ASSERT_TRUE(files.Replace(file, "old").done);
    if (::geteuid() == 0) { // only the superuser gives files away
        ASSERT_EQ(::chown(file.c_str(), 1234, 2345), 0);
    }
    ASSERT_EQ(::chmod(file.c_str(), 06750), 0);
    struct stat old {
    }, now{};
    ::stat(file.c_str(), &old);
    ASSERT_TRUE(files.Replace(file, "new").done);
    ::stat(file.c_str(), &now);
    EXPECT_EQ(std::tuple(now.st_uid, now.st_gid, now.st_mode & 07777),
              std::tuple(old.st_uid, old.st_gid, mode_t{0750}));
}

TEST_F(NativeFiles, LinksAreFollowedOrReplacedAsAsked) {
    const std::string file = folder / "d.KOV", link = folder / "link", device = folder / "device";
    ASSERT_TRUE(files.Create(file, "old").done);
    fs::create_symlink(file, link);
    fs::create_symlink("/dev/null", device);
    EXPECT_TRUE(files.Create(link, "x").taken);
    EXPECT_EQ(files.Replace(device, "x").reason, "this is a device or a pipe, not a file");
    for (const std::string& replaced : {link, device}) {
        EXPECT_TRUE(files.ReplaceEntry(replaced, [](const auto& sink) { sink("new"); }).done);
        EXPECT_FALSE(fs::is_symlink(replaced));
    }
    std::string bytes;
    EXPECT_TRUE(files.Read(file, bytes).done);
    EXPECT_EQ(bytes, "old");
}

TEST_F(NativeFiles, WhatIsTooLargeForTheMemoryIsRefused) {
    std::string bytes;
    ASSERT_TRUE(files.Create(folder / "large", "x").done);
    fs::resize_file(folder / "large", std::uintmax_t{1} << 40);
    EXPECT_EQ(files.Read(folder / "large", bytes).reason, NotEnoughMemory);
}

/// An end by a signal in the middle of writing leaves nothing, whether the file has a name or not.
TEST_F(NativeFiles, AnUnfinishedFileGoesWithTheProgram) {
    for (const auto nameless : {UnfinishedFile::Nameless::IfPossible, UnfinishedFile::Nameless::Never})
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
            const pid_t child = ::fork();
            if (child == 0) {
                std::signal(signal, SIG_DFL);
                UnlinkVanishingNamesOnSignals();
                UnfinishedFile file(folder.Path(), 0600, nameless);
                const bool shown = FilesInFolder() == (file.HasName() ? 1U : 0U);
                if (!shown || !file.Write("half") ||
                    (nameless == UnfinishedFile::Nameless::Never) != file.HasName())
                    ::_exit(1);
                std::raise(signal);
                ::_exit(2);
            }
            int status = 0;
            ASSERT_EQ(::waitpid(child, &status, 0), child);
            EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
            EXPECT_EQ(FilesInFolder(), 0U);
        }
    // Both ways of writing end with the same files.
    for (const auto nameless : {UnfinishedFile::Nameless::IfPossible, UnfinishedFile::Nameless::Never})
        for (const bool replace : {false, true}) {
            UnfinishedFile file(folder.Path(), 0600, nameless);
            EXPECT_TRUE(file.Write("whole") && file.Flush());
            EXPECT_TRUE(replace ? file.TakePlaceOf(folder / "f") : file.NameIt(folder / "f"));
            EXPECT_EQ(FilesInFolder(), 1U);
            UnfinishedFile late(folder.Path(), 0600, nameless);
            EXPECT_FALSE(late.NameIt(folder / "f"));
            EXPECT_EQ(errno, EEXIST);
            fs::remove(folder / "f");
        }
}

TEST_F(NativeFiles, SettingsComeBackAndABrokenFileIsKeptAside) {
    SettingsFile settings(files, folder / "config");
    std::string fault;
    EXPECT_TRUE(settings.Read("App", "One", fault).empty());
    EXPECT_TRUE(settings.Write("App", "One", {{"a", "1"}, {"path", "x=y [z]"}}).done);
    EXPECT_TRUE(settings.Write("App", "Two", {{"a", "2"}}).done);
    EXPECT_TRUE(settings.Write("App", "One", {{"a", "3"}}).done);
    EXPECT_EQ(settings.Read("App", "One", fault), (Settings::Values{{"a", "3"}, {"path", "x=y [z]"}}));

    std::string whole;
    files.Read(folder / "config/App.conf", whole);
    files.Replace(folder / "config/App.conf", "# by hand\r\n\r\n" + whole);
    EXPECT_EQ(settings.Read("App", "Two", fault), (Settings::Values{{"a", "2"}}));
    for (const std::string& broken :
         {whole.substr(0, whole.size() / 2), whole.substr(0, whole.rfind(';')), std::string("\x00\xFF", 2)}) {
        files.Replace(folder / "config/App.conf", broken);
        EXPECT_TRUE(settings.Read("App", "One", fault).empty());
        EXPECT_FALSE(fs::exists(folder / "config/App.conf"));
    }
    std::string aside;
    EXPECT_TRUE(files.Read(folder / "config/App.conf.broken2", aside).done);
    EXPECT_EQ(aside, whole.substr(0, whole.rfind(';')));
}

TEST_F(NativeFiles, SettingsThatCannotBeReadAreLeftAlone) {
    const std::string path = folder / "App.conf";
    SettingsFile settings(files, folder.Path());
    const auto expectLeftAlone = [&](const std::string& reason) {
        std::string fault;
        EXPECT_TRUE(settings.Read("App", "One", fault).empty());
        EXPECT_EQ(fault, path + ": the settings cannot be read and are left as they are: " + reason);
        EXPECT_EQ(settings.Write("App", "One", {{"a", "1"}}).reason, fault);
        EXPECT_EQ(FilesInFolder(), 1U);
    };
    fs::create_directory(path);
    expectLeftAlone("this is a folder, not a file");
    fs::remove(path);
    fs::create_symlink(path, path);
    expectLeftAlone("Too many levels of symbolic links");
    fs::remove(path);
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    expectLeftAlone("this is a pipe, not a file");
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

/// Keeps what it was asked to start; `desktop` is the exit code of the desktop's opener.
struct RecordingProcesses : Processes {
    std::optional<int> RunAndWait(const std::vector<std::string>& words) override {
        started.push_back(words.at(0) + " " + words.back());
        return words[0] == "xdg-open" ? desktop : 0;
    }
    std::optional<int> RunAndWait(const std::string&) override { return {}; }
    std::optional<int> RunAndWait(const std::string&, std::string&) override { return {}; }

    int desktop = 0;
    std::vector<std::string> started;
};

/// Standard input and output are a terminal of its own, or none.
TEST(NativePrograms, TheEditorIsTheDesktopsOrOnATerminalTheUsers) {
    const auto opened = [](const char* display, bool terminal, int desktop) {
        int master = -1, slave = ::open("/dev/null", O_RDWR);
        if (terminal) {
            EXPECT_EQ(::openpty(&master, &slave, nullptr, nullptr, nullptr), 0);
        }
        const int in = ::dup(STDIN_FILENO), out = ::dup(STDOUT_FILENO);
        ::dup2(slave, STDIN_FILENO), ::dup2(slave, STDOUT_FILENO);
        ::setenv("DISPLAY", display, 1), ::unsetenv("WAYLAND_DISPLAY");
        ::unsetenv("VISUAL"), ::setenv("EDITOR", "ed -s", 1);
        RecordingProcesses processes;
        processes.desktop = desktop;
        const bool done = UserTextEditor(processes).Open("t.txt");
        ::dup2(in, STDIN_FILENO), ::dup2(out, STDOUT_FILENO);
        for (const int descriptor : {master, slave, in, out})
            ::close(descriptor);
        return std::pair(done, processes.started);
    };
    using Opened = std::pair<bool, std::vector<std::string>>;
    EXPECT_EQ(opened("", false, 0), Opened(false, {}));
    EXPECT_EQ(opened("", true, 0), Opened(true, {"ed t.txt"}));
    EXPECT_EQ(opened(":0", true, 0), Opened(true, {"xdg-open t.txt"}));
    EXPECT_EQ(opened(":0", true, 3), Opened(true, {"xdg-open t.txt", "ed t.txt"}));
    EXPECT_EQ(opened(":0", false, 3), Opened(false, {"xdg-open t.txt"}));
}

} // namespace
} // namespace corvane
