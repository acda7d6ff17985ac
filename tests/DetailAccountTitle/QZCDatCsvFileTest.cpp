#include <gtest/gtest.h>

#include <string>

#include "DatTestSupport.h"
#include "QZCDOMParser.h"
#include "QZCDatConvertInfo.h"
#include "QZCDatCsvFile.h"
#include "QZCDatITData.h"
#include "TestSupport.h"

namespace {

// Reads CSV text written in Shift_JIS against tests/data/detail-csv-definition.xml, as a
// conversion of style version 2.0 of the given type case.
class QZCDatCsvFileTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        const std::string definition = m_dir.file("HOI010_2.0_vld.xml");
        writeBytes(definition, testData("detail-csv-definition.xml"));
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

// The records of tests/data/detail-csv-records.tsv.
TEST_F(QZCDatCsvFileTest, CaseTable)
{
    for (const Case& c : readCases("detail-csv-records.tsv", 3)) {
        SCOPED_TRACE(c.where);
        const uint16_t typeCase = c[1] == "detail2" ? TYPECASE_DETAIL2 : c[1] == "appended" ? TYPECASE_APPENDED
                                                                                             : TYPECASE_DETAIL;
        EXPECT_EQ(Read(c[0], typeCase), c.expected(2));
    }
}

TEST_F(QZCDatCsvFileTest, OnlyTheFirstFrameErrorIsReported)
{
    EXPECT_EQ(Read("HOI010(1),0,x\nHOI010(1),0,x,y\nHOI099,0\n"), "0000-00000-HQZ9300E");
    EXPECT_EQ(m_csv.GetRecordCount(), 1);
    EXPECT_EQ(Read("HOI010(1),0,a\nHOI010(2),0,a\nHOI010(2),0,a\nHOI010(2),0,a\nHOI010(2),0,a\n"),
              "5-00001-HQZ9580E");
    EXPECT_EQ(m_result, -1);
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
