// Detail statements, appended tables and writing through the library's
// interface class.
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "DetailTestBundle.h"
#include "QZICsvConvXML.h"

namespace {

void ExpectResult(const QZICsvConvResultXML& result, const char* code, int64_t conformity, const std::string& errors)
{
    EXPECT_EQ(result.Result, code);
    EXPECT_EQ(result.Conformity, conformity);
    EXPECT_EQ(result.DetailErrorInfo, errors);
}

class DetailCheckTest : public ::testing::Test {
protected:
    DetailTestBundle m_bundle;
};

// The cases of tests/data/detail-operations.tsv, one after the other.
TEST_F(DetailCheckTest, CaseTable)
{
    for (const Case& c : readCases("detail-operations.tsv", 7)) {
        SCOPED_TRACE(c.where);
        if (c[2] != "(none)")
            m_bundle.Csv(c[1], c[2]);
        const std::string path = m_bundle.Path(c[1]);
        const char* file = c.text(1) ? path.c_str() : nullptr;
        QZICsvConvXML library;
        const QZICsvConvResultXML result =
            c[0] == "detail"     ? library.CsvCheckToDetailAccountTitle(file, c[3].c_str())
            : c[0] == "appended" ? library.CsvCheckToAppendedTable(file, c[3].c_str())
                                 : library.CsvCheckToDetailAccountTitle2(file, c[3].c_str());
        ExpectResult(result, c[4].c_str(), std::stoi(c[5]), c[6]);
    }
    // Surrounding blanks of the arguments do not matter.
    ExpectResult(QZICsvConvXML().CsvCheckToDetailAccountTitle2((" " + m_bundle.Path("HOI010_4.0.csv") + " ").c_str(),
                                                               " 4.0 "),
                 "S_OK", 1, "");
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
