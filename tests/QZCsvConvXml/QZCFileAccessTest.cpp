#include <filesystem>

#include <gtest/gtest.h>

#include "QZCMacOSNative.h"
#include "TestSupport.h"

namespace {

TEST(Files, ExistenceSizeAndFolders)
{
    TempDir dir;
    writeBytes(dir.file("out.csv"), "abc");
    EXPECT_TRUE(QZCMacOSNative::pathFileExists(dir.file("out.csv").c_str()));
    EXPECT_FALSE(QZCMacOSNative::pathFileExists(dir.path().c_str()));
    EXPECT_FALSE(QZCMacOSNative::pathFileExists(nullptr));
    EXPECT_EQ(QZCMacOSNative::getFileSize(dir.file("out.csv").c_str()), 3u);
    EXPECT_EQ(QZCMacOSNative::getFileSize(dir.file("none").c_str()), UINT64_MAX);
    EXPECT_TRUE(QZCMacOSNative::pathDirectoryExists(dir.path().c_str(), false));
    EXPECT_FALSE(QZCMacOSNative::pathDirectoryExists(dir.file("out.csv").c_str(), false));
    EXPECT_TRUE(QZCMacOSNative::pathDirectoryExists(dir.file("out.csv").c_str(), true));
    EXPECT_TRUE(QZCMacOSNative::pathDirectoryExists(dir.file("not-yet.csv").c_str(), true));
    EXPECT_FALSE(QZCMacOSNative::pathDirectoryExists(dir.file("x/out.csv").c_str(), true));
    EXPECT_TRUE(QZCMacOSNative::pathFileIsRead(dir.file("out.csv").c_str()));
    EXPECT_FALSE(QZCMacOSNative::pathFileIsRead(dir.file("none").c_str()));
}

TEST(Files, FolderListingIsSortedWithoutFoldersAndDsStore)
{
    TempDir dir;
    for (const char* name : {"b.csv", "A.csv", ".hidden", ".DS_Store", "a.csv"})
        writeBytes(dir.file(name), "x");
    std::filesystem::create_directory(dir.file("sub"));
    writeBytes(dir.file("sub/inner.csv"), "x");
    std::vector<std::string> files{"stale"};
    ASSERT_TRUE(QZCMacOSNative::getFilesUnderFolder(dir.path().c_str(), files));
    EXPECT_EQ(files, (std::vector<std::string>{dir.file(".hidden"), dir.file("A.csv"), dir.file("a.csv"), dir.file("b.csv")}));
    EXPECT_FALSE(QZCMacOSNative::getFilesUnderFolder(dir.file("missing").c_str(), files));
    EXPECT_TRUE(files.empty());
}

TEST(Paths, ComponentsAndJoining)
{
    EXPECT_EQ(QZCMacOSNative::getLastPathComponent("/a/b/HOI010_2.0.csv", true), "HOI010_2.0.csv");
    EXPECT_EQ(QZCMacOSNative::getLastPathComponent("/a/b/HOI010_2.0.csv", false), "HOI010_2.0");
    EXPECT_EQ(QZCMacOSNative::getLastPathComponent("/a/b/", true), "b");
    EXPECT_EQ(QZCMacOSNative::getPathExtension("/a/b.c/data.CSV"), "CSV");
    EXPECT_EQ(QZCMacOSNative::getPathExtension("/a/b.c/data"), "");
    EXPECT_EQ(QZCMacOSNative::appendFilePath("/a/", "b.csv"), "/a/b.csv");
    EXPECT_EQ(QZCMacOSNative::appendFilePath("/a", nullptr), "/a");
    EXPECT_EQ(QZCMacOSNative::appendFilePath(nullptr, "b"), "");
}

}  // namespace
