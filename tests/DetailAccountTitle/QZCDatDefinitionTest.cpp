#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

#include "DatTestSupport.h"
#include "QZCDOMParser.h"
#include "QZCDatConvertInfo.h"
#include "QZCDatDefinition.h"
#include "QZCDatITData.h"
#include "QZCDatXMLDefDate.h"
#include "TestSupport.h"

namespace {

// Definitions parsed from memory for a conversion of style version 2.0.
class QZCDatDefinitionTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        const std::string path = m_dir.file("HOI010_2.0_vld.xml");
        writeBytes(path, "<root/>");
        QZCDatITData* data = QZCDatConvertInfo::instance()->GetITData();
        data->Initialize(ARG_VR, path.c_str());
        ASSERT_EQ(data->SetITData(ARG_VR, "2.0"), 0);
        data->SetTypeCase(TYPECASE_DETAIL2);
        ASSERT_TRUE(m_dom.Initialize());
    }
    void TearDown() override { QZCDatConvertInfo::destroy(); }

    int Create(const std::string& xml, std::map<std::string, ReportAttr_t> kubun, bool print = false)
    {
        EXPECT_TRUE(m_dom.Parse(xml.c_str(), "definition", "UTF-8"));
        return print ? m_definition.CreatePrintDefinition(kubun, &m_dom)
                     : m_definition.CreateValidDefinition(kubun, &m_dom);
    }

    std::string Validate(const char* csvText)
    {
        LoadCsv(m_csv, csvText);
        ResetErrors();
        m_result = m_definition.ValidateCsv(&m_csv);
        return QZCUtility::GetError();
    }

    TempDir m_dir;
    QZCDOMParser m_dom;
    QZCDatDefinition m_definition;
    QZCDatCsvFile m_csv;
    int m_result = 0;
};

const ReportAttr_t kAttr = {5, 0, 0};

TEST_F(QZCDatDefinitionTest, OneRootPerFormatKubunInKeyOrder)
{
    ASSERT_EQ(Create(testData("detail-valid-definition.xml"), {{"HOI020", kAttr}, {"HOI010", kAttr}}), 0);
    const QZCDatRootNodes& roots = m_definition.GetValidRootNodes();
    ASSERT_EQ(roots.size(), 2u);
    EXPECT_STREQ(roots[0]->GetId(), "HOI010");
    EXPECT_STREQ(roots[1]->GetId(), "HOI020");
    EXPECT_STREQ(roots[1]->GetName(), "HOI010");
    EXPECT_EQ(QZCDatDefinition::GetRootNode(roots, "HOI020(3)"), roots[1].get());
    EXPECT_EQ(QZCDatDefinition::GetRootNode(roots, "HOI030"), nullptr);
}

TEST_F(QZCDatDefinitionTest, LoadingFaults)
{
    EXPECT_EQ(Create(testData("detail-valid-definition.xml"), {}), -1);
    EXPECT_EQ(Create(testData("detail-valid-definition.xml"), {{"HOI030", kAttr}}), -1);
    EXPECT_EQ(Create("<root><report id=\"A\" reportVR=\"2.0\"><item><valid id=\"Range\"/></item></report></root>",
                     {{"A", kAttr}}),
              -1);
    EXPECT_EQ(Create(testData("detail-print-definition.xml"), {{"HOI010", kAttr}}, true), 0);
    EXPECT_EQ(Create("<root><report id=\"A\" reportId=\"R\" reportVR=\"2.0\"><item id=\"x\" parent=\"none\"/>"
                     "</report></root>",
                     {{"A", kAttr}}, true),
              -1);
}

TEST_F(QZCDatDefinitionTest, RootLookupTakesTheFirstIdContainedInTheText)
{
    ASSERT_EQ(Create("<root><report id=\"HOI010\" reportVR=\"2.0\"/><report id=\"HOI01\" reportVR=\"2.0\"/></root>",
                     {{"HOI010", kAttr}, {"HOI01", kAttr}}),
              0);
    const QZCDatRootNodes& roots = m_definition.GetValidRootNodes();
    EXPECT_EQ(QZCDatDefinition::GetRootNode(roots, "HOI010(2)"), roots[0].get());
    EXPECT_STREQ(roots[0]->GetId(), "HOI01");
}

TEST_F(QZCDatDefinitionTest, ValidatesEveryRecordAndCollectsAllFailures)
{
    ASSERT_EQ(Create(testData("detail-valid-definition.xml"), {{"HOI020", kAttr}, {"HOI010", kAttr}}), 0);
    EXPECT_EQ(Validate("HOI010,0,a,+12\nHOI010,0,,1000\nHOI020,2\nHOI010,0,b,7,ignored"),
              "0002-00003-HQZ9210E,0002-00004-HQZ9620E,0003-00002-HQZ9620E");
    EXPECT_EQ(m_result, -1);
    EXPECT_STREQ(m_csv.GetItem(0, 3), "12");
    EXPECT_EQ(Validate("HOI010,0,a,1\nHOI010,1,b,5000\n"), "");
    EXPECT_EQ(m_result, 0);
}

TEST_F(QZCDatDefinitionTest, FailingTotalRowStopsTheValidation)
{
    ASSERT_EQ(Create(testData("detail-valid-definition.xml"), {{"HOI010", kAttr}}), 0);
    EXPECT_EQ(Validate("HOI010,0,,5\nHOI010,1,t,x,note\n"), "0002-00004-HQZ9620E");
    EXPECT_EQ(m_result, -1);
    // A total row that passes lets the ordinary checks run; the detail
    // child is not applied to it.
    EXPECT_EQ(Validate("HOI010,0,,5\nHOI010,1,t,5000\n"), "0001-00003-HQZ9210E");
    EXPECT_EQ(Validate(""), "");
    EXPECT_EQ(m_result, 0);
    EXPECT_THROW(m_definition.ValidateCsv(nullptr), int);
}

TEST_F(QZCDatDefinitionTest, WritesNestedElementsOfTheRecordKind)
{
    ASSERT_EQ(Create(testData("detail-print-definition.xml"), {{"HOI010", kAttr}}, true), 0);
    const QZCDatRootNodes& roots = m_definition.GetPrintRootNodes();
    ASSERT_EQ(roots.size(), 1u);
    EXPECT_STREQ(roots[0]->GetSibling(), "next");
    QZCDatITData* data = QZCDatConvertInfo::instance()->GetITData();
    LoadCsv(m_csv, "HOI010,0,001200,5,円<\nHOI010,1,0,,\n");
    EXPECT_EQ(roots[0]->WriteNode(&m_csv, 0, data), "<line><amount>1200</amount><price unit=\"円&lt;\">5</price></line>");
    EXPECT_EQ(roots[0]->WriteNode(&m_csv, 1, data), "<day>1</day>");
    data->SetTypeCase(TYPECASE_APPENDED);
    EXPECT_EQ(roots[0]->WriteNode(&m_csv, 0, data),
              "<line><amount>1200</amount><price unit=\"円&lt;\">5</price></line><day>0</day>");
    EXPECT_THROW(roots[0]->WriteNode(&m_csv, 0, nullptr), int);
}

TEST_F(QZCDatDefinitionTest, NodeClassesAndLongTags)
{
    const std::string longName(120, 'n');
    EXPECT_TRUE(m_dom.Parse(("<item type=\"Date\" id=\"" + longName + "\" column=\"1\"/>").c_str(), "item", "UTF-8"));
    auto date = QZCDatXMLDefineNode::CreateNode(&m_dom);
    ASSERT_NE(date, nullptr);
    EXPECT_EQ(typeid(*date), typeid(QZCDatXMLDefDate));
    LoadCsv(m_csv, "v");
    const std::string written = date->WriteNode(&m_csv, 0);
    EXPECT_EQ(written.substr(0, 99), "<" + longName.substr(0, 98));
    EXPECT_EQ(written.size(), 99u + 1 + 99);

    EXPECT_TRUE(m_dom.Parse("<item type=\"date\" column=\"0\"/>", "item", "UTF-8"));
    auto plain = QZCDatXMLDefineNode::CreateNode(&m_dom);
    ASSERT_NE(plain, nullptr);
    EXPECT_EQ(typeid(*plain), typeid(QZCDatXMLDefineNode));
    EXPECT_EQ(plain->GetColumn(), -1);
    EXPECT_EQ(QZCDatXMLDefineNode::CreateNode(nullptr), nullptr);
}

}  // namespace
