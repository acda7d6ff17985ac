// Detail statements, appended tables and writing through the library's
// interface class.
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "../DetailAccountTitle/DetailTestBundle.h"
#include "QZICsvConvXML.h"

namespace {

const char* kClean = "HOI010,0,みなと銀行,1200000,普通\r\nHOI010,0,港信用金庫,35000,定期\r\n";

class DetailCheckTest : public ::testing::Test {
protected:
    QZICsvConvResultXML Check2(const std::string& name, const std::string& text, const char* version = "4.0")
    {
        return QZICsvConvXML().CsvCheckToDetailAccountTitle2(m_bundle.Csv(name, text).c_str(), version);
    }

    DetailTestBundle m_bundle;
};

void ExpectResult(const QZICsvConvResultXML& result, const char* code, int64_t conformity, const std::string& errors)
{
    EXPECT_EQ(result.Result, code);
    EXPECT_EQ(result.Conformity, conformity);
    EXPECT_EQ(result.DetailErrorInfo, errors);
}

TEST_F(DetailCheckTest, CleanFilePassesEveryOperation)
{
    ExpectResult(Check2("HOI010_4.0.csv", kClean), "S_OK", 1, "");
    // Surrounding blanks of the arguments do not matter.
    ExpectResult(QZICsvConvXML().CsvCheckToDetailAccountTitle2((" " + m_bundle.Path("HOI010_4.0.csv") + " ").c_str(),
                                                               " 4.0 "),
                 "S_OK", 1, "");
    // The first operation wants numbered pages and reports no conformity.
    const std::string first = m_bundle.Csv("HOI010_2.0.csv", "HOI010(1),0,みなと銀行,100,普通\r\n");
    ExpectResult(QZICsvConvXML().CsvCheckToDetailAccountTitle(first.c_str(), "2.0"), "S_OK", 0, "");
    const std::string appended = m_bundle.Csv("HOB016_6.0.csv", "HOB016,本店,500\r\n");
    ExpectResult(QZICsvConvXML().CsvCheckToAppendedTable(appended.c_str(), "6.0"), "S_OK", 1, "");
}

TEST_F(DetailCheckTest, NonBlockingErrorsStillConvert)
{
    ExpectResult(Check2("HOI010_4.0.csv", "HOI010,0,みなと銀行,百万,普通預金の口座で満期は来年\r\nHOI010,0,,1,x\r\n"),
                 "S_OK", 2, "1-00004-HQZ9620E,1-00005-HQZ9620E,2-00003-HQZ9620E");
    ExpectResult(Check2("HOI010_4.0.csv", "HOI010,0,みなと銀行,1\r\n"), "S_OK", 2, "0000-00000-HQZ9300E");
}

TEST_F(DetailCheckTest, BlockingErrorsDoNot)
{
    // The file name does not follow the rule of the second operation.
    ExpectResult(Check2("HOI010_2.0.csv", kClean), "E_FAIL", 0, "0000-00000-HQZ9350E");
    ExpectResult(Check2("HOI010-4.0.csv", kClean), "E_FAIL", 0, "0000-00000-HQZ9350E");
    // A character the service refuses.
    ExpectResult(Check2("HOI010_4.0.csv", "HOI010,0,銀行№,1,x\r\n"), "E_FAIL", 0,
                 "1-00003-HQZ8230E");
    // The version of another form, and one without a definition.
    ExpectResult(Check2("HOI010_4.0.csv", kClean, "5.0"), "E_FAIL", 0, "0000-00000-HQZ9250E");
    ExpectResult(Check2("HOI010_3.0.csv", kClean, "3.0"), "E_FAIL", 0, "0000-00000-HQZ9250E");
    // A file of 3.0 checked as 4.0 no longer matches the definition's form.
    ExpectResult(Check2("HOI010_3.0.csv", kClean, "4.0"), "E_FAIL", 0, "0000-00000-HQZ9350E");
    ExpectResult(QZICsvConvXML().CsvCheckToDetailAccountTitle2(m_bundle.Path("HOI010_4.0_missing.csv").c_str(), "4.0"),
                 "E_FAIL", 0, "0000-00000-HQZ9230E");
    ExpectResult(QZICsvConvXML().CsvCheckToDetailAccountTitle2(nullptr, "4.0"), "E_FAIL", 0, "0000-00000-HQZ9210E");
}

TEST_F(DetailCheckTest, UnknownFormLetsTheRejectedVersionThrough)
{
    // The format kubun is empty, so the form is unknown: the version is only
    // noted and the outward checks decide.
    ExpectResult(Check2("HOI010_4.0.csv", "\"\",0,みなと銀行,1,x\r\n", "9.9"), "S_OK", 2, "0000-00000-HQZ9250E");
    ExpectResult(Check2("HOI010_4.0.csv", "no separator at all", "4.0"), "S_OK", 2, "0000-00000-HQZ9250E");
    ExpectResult(Check2("HOI010_4.0.csv", "\"\",0,銀行№\r\n", "4.0"), "E_FAIL", 0,
                 "0000-00000-HQZ9250E,1-00003-HQZ8230E");
}

TEST_F(DetailCheckTest, FirstOperationReportsTheContentOfItsFile)
{
    QZICsvConvXML library;
    const std::string quoted = m_bundle.Csv("HOI010_2.0.csv", "\"\",0,x\r\n");
    ExpectResult(library.CsvCheckToDetailAccountTitle(quoted.c_str(), "2.0"), "E_FAIL", 0, "0001-00001-HQZ9570E");
    const std::string empty = m_bundle.Csv("HOI010_2.0.csv", "");
    ExpectResult(library.CsvCheckToDetailAccountTitle(empty.c_str(), "2.0"), "E_FAIL", 0, "0000-00000-HQZ9230E");
    const std::string clean = m_bundle.Csv("HOI010_2.0.csv", "HOI010(1),0,みなと銀行,100,普通\r\n");
    ExpectResult(library.CsvCheckToDetailAccountTitle(clean.c_str(), "3.0"), "E_FAIL", 0, "0000-00000-HQZ9250E");
    ExpectResult(library.CsvCheckToDetailAccountTitle(clean.c_str(), "4.0"), "E_FAIL", 0, "0000-00000-HQZ9250E");
}

TEST_F(DetailCheckTest, AppendedTableFileNames)
{
    QZICsvConvXML library;
    const std::string wrong = m_bundle.Csv("HOB016_7.0.csv", "HOB016,本店,500\r\n");
    ExpectResult(library.CsvCheckToAppendedTable(wrong.c_str(), "6.0"), "E_FAIL", 0, "0000-00000-HQZ9350E");
    const std::string older = m_bundle.Csv("HOB016_5.0.csv", "HOB016,本店,500\r\n");
    ExpectResult(library.CsvCheckToAppendedTable(older.c_str(), "5.0"), "E_FAIL", 0, "0000-00000-HQZ9250E");
    const std::string bad = m_bundle.Csv("HOB016_6.0.csv", "HOB016,,多い\r\n");
    ExpectResult(library.CsvCheckToAppendedTable(bad.c_str(), "6.0"), "S_OK", 2,
                 "1-00002-HQZ9620E,1-00003-HQZ9620E");
}

// Whatever the file holds, the check ends with entries.
TEST_F(DetailCheckTest, HostileFilesGiveEntries)
{
    const std::string path = m_bundle.Path("HOI010_4.0.csv");
    QZICsvConvXML library;
    auto check = [&](const std::string& bytes) {
        writeBytes(path, bytes);
        QZICsvConvResultXML result = library.CsvCheckToDetailAccountTitle2(path.c_str(), "4.0");
        EXPECT_TRUE(result.Result == "S_OK" || result.Result == "E_FAIL");
        EXPECT_FALSE(result.DetailErrorInfo.empty()) << bytes.substr(0, 40);
        return result;
    };
    std::string binary;
    for (int i = 0; i < 4096; ++i)
        binary += static_cast<char>((i * 7919) & 0xFF);
    check(binary);
    check("HOI010,0,\x82\xA0\x81,1,x\r\n");  // a lead byte without its trail byte
    check(std::string("HOI010,0,a\0b,1,x\r\n", 18));
    EXPECT_EQ(check("HOI010,0,a,1," + std::string(1 << 20, 'a') + "\r\n").DetailErrorInfo, "1-00005-HQZ9620E");
    std::string wide = "HOI010,0";
    for (int i = 0; i < 100000; ++i)
        wide += ",1";
    check(wide + "\r\n");
    std::string lines;
    for (int i = 0; i < 1000000; ++i)
        lines += "HOI010,0,a\n";
    check(lines);
}

TEST_F(DetailCheckTest, NothingSurvivesFromOneCheckToTheNext)
{
    EXPECT_EQ(Check2("HOI010_2.0.csv", kClean).Result, "E_FAIL");
    ExpectResult(Check2("HOI010_4.0.csv", kClean), "S_OK", 1, "");
}

class CsvWriteTest : public ::testing::Test {
protected:
    QZICsvConvResultXML Write(const std::string& path, const char* data)
    {
        return QZICsvConvXML().CsvWrite(path.c_str(), data);
    }
    TempDir m_dir;
};

TEST_F(CsvWriteTest, WritesShiftJisReplacingEarlierContent)
{
    const std::string path = m_dir.file("out.csv");
    writeBytes(path, "old content that is longer than the new one");
    ExpectResult(Write(" " + path + " ", "HOI010,0,みなと銀行\r\n"), "S_OK", 0, "");
    EXPECT_EQ(readBytes(path), "HOI010,0,\x82\xDD\x82\xC8\x82\xC6\x8B\xE2\x8D\x73\r\n");
    ExpectResult(Write(path, ""), "S_OK", 0, "");
    EXPECT_EQ(readBytes(path), "");
}

TEST_F(CsvWriteTest, FailedWritesLeaveFilesAsTheyWere)
{
    const std::string path = m_dir.file("out.csv");
    writeBytes(path, "kept");
    ExpectResult(Write(path, "絵文字\xF0\x9F\x98\x80"), "E_FAIL", 0, "0000-00000-HQZ9560E");
    ExpectResult(Write(path, "\xFF\xFE"), "E_FAIL", 0, "0000-00000-HQZ9560E");
    ExpectResult(Write(path, nullptr), "E_FAIL", 0, "0000-00000-HQZ9560E");
    EXPECT_EQ(readBytes(path), "kept");
    ExpectResult(Write(m_dir.file("missing/out.csv"), "a"), "E_FAIL", 0, "0000-00000-HQZ9240E");
    ExpectResult(Write(m_dir.file("out.txt"), "a"), "E_FAIL", 0, "0000-00000-HQZ9370E");
    ExpectResult(Write("", "a"), "E_FAIL", 0, "0000-00000-HQZ9210E");
    ExpectResult(Write(m_dir.path() + "/", "a"), "E_FAIL", 0, "0000-00000-HQZ9370E");
    std::filesystem::create_directory(m_dir.file("folder.csv"));
    ExpectResult(Write(m_dir.file("folder.csv"), "a"), "E_FAIL", 0, "0000-00000-HQZ9940E");
    EXPECT_FALSE(std::filesystem::exists(m_dir.file("out.txt")));
}

}  // namespace
