#include <gtest/gtest.h>

#include <string>

#include "DatTestSupport.h"
#include "QZCDOMParser.h"
#include "QZCDatConvertInfo.h"
#include "QZCDatCsvFile.h"
#include "QZCDatITData.h"
#include "TestSupport.h"

namespace {

const char* kDefinition = R"(<?xml version="1.0" encoding="UTF-8"?>
<root>
  <report id="HOI010" reportId="HOI010" reportVR="1.0" columnNum="9"/>
  <report id="HOI010" reportId="HOI010" reportVR="2.0" columnNum="3" columnNumEx=" 5  2 " maxOccurs="3"
          maxOccursPerTag="7" bracketed="1">
    <item id="a" meisaiGoukei="0"/>
    <note meisaiGoukei="2"/>
    <item id="b" meisaiGoukei="1"/>
  </report>
  <report id="HOI020" reportId="HOI010" reportVR="2.0" columnNum="3">
    <item id="c" meisaiGoukei="0"/>
  </report>
</root>
)";

// Reads CSV text written in Shift_JIS against the definition above, as a
// conversion of style version 2.0 of the given type case.
class QZCDatCsvFileTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        const std::string definition = m_dir.file("HOI010_2.0_vld.xml");
        writeBytes(definition, kDefinition);
        ASSERT_TRUE(m_dom.Initialize());
        ASSERT_TRUE(m_dom.Parse(definition.c_str()));
        QZCDatITData* data = QZCDatConvertInfo::instance()->GetITData();
        data->Initialize(ARG_VR, definition.c_str());
        ASSERT_EQ(data->SetITData(ARG_VR, "2.0"), 0);
    }
    void TearDown() override { QZCDatConvertInfo::destroy(); }

    std::string Read(const std::string& text, uint16_t typeCase = TYPECASE_DETAIL)
    {
        QZCDatConvertInfo::instance()->GetITData()->SetTypeCase(typeCase);
        const std::string path = m_dir.file("HOI010_2.0.csv");
        writeShiftJis(path, text);
        ResetErrors();
        m_result = m_csv.ReadFile(path.c_str(), &m_dom);
        return takeErrors();
    }

    TempDir m_dir;
    QZCDOMParser m_dom;
    QZCDatCsvFile m_csv;
    int m_result = 0;
};

TEST_F(QZCDatCsvFileTest, ReadsRecordsOfNumberedPages)
{
    EXPECT_EQ(Read("HOI010(1),0,x\r\nHOI010(2), 1 ,\"y,z\"\r\n"), "");
    EXPECT_EQ(m_result, 0);
    ASSERT_EQ(m_csv.GetRecordCount(), 2);
    EXPECT_EQ(g_nRecordCount, 2);
    EXPECT_STREQ(m_csv.GetItem(1, 2), "y,z");
    EXPECT_STREQ(m_csv.GetRecordMeisaiGoukei(1), "1");
    EXPECT_TRUE(m_csv.IsMeisai(0, 1));
    const auto kubun = m_csv.GetFormatKubun();
    ASSERT_EQ(kubun.size(), 1u);
    EXPECT_EQ(kubun.at("HOI010").columnNum, 3);
    EXPECT_EQ(m_csv.GetMaxOccurs("HOI010"), 3);
    EXPECT_EQ(m_csv.GetMaxOccursPerTag("HOI010"), 7);
    EXPECT_EQ(m_csv.GetMaxOccurs("HOI020"), 0);
}

TEST_F(QZCDatCsvFileTest, PageNumbers)
{
    for (const char* good : {"HOI010(1)", "HOI010(007)", "HOI010(100000000)"}) {
        EXPECT_EQ(Read(std::string(good) + ",0,x\n"), "") << good;
    }
    for (const char* bad : {"HOI010(0)", "HOI010()", "HOI010(1)x", "HOI010(100000001)", "HOI010(-1)",
                            "HOI010(99999999999999999999)", "HOI020(1)", "HOI01(1)", "HOI030"}) {
        EXPECT_EQ(Read(std::string(bad) + ",0,x\n"), "1-00001-HQZ9580E") << bad;
    }
    // Only the first detail operation insists on the page of a numbered form.
    EXPECT_EQ(Read("HOI010,0,x\n"), "1-00001-HQZ9580E");
    EXPECT_EQ(Read("HOI010,0,x\n", TYPECASE_DETAIL2), "");
}

TEST_F(QZCDatCsvFileTest, ColumnCountsWithExtraCounts)
{
    EXPECT_EQ(Read("HOI010(1),0,x\nHOI010(1),0,x,y,z\n"), "");
    EXPECT_EQ(Read("HOI010(1),0\n"), "0000-00000-HQZ9300E");
    EXPECT_EQ(Read("HOI010(1),0,x,y\n"), "0000-00000-HQZ9300E");
    // Only the first frame error is reported.
    EXPECT_EQ(Read("HOI010(1),0,x\nHOI010(1),0,x,y\nHOI099,0\n"), "0000-00000-HQZ9300E");
    EXPECT_EQ(m_csv.GetRecordCount(), 1);
}

TEST_F(QZCDatCsvFileTest, MaxOccursCountsEachPageText)
{
    EXPECT_EQ(Read("HOI010(1),0,a\nHOI010(2),0,a\nHOI010(1),0,a\nHOI010(2),0,a\nHOI010(1),0,a\n"), "");
    EXPECT_EQ(Read("HOI010(1),0,a\nHOI010(2),0,a\nHOI010(2),0,a\nHOI010(2),0,a\nHOI010(2),0,a\n"),
              "5-00001-HQZ9580E");
    EXPECT_EQ(m_result, -1);
    EXPECT_EQ(Read("HOI010,0,a\nHOI010,0,a\nHOI010,0,a\nHOI010,0,a\n", TYPECASE_DETAIL2), "");
}

TEST_F(QZCDatCsvFileTest, RowKinds)
{
    EXPECT_EQ(Read("HOI010(1),1,x\n"), "");
    EXPECT_EQ(Read("HOI010(1),,x\n"), "1-00002-HQZ9590E");
    EXPECT_EQ(Read("HOI010(1),2,x\n"), "1-00002-HQZ9600E");
    EXPECT_EQ(Read("HOI010(1),0,x\nHOI020,1,x\n"), "2-00002-HQZ9600E");
    // Appended tables have no row kind.
    EXPECT_EQ(Read("HOI020,x,y\n", TYPECASE_APPENDED), "");
}

TEST_F(QZCDatCsvFileTest, BlankLinesEmptyKubunAndRefusedCharacters)
{
    EXPECT_EQ(Read("HOI010(1),0,x\r\n\r\n"), "0000-00000-HQZ9300E");
    EXPECT_EQ(Read("HOI010(1),0,x\n,0,x\n"), "2-00001-HQZ9570E");
    EXPECT_EQ(Read("HOI010(1),0,x\nHOI010(1),0,①ｱ\n"), "0000-00000-HQZ9310E");
    EXPECT_EQ(Read("HOI020,0,ｱ\n", TYPECASE_DETAIL2), "");
}

TEST_F(QZCDatCsvFileTest, LineNumbersTakeTheWidthOfTheRecordCount)
{
    std::string text;
    for (int i = 0; i < 10; ++i) {
        text += "HOI010(1),0,x\n";
    }
    EXPECT_EQ(Read(text + "HOI030,0,x\nHOI010(1),0,x\n"), "11-00001-HQZ9580E");
    EXPECT_EQ(Read(text + ",0,x\n", TYPECASE_DETAIL2), "11-00001-HQZ9570E");
}

TEST_F(QZCDatCsvFileTest, MissingEmptyAndHostileFiles)
{
    ResetErrors();
    EXPECT_EQ(m_csv.ReadFile(m_dir.file("none.csv").c_str(), &m_dom), -1);
    EXPECT_EQ(m_csv.ReadFile("", &m_dom), -1);
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9230E");
    writeBytes(m_dir.file("empty.csv"), "");
    EXPECT_EQ(m_csv.ReadFile(m_dir.file("empty.csv").c_str(), &m_dom), -1);
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9230E");

    const std::string path = m_dir.file("hostile.csv");
    writeBytes(path, std::string("HOI010(1),0,x\n\x82\xff\x00\x01", 17));
    EXPECT_EQ(m_csv.ReadFile(path.c_str(), &m_dom), -1);
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9620E");
    writeBytes(path, std::string("HOI010(1),0\x00,x\n", 15));
    EXPECT_EQ(m_csv.ReadFile(path.c_str(), &m_dom), -1);
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9300E");

    EXPECT_EQ(Read("HOI010(1),0," + std::string(1 << 20, 'x') + "\n"), "");
    std::string columns = "HOI010(1),0";
    for (int i = 0; i < 100000; ++i) {
        columns += ",x";
    }
    EXPECT_EQ(Read(columns + "\n"), "0000-00000-HQZ9300E");
    EXPECT_EQ(Read(std::string(1000000, '\n')), "0000-00000-HQZ9300E");
    EXPECT_EQ(Read("\"HOI010(1),0,x\n"), "1-00001-HQZ9580E");
}

TEST(QZCDatCsvFileCounts, RoughRecordCount)
{
    QZCDatCsvFile csv;
    EXPECT_EQ(csv.GetRoughRecordCount(""), 0);
    EXPECT_EQ(csv.GetRoughRecordCount("a,b\r\n"), 1);
    EXPECT_EQ(csv.GetRoughRecordCount("a,b\r\nc"), 2);
    EXPECT_EQ(csv.GetRoughRecordCount("ab\n\n\ncd\r\r\n"), 2);
    // A first line of one character before its line end is not counted.
    EXPECT_EQ(csv.GetRoughRecordCount("a\nbc\n"), 1);
    EXPECT_EQ(csv.GetRoughRecordCount("a"), 0);
    EXPECT_EQ(csv.GetRoughRecordCount("ab"), 1);
}

}  // namespace
