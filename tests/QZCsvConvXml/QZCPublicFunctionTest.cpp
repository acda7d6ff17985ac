#include <gtest/gtest.h>

#include "TestSupport.h"
#include "QZCPublicFunction.h"

namespace {

std::string iniValue(const std::string& content, const char* section = "Report", const char* key = "version")
{
    TempDir dir;
    writeShiftJis(dir.file("QZFylaCSVConv.ini"), content);
    return QZCPublicFunction::GetInifileString(dir.path(), "QZFylaCSVConv.ini", section, key);
}

TEST(SettingsFile, SectionsKeysAndComments)
{
    EXPECT_EQ(iniValue("[report]\r\nVersion = 3.0\r\n"), "3.0");
    EXPECT_EQ(iniValue("; head\n[Other]\nversion=1\n[Report]\n;version=2\n=x\nversion=a=b;c\n"), "a=b;c");
    EXPECT_EQ(iniValue("[Report]\nname=x\n[Later]\nversion=3.0\n"), "");
    EXPECT_EQ(iniValue("[Report]\rversion=3.0\r"), "3.0");
    EXPECT_EQ(iniValue("version=3.0\n"), "");
    EXPECT_EQ(iniValue("[Report]\nversionx=1\nversion=2\n"), "2");
    EXPECT_EQ(iniValue("[Report]\n  version  =  日本  \n"), "日本");
    EXPECT_EQ(iniValue("  \r\n  "), "");
    EXPECT_EQ(iniValue("[Report]\nversion=3.0\n", "Report", ""), "");
    EXPECT_EQ(iniValue("[Report]\nversion=3.0\n", nullptr), "");
}

TEST(SettingsFile, MissingOrBinaryFiles)
{
    TempDir dir;
    EXPECT_EQ(QZCPublicFunction::GetInifileString(dir.path(), "none.ini", "Report", "version"), "");
    writeBytes(dir.file("bin.ini"), std::string("\0\xFF\xFE[Report]\nversion=1", 22));
    EXPECT_EQ(QZCPublicFunction::GetInifileString(dir.path(), "bin.ini", "Report", "version"), "");
}

TEST(PublicFunction, EscapingAndTrimming)
{
    EXPECT_EQ(QZCPublicFunction::SpecialEncoding("a<b>&\"c'"), "a&lt;b&gt;&amp;&quot;c&apos;");
    EXPECT_EQ(QZCPublicFunction::SpecialEncodingWork("abc", 0), "");
    EXPECT_EQ(QZCPublicFunction::CharacterTrim(nullptr, true), "");
    EXPECT_EQ(QZCPublicFunction::CharacterTrim(" 3.0\u3000", true), "3.0");
}

TEST(PublicFunction, ResourcePaths)
{
    ScopedBundle bundle(QZC_BUNDLE_DIR);
    EXPECT_EQ(QZCPublicFunction::GetBundlePath(nullptr), std::string(QZC_BUNDLE_DIR) + "/Xbrl");
    EXPECT_EQ(QZCPublicFunction::GetBundlePath(uint16_t{1001}), std::string(QZC_BUNDLE_DIR) + "/Xbrl/V3.0");
    EXPECT_EQ(QZCPublicFunction::GetBundlePath(uint16_t{7}), std::string(QZC_BUNDLE_DIR) + "/Xbrl");
    EXPECT_EQ(QZCPublicFunction::LoadResoucePath(1001),
              std::string(QZC_BUNDLE_DIR) + "/Xbrl/V3.0/QZCAccountBookCheckDefinition2.xml");
    EXPECT_EQ(QZCPublicFunction::LoadResoucePath(1002), "");
    EXPECT_EQ(QZCPublicFunction::GetInifileString(QZCPublicFunction::GetBundlePath(uint16_t{1001}),
                                                  "QZFylaCSVConv.ini", "Report", "version"), "3.0");
}

TEST(PublicFunction, BundleLookupOrder)
{
    {
        TempDir dir;
        ScopedBundle bundle(dir.file("missing"));
        EXPECT_EQ(QZCPublicFunction::GetBundlePath(nullptr), "");
    }
    // Without the variable the bundle beside the library file is used.
    ScopedBundle bundle("");
    EXPECT_NE(QZCPublicFunction::GetBundlePath(uint16_t{1001}).find("QZCsvConvXml.bundle/Xbrl/V3.0"), std::string::npos);
}

}  // namespace
