// The financial statements check through the library's interface class.
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QZICsvConvXML.h"
#include "QZCMacOSNative.h"
#include "QZCUtility.h"
#include "TestSupport.h"

namespace {

const std::string kExample = std::string(QZC_SOURCE_DIR) + "/examples/financial-statements";

std::string exampleText(const std::string& kind)
{
    return *QZCMacOSNative::sjisToUtf8(readBytes(kExample + "/HOT010_3.0_" + kind + ".csv"));
}

class XbrlCheckTest : public ::testing::Test {
protected:
    QZICsvConvXbrlResultXML check(const std::string& folder, const char* version = "3.0")
    {
        return QZICsvConvXML().CsvCheckToXbrl2(folder.c_str(), version);
    }
    void addFile(const std::string& name, const std::string& utf8Text)
    {
        writeShiftJis(m_dir.file(name), utf8Text);
    }

    ScopedBundle m_bundle{QZC_BUNDLE_DIR};
    TempDir m_dir;
};

TEST_F(XbrlCheckTest, CleanFolderFillsEveryArray)
{
    QZICsvConvXbrlResultXML result = check(" " + kExample + "\u3000", " 3.0 ");
    EXPECT_EQ(result.Result, "S_OK");
    EXPECT_EQ(result.DetailErrorInfo, "");
    ASSERT_EQ(result.XbrlCsvFileCount, 4);
    for (const auto* array : {&result.CsvFileNameArray, &result.CheckResultArray, &result.XbrlTypeArray,
                              &result.StyleVersionArray, &result.CorporateNameArray, &result.FiscalYearFromArray,
                              &result.FiscalYearToArray, &result.GenericCSVArray, &result.DetailErrorInfoArray})
        EXPECT_EQ(array->size(), 4u);
    EXPECT_EQ(result.CsvFileNameArray, (std::vector<std::string>{"HOT010_3.0_BS.csv", "HOT010_3.0_NT.csv",
                                                                   "HOT010_3.0_PL.csv", "HOT010_3.0_SS.csv"}));
    EXPECT_EQ(result.CheckResultArray, (std::vector<std::string>(4, "0")));
    EXPECT_EQ(result.StyleVersionArray[0], "3.0");
    EXPECT_EQ(result.FiscalYearFromArray[1], "2024-04-01");
    EXPECT_EQ(result.DetailErrorInfoArray, (std::vector<std::string>(4, "")));
    EXPECT_TRUE(g_mlErrors.empty());
}

TEST_F(XbrlCheckTest, RefusedArgumentsGiveOneFormatErrorRecord)
{
    struct Case {
        std::string folder;
        const char* version;
        const char* detail;
    };
    std::filesystem::create_directory(m_dir.file("empty"));
    const Case cases[] = {
        {kExample, "2.0", "0000-00000-HQZ9250E"},
        {kExample, "3.0 x", "0000-00000-HQZ9250E"},
        {m_dir.file("missing"), "3.0", "0000-00000-HQZ9240E"},
        {m_dir.file("empty"), "3.0", "0000-00000-HQZ9970E"},
        {"", "3.0", "0000-00000-HQZ9000E"},
    };
    for (const Case& c : cases) {
        QZICsvConvXbrlResultXML result = check(c.folder, c.version);
        EXPECT_EQ(result.Result, "S_OK");
        ASSERT_EQ(result.XbrlCsvFileCount, 1) << c.folder;
        EXPECT_EQ(result.CheckResultArray[0], "3");
        EXPECT_EQ(result.CsvFileNameArray[0], "");
        EXPECT_EQ(result.DetailErrorInfoArray[0], c.detail);
    }
    // Arguments that are not UTF-8 count as missing.
    EXPECT_EQ(QZICsvConvXML().CsvCheckToXbrl2("\xFF\xFE", "3.0").DetailErrorInfoArray[0], "0000-00000-HQZ9000E");
    EXPECT_EQ(QZICsvConvXML().CsvCheckToXbrl2(kExample.c_str(), nullptr).DetailErrorInfoArray[0], "0000-00000-HQZ9250E");
}

TEST_F(XbrlCheckTest, RejectedNamesBesideAcceptedOnes)
{
    addFile("HOT010_3.0_BS.csv", exampleText("BS"));
    addFile("HOT010_3.0_BS.txt", exampleText("BS"));
    addFile("hot010_3.0_PL.csv", exampleText("PL"));
    QZICsvConvXbrlResultXML result = check(m_dir.path());
    ASSERT_EQ(result.XbrlCsvFileCount, 3);
    EXPECT_EQ(result.CheckResultArray, (std::vector<std::string>{"0", "3", "3"}));
    EXPECT_EQ(result.DetailErrorInfoArray[1], "0000-00000-HQZ9930E");
    EXPECT_EQ(result.XbrlTypeArray[2], "-");
}

TEST_F(XbrlCheckTest, FolderLineLimit)
{
    // The balance sheet plus an income statement padded with repeated lines
    // to 5000 lines in all: checked; one line more: nothing is checked.
    std::string bs = exampleText("BS");
    size_t bsLines = static_cast<size_t>(std::count(bs.begin(), bs.end(), '\n'));
    std::string pl = "A,PL,,,\nB,株式会社みなと商事,,,\nC1,2024-04-01,,,\nC2,2025-03-31,,,\n損益計算書,,,,\n";
    for (size_t line = bsLines + 5; line < 5000; ++line)
        pl += "雑収入,1,1,2,MiscellaneousIncomeNOI-" + std::to_string(line) + "\n";
    addFile("HOT010_3.0_BS.csv", bs);
    addFile("HOT010_3.0_PL.csv", pl);
    QZICsvConvXbrlResultXML atLimit = check(m_dir.path());
    ASSERT_EQ(atLimit.XbrlCsvFileCount, 2);
    EXPECT_EQ(atLimit.CheckResultArray, (std::vector<std::string>{"0", "0"})) << atLimit.DetailErrorInfoArray[1];

    addFile("HOT010_3.0_PL.csv", pl + "雑収入,1,1,2,MiscellaneousIncomeNOI-last\n");
    QZICsvConvXbrlResultXML overLimit = check(m_dir.path());
    EXPECT_EQ(overLimit.CheckResultArray, (std::vector<std::string>{"3", "3"}));
    EXPECT_EQ(overLimit.DetailErrorInfoArray, (std::vector<std::string>(2, "0000-00000-HQZ9900E")));
    EXPECT_EQ(overLimit.XbrlTypeArray[0], "-");
}

TEST_F(XbrlCheckTest, OnlyTheFirstUnusableCharacterIsReported)
{
    std::string bs = exampleText("BS");
    bs.replace(bs.find("45210000"), 8, "ｱ");   // line 8, column 2
    bs.replace(bs.find("受取手形"), 12, "ｲ");   // line 9, column 1
    addFile("HOT010_3.0_BS.csv", bs);
    QZICsvConvXbrlResultXML result = check(m_dir.path());
    ASSERT_EQ(result.XbrlCsvFileCount, 1);
    EXPECT_EQ(result.CheckResultArray[0], "3");
    EXPECT_EQ(result.DetailErrorInfoArray[0], "0008-00002-HQZ8230E");
}

TEST_F(XbrlCheckTest, GeneralErrorEndsTheFileAsIncomplete)
{
    std::string bs = exampleText("BS");
    bs.replace(bs.find("B,"), 2, "C1,");
    addFile("HOT010_3.0_BS.csv", bs);
    QZICsvConvXbrlResultXML result = check(m_dir.path());
    EXPECT_EQ(result.CheckResultArray[0], "1");
    EXPECT_EQ(result.DetailErrorInfoArray[0], "0002-00001-HQZ9770E");
}

TEST_F(XbrlCheckTest, DisagreeingFilesAreInconsistent)
{
    std::string pl = exampleText("PL");
    std::string nt = exampleText("NT");
    addFile("HOT010_3.0_BS.csv", exampleText("BS"));
    addFile("HOT010_3.0_PL.csv", pl.replace(pl.find("みなと"), 9, "みどり"));
    addFile("HOT010_3.0_NT.csv", nt.replace(nt.find("2025-03-31"), 10, "2025-03-30"));
    // An incomplete file is not compared.
    std::string ss = exampleText("SS");
    addFile("HOT010_3.0_SS.csv", ss.replace(ss.find("2024-04-01"), 10, "2023-04-01").replace(ss.find("NetAssetsSS"), 11, "Unknown"));
    QZICsvConvXbrlResultXML result = check(m_dir.path());
    ASSERT_EQ(result.XbrlCsvFileCount, 4);
    EXPECT_EQ(result.CheckResultArray, (std::vector<std::string>{"2", "2", "2", "1"}));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(result.DetailErrorInfoArray[i], "0002-00002-HQZ8080E,0004-00002-HQZ8070E");
    EXPECT_NE(result.DetailErrorInfoArray[3].find("HQZ9700E"), std::string::npos);
}

TEST_F(XbrlCheckTest, UnreadableAcceptedFileStopsTheWholeCheck)
{
    addFile("HOT010_3.0_BS.csv", exampleText("BS"));
    writeBytes(m_dir.file("HOT010_3.0_PL.csv"), "");
    QZICsvConvXbrlResultXML failed = check(m_dir.path());
    EXPECT_EQ(failed.Result, "E_FAIL");
    EXPECT_EQ(failed.XbrlCsvFileCount, 0);
    EXPECT_TRUE(failed.CheckResultArray.empty());

    // Nothing of the failed operation reaches the next one.
    EXPECT_TRUE(g_mlErrors.empty());
    QZICsvConvXbrlResultXML next = check(kExample);
    EXPECT_EQ(next.Result, "S_OK");
    EXPECT_EQ(next.CheckResultArray, (std::vector<std::string>(4, "0")));
}

TEST_F(XbrlCheckTest, HostileFilesGiveEntriesNotCrashes)
{
    // Every item one layer below the one before, almost as deep as the folder allows.
    std::string deepChain = "A,SC,,,\nB,株式会社みなと商事,,,\nC1,2024-04-01,,,\nC2,2025-03-31,,,\n製造原価報告書,,,,\n";
    for (int layer = 2; layer < 4000; ++layer)
        deepChain += "外注加工費,1,1," + std::to_string(layer) + ",OutsourcingCostMFG-" + std::to_string(layer) + "\n";
    const std::pair<const char*, std::string> files[] = {
        {"HOT010_3.0_BS.csv", std::string("\x81\x20\xFF\x00\x01binary", 11)},
        {"HOT010_3.0_PL.csv", "A,PL,,,\nB," + std::string(1 << 20, 'x') + ",,,\n"},
        {"HOT010_3.0_NT.csv", "A,NT" + std::string(100000, ',') + "\n"},
        {"HOT010_3.0_SS.csv", std::string("A,SS,,,\n\0\0\0\n", 12)},
    };
    for (const auto& [name, bytes] : files)
        writeBytes(m_dir.file(name), bytes);
    addFile("HOT010_3.0_SC.csv", deepChain);
    QZICsvConvXbrlResultXML result = check(m_dir.path());
    EXPECT_EQ(result.Result, "S_OK");
    ASSERT_EQ(result.XbrlCsvFileCount, 5);
    EXPECT_EQ(result.CheckResultArray[3], "0") << result.DetailErrorInfoArray[3];  // the deep chain is sound
    for (int i : {0, 1, 2, 4}) {
        EXPECT_NE(result.CheckResultArray[i], "0") << result.CsvFileNameArray[i];
        EXPECT_FALSE(result.DetailErrorInfoArray[i].empty()) << result.CsvFileNameArray[i];
    }
}

}  // namespace
