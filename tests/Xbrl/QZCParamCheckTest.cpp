#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "QZCParamCheck.h"
#include "QZCUtility.h"
#include "TestSupport.h"

namespace {

// With a record count set, argument errors show their parameter number.
class ParamCheckTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QZCUtility::ClearErrorInfo();
        g_nRecordCount = 250;
    }
    void TearDown() override { g_nRecordCount = 0; }

    std::string check(const char* file, const char* folder, const char* version)
    {
        QZCParamCheck checker;
        const bool ok = checker.ParamCheckOfCheckMethod2(file, folder, version);
        const std::string errors = takeErrors();
        EXPECT_EQ(ok, errors.empty()) << errors;
        return errors;
    }

    TempDir dir;
    ScopedBundle bundle{QZC_BUNDLE_DIR};
};

TEST_F(ParamCheckTest, FileArgument)
{
    writeBytes(dir.file("a.CSV"), "A,BS\n");
    writeBytes(dir.file("a.txt"), "A,BS\n");
    writeBytes(dir.file("noext"), "A,BS\n");
    writeBytes(dir.file("empty.csv"), "");
    EXPECT_EQ(check(dir.file("a.CSV").c_str(), nullptr, "3.0"), "");
    EXPECT_EQ(check(dir.file("a.txt").c_str(), "", "3.0"), "9999-00001-HQZ9370E");
    EXPECT_EQ(check(dir.file("noext").c_str(), "", "3.0"), "9999-00001-HQZ9370E");
    EXPECT_EQ(check(dir.file("empty.csv").c_str(), "", "3.0"), "9999-00001-HQZ9230E");
    EXPECT_EQ(check(dir.file("missing.csv").c_str(), "", "3.0"), "9999-00001-HQZ9230E");
    EXPECT_EQ(check(dir.file("missing.txt").c_str(), dir.path().c_str(), "3.0"), "9999-00001-HQZ8280E");
    EXPECT_EQ(check(nullptr, nullptr, "3.0"), "9999-00001-HQZ9000E");
}

TEST_F(ParamCheckTest, FolderArgument)
{
    EXPECT_EQ(check("", dir.path().c_str(), "3.0"), "9999-00002-HQZ9970E");
    std::filesystem::create_directory(dir.file("sub"));
    writeBytes(dir.file(".DS_Store"), "x");
    EXPECT_EQ(check("", dir.path().c_str(), "3.0"), "9999-00002-HQZ9970E");
    writeBytes(dir.file("HOT010_3.0_BS.csv"), "A,BS\n");
    EXPECT_EQ(check("", dir.path().c_str(), "3.0"), "");
    EXPECT_EQ(check("", dir.file("HOT010_3.0_BS.csv").c_str(), "3.0"), "9999-00002-HQZ9240E");
    EXPECT_EQ(check("", dir.file("none").c_str(), "3.0"), "9999-00002-HQZ9240E");
}

TEST_F(ParamCheckTest, StyleVersionAndSettingsFile)
{
    writeBytes(dir.file("a.csv"), "A,BS\n");
    const std::string file = dir.file("a.csv");
    EXPECT_EQ(check(file.c_str(), "", "3.0 "), "9999-00004-HQZ9250E");
    EXPECT_EQ(check(file.c_str(), "", ""), "9999-00004-HQZ9250E");
    EXPECT_EQ(check(file.c_str(), "", "3.00"), "9999-00004-HQZ9250E");

    TempDir other;
    ScopedBundle noProperties{other.path()};
    EXPECT_EQ(check(file.c_str(), "", "3.0"), "9999-00003-HQZ9240E");
    std::filesystem::create_directories(other.file("Xbrl/V3.0"));
    writeShiftJis(other.file("Xbrl/V3.0/QZFylaCSVConv.ini"), "[Report]\nname=x\n");
    EXPECT_EQ(check(file.c_str(), "", "3.0"), "0000-00000-HQZ9560E");
}

TEST(ParamCheck, PathAndFileResults)
{
    EXPECT_EQ(QZCParamCheck::CheckPathString("", {"csv"}), CHECK_FILE_EMPTY_PATH);
    EXPECT_EQ(QZCParamCheck::CheckPathString("/x/a.Csv", {"txt", "csv"}), CHECK_FILE_OK);
    EXPECT_EQ(QZCParamCheck::CheckPathString("/x.csv/a", {"csv"}), CHECK_FILE_BAD_EXTENSION);
    EXPECT_EQ(QZCParamCheck::CheckFile(""), CHECK_FILE_EXCEPTION);
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9560E");
    g_nRecordCount = 250;
    EXPECT_FALSE(QZCParamCheck::CheckExistsFolder(3, ""));
    g_nRecordCount = 0;
    EXPECT_EQ(takeErrors(), "9999-00003-HQZ9950E");
    EXPECT_TRUE(QZCParamCheck::isUseFileParam("a.csv"));
    EXPECT_FALSE(QZCParamCheck::isUseFileParam(""));
    EXPECT_FALSE(QZCParamCheck::isUseFileParam(nullptr));
}

}  // namespace
