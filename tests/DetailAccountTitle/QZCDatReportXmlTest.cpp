// Report XML written from the print trees of a checked detail file.
#include <gtest/gtest.h>

#include <string>

#include "DatTestSupport.h"
#include "QZCDOMParser.h"
#include "QZCDatConvertInfo.h"
#include "QZCDatDefinition.h"
#include "QZCDatITData.h"
#include "QZCPublicFunction.h"
#include "TestSupport.h"

namespace {

class ReportXmlTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ResetErrors();
        m_data = QZCDatConvertInfo::instance()->GetITData();
        const std::string definition = m_dir.file("HOI010_4.0_vld.xml");
        writeBytes(definition, "<definition/>");
        m_data->Initialize(ARG_VR, definition.c_str());
        ASSERT_EQ(m_data->SetITData(ARG_VR, "4.0"), 0);
        for (QZCDatArgValid_t kind : {ARG_SAKUSEINM, ARG_SOFTNM})
            m_data->Initialize(kind, nullptr);
        ASSERT_EQ(m_data->SetITData(ARG_SAKUSEINM, "山田&田中"), 0);
        ASSERT_EQ(m_data->SetITData(ARG_SOFTNM, "会計<ソフト>"), 0);
        m_data->SetCsvFileName("HOI010_4.0.csv");
        m_data->SetTypeCase(TYPECASE_DETAIL2);
    }
    void TearDown() override
    {
        QZCDatConvertInfo::destroy();
        ResetErrors();
    }

    // Reads the records against the definition and writes the report.
    std::string report(const std::string& records, const char* sibling = "0")
    {
        // A deposits-like form: detail rows grouped per record, a total row,
        // pages of up to three detail rows.
        std::string definition = testData("detail-report-definition.xml");
        definition.replace(definition.find("%SIBLING%"), 9, sibling);
        writeBytes(m_dir.file("definition.xml"), definition);
        writeShiftJis(m_dir.file("HOI010_4.0.csv"), records);
        QZCDOMParser dom;
        EXPECT_TRUE(dom.Initialize());
        EXPECT_TRUE(dom.Parse(m_dir.file("definition.xml").c_str()));
        QZCDatCsvFile& csv = *QZCDatConvertInfo::instance()->GetCsvFile();
        EXPECT_EQ(csv.ReadFile(m_dir.file("HOI010_4.0.csv").c_str(), &dom), 0) << QZCUtility::GetError();
        QZCDatDefinition& tree = *QZCDatConvertInfo::instance()->GetDefinition();
        EXPECT_EQ(tree.CreatePrintDefinition(csv.GetFormatKubun(), &dom), 0);
        std::string text = tree.MakeReportToCsv(&csv, m_data);
        // Every report parses as a document once wrapped in one element.
        QZCDOMParser check;
        EXPECT_TRUE(check.Initialize());
        EXPECT_TRUE(check.Parse(("<report>" + text + "</report>").c_str(), "report", "UTF-8")) << text;
        return text;
    }

    // The body of page n, without its start tag.
    static std::string page(const std::string& text, int n)
    {
        const std::string marker = "page=\"" + std::to_string(n) + "\"";
        size_t at = text.find(marker);
        if (at == std::string::npos)
            return "";
        size_t body = text.find("\">", at) + 2;
        return text.substr(body, text.find("</HOI010>", body) - body);
    }

    TempDir m_dir;
    QZCDatITData* m_data = nullptr;
};

TEST_F(ReportXmlTest, PageStartTagCarriesTheFilerData)
{
    std::string text = report("HOI010,0,みずほ銀行,1200,円,\r\n");
    std::string day = QZCPublicFunction::Now("yyyy'-'MM'-'dd", nullptr);
    EXPECT_EQ(text.substr(0, text.find('>') + 1),
              "<HOI010 VR=\"4.0\" id=\"HOI010-1\" page=\"1\" sakuseiDay=\"" + day +
                  "\" sakuseiNM=\"山田&amp;田中\" softNM=\"会計&lt;ソフト&gt;\" csvFileNM=\"HOI010_4.0.csv\">");
    EXPECT_EQ(text.substr(text.size() - 9), "</HOI010>");

    m_data->SetTypeCase(TYPECASE_DETAIL);
    std::string first = report("HOI010(1),0,みずほ銀行,1200,円,\r\n");
    EXPECT_EQ(first.find("csvFileNM"), std::string::npos);
}

TEST_F(ReportXmlTest, ElementsNestAndEmptyOnesAreLeftOut)
{
    EXPECT_EQ(page(report("HOI010,0,みずほ銀行,001200,円,普通&定期\r\n"), 1),
              "<B><bank>みずほ銀行<note>普通&amp;定期</note></bank><amount>1200</amount></B>");
    // A zero amount and an empty bank leave only what has content.
    EXPECT_EQ(page(report("HOI010,0,,000,円,\r\n"), 1), "");
    EXPECT_EQ(page(report("HOI010,0,\"<信用金庫>\",0,円,\r\n"), 1), "<B><bank>&lt;信用金庫&gt;</bank></B>");
}

TEST_F(ReportXmlTest, RowsFillPagesOfMaxOccurs)
{
    const std::string detail = "HOI010,0,銀行,100,円,\r\n";
    const std::string total = "HOI010,1,,400,円,\r\n";
    std::string text = report(detail + detail + detail + detail + total);
    EXPECT_EQ(page(text, 1), "<B><bank>銀行</bank><amount>100</amount></B>"
                             "<B><bank>銀行</bank><amount>100</amount></B>"
                             "<B><bank>銀行</bank><amount>100</amount></B>");
    // Names in byte order: the total group "A" comes before "B".
    EXPECT_EQ(page(text, 2), "<A><total unit=\"円\">400</total></A><B><bank>銀行</bank><amount>100</amount></B>");

    // A full page followed by the total row does not move on.
    std::string three = report(detail + detail + detail + total);
    EXPECT_EQ(page(three, 2), "");
    EXPECT_NE(page(three, 1).find("<A><total"), std::string::npos);
}

TEST_F(ReportXmlTest, WrittenPageNumbersComeOutInOrder)
{
    std::string text = report("HOI010(2),0,二頁,5,円,\r\nHOI010(1),0,一頁,3,円,\r\nHOI010(2),0,二頁目,7,円,\r\n");
    size_t one = text.find("id=\"HOI010-1\"");
    size_t two = text.find("id=\"HOI010-2\"");
    ASSERT_NE(one, std::string::npos);
    ASSERT_NE(two, std::string::npos);
    EXPECT_LT(one, two);
    EXPECT_EQ(page(text, 2), "<B><bank>二頁</bank><amount>5</amount></B><B><bank>二頁目</bank><amount>7</amount></B>");
}

TEST_F(ReportXmlTest, SiblingFormsShareOneContainerPerPage)
{
    std::string text = report("HOI010,0,甲銀行,1,円,\r\nHOI010,0,乙銀行,2,円,\r\n", "1");
    EXPECT_EQ(page(text, 1), "<B><bank>甲銀行</bank><amount>1</amount><bank>乙銀行</bank><amount>2</amount></B>");
}

TEST_F(ReportXmlTest, MissingInputsThrow)
{
    QZCDatDefinition empty;
    QZCDatCsvFile csv;
    EXPECT_THROW(empty.MakeReportToCsv(&csv, m_data), int);
    EXPECT_THROW(empty.MakeReportToCsv(nullptr, m_data), int);
}

}  // namespace
