#include <cstdlib>
#include <fstream>
#include <string>

#include <unistd.h>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "QZCDOMParser.h"
#include "QZCLog.h"
#include "QZCMacOSNative.h"
#include "QZCUtility.h"

namespace {

// Resident memory of this process in bytes.
size_t ResidentBytes()
{
    std::ifstream statm("/proc/self/statm");
    size_t pages = 0;
    size_t resident = 0;
    statm >> pages >> resident;
    return resident * static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

class DOMParserTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QZCUtility::ClearErrorInfo();
        ASSERT_TRUE(m_parser.Initialize());
    }
    void TearDown() override { QZCUtility::ClearErrorInfo(); }

    QZCDOMParser m_parser;
};

TEST_F(DOMParserTest, CursorSkipsTextAndComments)
{
    ASSERT_TRUE(m_parser.Parse(testData("dom-definition.xml").c_str(), "definition", "UTF-8"));
    EXPECT_EQ(m_parser.GetNodeName(), "definition");
    ASSERT_EQ(m_parser.MoveFirstChild(), 0);
    EXPECT_EQ(m_parser.GetAttribute("id"), "HOI010");
    EXPECT_EQ(m_parser.GetAttribute("missing"), "");
    ASSERT_EQ(m_parser.MoveNextSibling(), 0);
    EXPECT_EQ(m_parser.GetAttribute("id"), "HOI020");
    EXPECT_TRUE(m_parser.HasChild());  // whitespace text only
    EXPECT_EQ(m_parser.MoveFirstChild(), -1);
    EXPECT_EQ(m_parser.MoveNextSibling(), -1);
    EXPECT_EQ(m_parser.GetAttribute("id"), "HOI020");
    ASSERT_EQ(m_parser.MovePrevSibling(), 0);
    ASSERT_EQ(m_parser.MoveLastChild(), 0);
    EXPECT_EQ(m_parser.GetAttribute("id"), "amount");
    EXPECT_EQ(m_parser.MovePrevSibling(), 0);
    EXPECT_EQ(m_parser.GetAttribute("column"), "3");
    EXPECT_EQ(m_parser.MoveParent(), 0);
    EXPECT_EQ(m_parser.MoveParent(), 0);
    EXPECT_EQ(m_parser.GetNodeName(), "definition");
    EXPECT_EQ(m_parser.MoveRoot(), 0);
    EXPECT_EQ(QZCUtility::GetError(), "");
}

TEST_F(DOMParserTest, NamedDescendantText)
{
    ASSERT_TRUE(m_parser.Parse(testData("dom-definition.xml").c_str(), "definition", "UTF-8"));
    EXPECT_EQ(m_parser.GetNodeValue("item"), "");  // starts with an element
    EXPECT_EQ(m_parser.GetNodeValue("unit"), "円");
    EXPECT_EQ(m_parser.GetNodeValue("nothing"), "");
    m_parser.MoveFirstChild();
    m_parser.MoveLastChild();
    EXPECT_EQ(m_parser.GetNodeValue("unit"), "円");
}

TEST_F(DOMParserTest, MalformedFileLeavesOnlyTheUnexpectedEntry)
{
    TempDir dir;
    std::string home = std::getenv("HOME") ? std::getenv("HOME") : "";
    ::setenv("HOME", dir.path().c_str(), 1);
    ::setenv(QZCLog::kSwitchVariable, "1", 1);
    QZCLog::InitDebugDump();

    writeBytes(dir.file("bad.xml"), "<root>\n  <item>\n</root>\n");
    QZCUtility::AddCsvErrorInfo(1, 1, "HQZ9300E");
    EXPECT_FALSE(m_parser.Parse(dir.file("bad.xml").c_str()));
    EXPECT_EQ(QZCUtility::GetError(), "0000-00000-HQZ9560E");
    std::string log = readBytes(QZCLog::m_strOutputPath);

    ::unsetenv(QZCLog::kSwitchVariable);
    QZCLog::m_bOutput = false;
    ::setenv("HOME", home.c_str(), 1);

    EXPECT_NE(log.find("QZCDOMParser::Parse--\n想定しないエラーが発生しました。\n"), std::string::npos);
    EXPECT_NE(log.find(" (行番号: 3, 列番号: 3)"), std::string::npos) << log;
}

TEST_F(DOMParserTest, MissingAndBinaryInputsFail)
{
    TempDir dir;
    EXPECT_FALSE(m_parser.Parse(dir.file("none.xml").c_str()));
    writeBytes(dir.file("bin.xml"), std::string("\0\x01\x02\xFF", 4));
    EXPECT_FALSE(m_parser.Parse(dir.file("bin.xml").c_str()));
    writeBytes(dir.file("empty.xml"), "");
    EXPECT_FALSE(m_parser.Parse(dir.file("empty.xml").c_str()));
    EXPECT_FALSE(m_parser.Parse(nullptr));
    EXPECT_FALSE(m_parser.Parse("<a/>", nullptr, "UTF-8"));
    EXPECT_EQ(QZCUtility::GetError(), "0000-00000-HQZ9560E");
    // A failed parse leaves no cursor behind.
    EXPECT_EQ(m_parser.MoveRoot(), -1);
    EXPECT_EQ(m_parser.GetNodeName(), "");
}

// Found by fuzzing: every document a parser had built stayed in memory until
// the parser was destroyed, so a parser used for many files ran out of memory.
TEST_F(DOMParserTest, ReusedParserKeepsOnlyTheCurrentDocument)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "AddressSanitizer holds freed memory back, so resident memory tells nothing here";
#endif
    std::string xml = "<definition>";
    for (int i = 0; i < 2000; ++i)
        xml += "<item id=\"n" + std::to_string(i) + "\" column=\"1\"><valid id=\"exist\"/></item>";
    xml += "</definition>";
    for (int i = 0; i < 10; ++i)
        ASSERT_TRUE(m_parser.Parse(xml.c_str(), "definition", "UTF-8"));
    const size_t before = ResidentBytes();
    for (int i = 0; i < 200; ++i)
        ASSERT_TRUE(m_parser.Parse(xml.c_str(), "definition", "UTF-8"));
    EXPECT_LT(ResidentBytes(), before + (32u << 20));

    // A failed parse drops the previous document with its cursor.
    EXPECT_FALSE(m_parser.Parse("<definition>", "definition", "UTF-8"));
    EXPECT_EQ(m_parser.MoveRoot(), -1);
    EXPECT_EQ(m_parser.GetNodeName(), "");
}

TEST_F(DOMParserTest, ExternalEntitiesAreNeverLoaded)
{
    TempDir dir;
    writeBytes(dir.file("secret.txt"), "SECRET");
    std::string xml = "<?xml version=\"1.0\"?>\n<!DOCTYPE r [<!ENTITY e SYSTEM \"file://" + dir.file("secret.txt") +
                      "\">]>\n<r><v>&e;</v></r>";
    ASSERT_TRUE(m_parser.Parse(xml.c_str(), "r", "UTF-8"));
    EXPECT_EQ(m_parser.GetNodeValue("v"), "");
    std::string remote = "<!DOCTYPE r SYSTEM \"http://192.0.2.1/r.dtd\"><r a=\"1\"/>";
    ASSERT_TRUE(m_parser.Parse(remote.c_str(), "r", "UTF-8"));
    EXPECT_EQ(m_parser.GetAttribute("a"), "1");
}

TEST_F(DOMParserTest, SerialisationRoundTrip)
{
    std::string xml;
    EXPECT_EQ(m_parser.SaveXml(xml), -1);
    ASSERT_TRUE(m_parser.Parse("<r><v a=\"&amp;\">勘定</v></r>", "r", "UTF-8"));
    ASSERT_EQ(m_parser.SaveXml(xml), 0);
    EXPECT_NE(xml.find("<r><v a=\"&amp;\">"), std::string::npos) << xml;
    TempDir dir;
    ASSERT_EQ(m_parser.Save(dir.file("out.xml").c_str()), 0);
    QZCDOMParser again;
    ASSERT_TRUE(again.Initialize());
    ASSERT_TRUE(again.Parse(dir.file("out.xml").c_str()));
    EXPECT_EQ(again.GetNodeValue("v"), "勘定");
}

}  // namespace
