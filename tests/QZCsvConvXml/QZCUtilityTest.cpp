#include <gtest/gtest.h>

#include "TestSupport.h"
#include "QZCUtility.h"

namespace {

class ErrorListTest : public ::testing::Test {
protected:
    void SetUp() override { QZCUtility::ClearErrorInfo(); g_nRecordCount = 0; }
    void TearDown() override { QZCUtility::ClearErrorInfo(); g_nRecordCount = 0; }
};

TEST_F(ErrorListTest, LineWidthFollowsTheRecordCount)
{
    QZCUtility::AddCsvErrorInfo(9999, 3, "HQZ9250E");
    QZCUtility::AddCsvErrorInfo(7, 12, "HQZ9300E");
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9250E,0007-00012-HQZ9300E");

    g_nRecordCount = 250;
    QZCUtility::AddCsvErrorInfo(9999, 3, "HQZ9250E");
    QZCUtility::AddCsvErrorInfo(7, 12, "HQZ9300E");
    EXPECT_EQ(takeErrors(), "007-00012-HQZ9300E,9999-00003-HQZ9250E");

    g_nRecordCount = 7;
    QZCUtility::AddCsvErrorInfo(5, 1, "HQZ9300E");
    EXPECT_EQ(takeErrors(), "5-00001-HQZ9300E");

    g_nRecordCount = 12345;
    QZCUtility::AddCsvErrorInfo("0", "0", "HQZ9620E");
    QZCUtility::AddCsvErrorInfo("7", "0", "HQZ9620E");
    QZCUtility::AddCsvErrorInfo("0000", "00000", "HQZ9630E");
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9620E,0000-00000-HQZ9630E,00007-00000-HQZ9620E");
}

TEST_F(ErrorListTest, ParamErrorsAndNullParts)
{
    g_nRecordCount = 20;
    QZCUtility::AddParamErrorInfoDefinition(2, "HQZ9240E");
    QZCUtility::AddParamErrorInfoDefinition("HQZ9560E");
    QZCUtility::AddCsvErrorInfo(nullptr, nullptr, nullptr);
    EXPECT_EQ(takeErrors(), "00-00000-,0000-00000-HQZ9560E,9999-00002-HQZ9240E");
}

TEST_F(ErrorListTest, EntriesAreCutTo31Bytes)
{
    QZCUtility::AddCsvErrorInfo("123456789012345678901234567890", "1", "HQZ9300E");
    EXPECT_EQ(takeErrors(), "123456789012345678901234567890-");
}

TEST_F(ErrorListTest, JoinSortsAndDropsRepeats)
{
    EXPECT_EQ(QZCUtility::GetError(), "");
    QZCUtility::AddCsvErrorInfo(10, 1, "HQZ9300E");
    QZCUtility::AddCsvErrorInfo(2, 1, "HQZ9300E");
    QZCUtility::AddCsvErrorInfo(10, 1, "HQZ9300E");
    EXPECT_EQ(QZCUtility::GetError(), "0002-00001-HQZ9300E,0010-00001-HQZ9300E");
    // The list itself stays sorted and without repeats.
    EXPECT_EQ(g_mlErrors.size(), 2u);
    EXPECT_EQ(g_mlErrors.front(), "0002-00001-HQZ9300E");
}

TEST_F(ErrorListTest, UnexpectedErrorReplacesTheList)
{
    for (int i = 1; i <= 5; ++i)
        QZCUtility::AddCsvErrorInfo(i, 1, "HQZ9300E");
    QZCUtility::AddOtherExceptionErrorInfo();
    EXPECT_EQ(QZCUtility::GetError(), "0000-00000-HQZ9560E");
    QZCUtility::AddCsvErrorInfo(1, 1, "HQZ9300E");
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9560E,0001-00001-HQZ9300E");
}

TEST_F(ErrorListTest, JoinStopsAtTheEntryLimit)
{
    // Sorted as texts, "99999-..." is the last of the 100,001 entries.
    for (int i = 100001; i >= 1; --i)
        QZCUtility::AddCsvErrorInfo(i, 1, "HQZ9300E");
    std::string joined = QZCUtility::GetError();
    EXPECT_EQ(std::count(joined.begin(), joined.end(), ','), 100000);
    EXPECT_EQ(joined.substr(0, 40), "0000-00000-HQZ9300E,0001-00001-HQZ9300E,");  // line 9999 reads as 0000
    EXPECT_EQ(joined.substr(joined.size() - 40), "99998-00001-HQZ9300E,0000-00000-HQZ9920E");
}

TEST_F(ErrorListTest, JoinStopsAtTwoMegabytes)
{
    // 31-byte entries: the 2 MB bound is reached before 100,000 entries.
    g_nRecordCount = 9999999;
    for (int i = 1; i <= 70000; ++i)
        QZCUtility::AddCsvErrorInfo(std::to_string(i).c_str(), "123456789012", "HQZ9300E");
    std::string joined = QZCUtility::GetError();
    EXPECT_LE(joined.size(), 2097152u + 1 + 19);
    EXPECT_GT(joined.size(), 2097152u - 32);
    EXPECT_EQ(joined.substr(joined.size() - 19), "0000-00000-HQZ9920E");
}

TEST(MessageTable, CodesAndBlockingColumn)
{
    EXPECT_STREQ(DatMsgTable[MSG_HQZ9620E].code, "HQZ9620E");
    EXPECT_EQ(DatMsgTable[MSG_HQZ9620E].blocksConversion, 0);
    EXPECT_STREQ(DatMsgTable[MSG_HQZ8230E].code, "HQZ8230E");
    int blocking = 0;
    for (int i = 0; i < MSG_COUNT; ++i) {
        EXPECT_EQ(DatMsgTable[i].index, i);
        blocking += static_cast<int>(DatMsgTable[i].blocksConversion);
    }
    EXPECT_EQ(blocking, 18);
}

TEST(CharacterRules, RepertoireBoundaries)
{
    for (const Case& c : readCases("fyla-characters.tsv", 2))
        EXPECT_EQ(QZCUtility::IsFylaAvailableString(c.text(0)), c[1] == "true") << c.where;
}

TEST(CharacterRules, CharacterClasses)
{
    EXPECT_TRUE(QZCUtility::IsZenkakuChar(u'\u00A0'));
    EXPECT_FALSE(QZCUtility::IsZenkakuChar(u'~'));
    EXPECT_TRUE(QZCUtility::IsAlphabetChar(u'z'));
    EXPECT_FALSE(QZCUtility::IsAlphabetChar(u'\uFF21'));
    EXPECT_TRUE(QZCUtility::IsNumber(u'0'));
    EXPECT_FALSE(QZCUtility::IsNumber(u'\uFF11'));
    EXPECT_FALSE(QZCUtility::IsNumber('0', false));
    EXPECT_TRUE(QZCUtility::IsNumber('0', true));
    EXPECT_TRUE(QZCUtility::IsNumber('9', false));
    EXPECT_TRUE(QZCUtility::IsHyphen(u'-'));
    EXPECT_FALSE(QZCUtility::IsHyphen(u'\u2212'));
    EXPECT_TRUE(QZCUtility::IsUnderScore(u'_'));
}

}  // namespace
