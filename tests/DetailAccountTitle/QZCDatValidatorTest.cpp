#include <gtest/gtest.h>

#include <string>

#include "DatTestSupport.h"
#include "QZCDOMParser.h"
#include "QZCDatValidator.h"

namespace {

// A definition node element holding the given children, parsed from memory
// with the cursor on that element.
class QZCDatValidatorTest : public ::testing::Test {
protected:
    int Load(const std::string& children, long column = 0)
    {
        const std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><define>" + children + "</define>";
        EXPECT_TRUE(m_dom.Initialize());
        EXPECT_TRUE(m_dom.Parse(xml.c_str(), "definition", "UTF-8"));
        return m_validator.Initialize(column, &m_dom);
    }

    // Checks record 0 of the CSV text and returns the joined error list.
    std::string Run(const char* text)
    {
        LoadCsv(m_csv, text);
        ResetErrors();
        m_result = m_validator.ValidateCsv(&m_csv, 0, 0);
        return QZCUtility::GetError();
    }

    QZCDOMParser m_dom;
    QZCDatValidator m_validator;
    QZCDatCsvFile m_csv;
    int m_result = 0;
};

TEST_F(QZCDatValidatorTest, ColumnAttributeOrTheNodesOwnColumn)
{
    ASSERT_EQ(Load("<valid id=\"number\"/><valid id=\"number\" column=\"3\"/><valid id=\"number\" column=\"0\"/>", 1),
              0);
    EXPECT_EQ(Run("a,x,y"), "0001-00002-HQZ9620E,0001-00003-HQZ9620E");
    EXPECT_EQ(m_result, -1);
    EXPECT_EQ(Run("a,1,2"), "");
    EXPECT_EQ(m_result, 0);
    // The cursor is back on the node's element for the caller.
    EXPECT_EQ(m_dom.GetNodeName(), "define");
}

TEST_F(QZCDatValidatorTest, MessageOfTheDefinitionReplacesTheChecksOwn)
{
    ASSERT_EQ(Load("<valid id=\"exist\" message=\"HQZ9620E\"/><valid id=\"alnum\" column=\"2\" message=\"HQZ0000E\"/>"),
              0);
    EXPECT_EQ(Run(",x"), "0001-00001-HQZ9620E,0001-00002-HQZ9620E");
}

TEST_F(QZCDatValidatorTest, OuterConditionWithNomsgSwitchesTheCheckOff)
{
    ASSERT_EQ(Load("<valid id=\"empty\" column=\"3\"><outer column=\"2\" id=\"contain\" value=\"1\" nomsg=\"1\"/>"
                   "</valid>"),
              0);
    EXPECT_EQ(Run("HOI010,0,text"), "");
    EXPECT_EQ(m_result, 0);
    EXPECT_EQ(Run("HOI010,1,text"), "0001-00003-HQZ9610E");
}

TEST_F(QZCDatValidatorTest, OuterConditionWithoutNomsgReportsItselfAndFailsTheRecord)
{
    ASSERT_EQ(Load("<valid id=\"exist\" column=\"3\"><outer column=\"2\" id=\"number\"/>"
                   "<outer column=\"0\" id=\"exist\"/></valid>"),
              0);
    EXPECT_EQ(Run("HOI010,x,text"), "0001-00002-HQZ9620E");
    EXPECT_EQ(m_result, -1);
    EXPECT_EQ(Run("HOI010,x,"), "0001-00002-HQZ9620E,0001-00003-HQZ9210E");
    EXPECT_EQ(Run("HOI010,1,text"), "");
    EXPECT_EQ(m_result, 0);
}

TEST_F(QZCDatValidatorTest, PassingRangeWritesTheValueBackWithoutPlus)
{
    ASSERT_EQ(Load("<valid id=\"range\" min=\"0\" max=\"999\" column=\"2\"/><valid id=\"length\" max=\"1\" column=\"2\"/>"),
              0);
    EXPECT_EQ(Run("HOI010,+5"), "");
    EXPECT_STREQ(m_csv.GetItem(0, 1), "5");
    EXPECT_EQ(Run("HOI010,+"), "0001-00002-HQZ9620E");
    EXPECT_STREQ(m_csv.GetItem(0, 1), "+");
}

TEST_F(QZCDatValidatorTest, DefinitionFaultsFailTheSetUp)
{
    EXPECT_EQ(Load("<valid id=\"number\"/><valid id=\"Range\" min=\"0\" max=\"1\"/>"), -1);
    EXPECT_EQ(m_dom.GetNodeName(), "define");
    EXPECT_EQ(Load("<valid/>"), -1);
    EXPECT_EQ(Load("<valid id=\"number\"><outer column=\"1\" id=\"bogus\"/></valid>"), -1);
    EXPECT_EQ(m_dom.GetNodeName(), "define");
    EXPECT_EQ(m_validator.Initialize(0, nullptr), -1);
}

TEST_F(QZCDatValidatorTest, OtherElementsAndOuterBelowColumnOneArePassedOver)
{
    ASSERT_EQ(Load("<note/><valid id=\"number\"><outer id=\"bogus\"/><outer column=\"-1\" id=\"bogus\"/></valid>"), 0);
    EXPECT_EQ(Run("x"), "0001-00001-HQZ9620E");
    EXPECT_EQ(Load(""), 0);
    EXPECT_EQ(Run("x"), "");
}

TEST_F(QZCDatValidatorTest, UnusableParameterSurfacesWhenTheRecordIsChecked)
{
    ASSERT_EQ(Load("<valid id=\"range\" min=\"9\" max=\"1\"/>"), 0);
    EXPECT_THROW(Run("5"), int);
    EXPECT_THROW(m_validator.ValidateCsv(nullptr, 0, 0), int);
}

TEST(QZCDatValidItemFactory, EveryKeywordIsKnownExactly)
{
    const char* types[] = {"alnum", "alnum2", "alnum3", "charlength", "contain", "empty", "fylstring",
                           "exist", "existdate", "existmonth", "existyear", "existpath", "extension",
                           "length", "styleversion", "decimal", "number", "range", "range2", "multibyte"};
    for (const char* type : types) {
        EXPECT_NE(QZCDatValidItem::CreateItem(0, type, "", "", "", MSG_NONE), nullptr) << type;
    }
    EXPECT_EQ(QZCDatValidItem::CreateItem(0, "Number", "", "", "", MSG_NONE), nullptr);
    EXPECT_EQ(QZCDatValidItem::CreateItem(0, "number ", "", "", "", MSG_NONE), nullptr);
    EXPECT_EQ(QZCDatValidItem::CreateItem(0, "number", nullptr, "", "", MSG_NONE), nullptr);
    EXPECT_EQ(QZCDatValidItem::GetMessageNumber("HQZ8230E"), MSG_HQZ8230E);
    EXPECT_EQ(QZCDatValidItem::GetMessageNumber("hqz8230e"), MSG_NONE);
    EXPECT_EQ(QZCDatValidItem::GetMessageNumber(""), MSG_NONE);
}

TEST(QZCDatValidatorArguments, StopsAtTheFirstFailingCheckOfTheTable)
{
    QZCDatValidator validator;
    ASSERT_EQ(validator.Initialize(ARG_SAKUSEINM, nullptr), 0);
    ResetErrors();
    g_nRecordCount = 250;
    EXPECT_EQ(validator.Validate(std::string(31, 'a'), 9999, ARG_SAKUSEINM), -1);
    EXPECT_EQ(validator.Validate("", 9999, ARG_SAKUSEINM), -1);
    EXPECT_EQ(validator.Validate(std::string(30, 'a'), 9999, ARG_SAKUSEINM), 0);
    EXPECT_EQ(QZCUtility::GetError(), "9999-00005-HQZ9270E,9999-00005-HQZ9990E");
    EXPECT_THROW(validator.Initialize(static_cast<QZCDatArgValid_t>(7), nullptr), int);
}

TEST(QZCDatValidatorArguments, PageNumberTable)
{
    QZCDatValidator validator;
    ASSERT_EQ(validator.Initialize(ARG_CSVPAGENO, nullptr), 0);
    ResetErrors();
    EXPECT_EQ(validator.Validate("1", 9999, 8), 0);
    EXPECT_EQ(validator.Validate("100000000", 9999, 8), 0);
    EXPECT_EQ(validator.Validate("0", 9999, 8), -1);
    EXPECT_EQ(validator.Validate("100000001", 9999, 8), -1);
    EXPECT_EQ(validator.Validate("1.5", 9999, 8), -1);
    EXPECT_EQ(QZCUtility::GetError(), "0000-00000-HQZ9670E");
}

}  // namespace
