#include "core/format/paths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace corvane {
namespace {

TEST(Paths, AreCutAtTheLastSeparator) {
    EXPECT_EQ(FileNameOf("C:\\a\\b.txt"), "b.txt");
    EXPECT_EQ(FolderOf("C:\\a\\b.txt"), "C:\\a\\");
    EXPECT_EQ(FileNameOf("b.txt"), "");
    EXPECT_EQ(FileNameOf(""), "");
    EXPECT_EQ(FileNameOf("C:\\a\\"), "");
    EXPECT_EQ(FolderOf("C:\\a\\"), "C:\\a\\");
#ifndef _WIN32
    EXPECT_EQ(FileNameOf("/a\\b/c.txt"), "c.txt");
    EXPECT_EQ(FolderOf("/a/b\\c.txt"), "/a/b\\");
    EXPECT_EQ(FolderOf("b.txt"), "b.txt/");
    EXPECT_EQ(FolderOf(""), "/");
#endif
}

TEST(Paths, FileExistsFindsFilesOnly) {
    const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "corvane_paths_é";
    std::filesystem::create_directories(folder);
    const std::string file = (folder / "d.KOV").string();
    std::ofstream(file) << "3,1,17";
    EXPECT_TRUE(FileExists(file));
    EXPECT_FALSE(FileExists(file + std::string("\0x", 2)));
    EXPECT_FALSE(FileExists(file + "/x"));
    EXPECT_FALSE(FileExists(folder.string()));
    EXPECT_FALSE(FileExists(""));
    EXPECT_FALSE(FileExists(std::string(100000, 'x')));
    std::filesystem::remove_all(folder);
    EXPECT_FALSE(FileExists(file));
}

} // namespace
} // namespace corvane
