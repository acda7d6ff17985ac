#include <gtest/gtest.h>

#include <string>

#include "DatTestSupport.h"
#include "QZCDatConvertInfo.h"
#include "QZCDatCsvFile.h"
#include "QZCDatITData.h"

namespace {

TEST(QZCDatITData, StoresOnlyValuesThatItsChecksAccept)
{
    QZCDatITData data;
    EXPECT_STREQ(data.GetITData(ARG_SAKUSEINM), "");
    EXPECT_EQ(data.SetITData(ARG_SAKUSEINM, "山田"), -1);
    EXPECT_STREQ(data.GetITData(ARG_SAKUSEINM), "");

    data.Initialize(ARG_SAKUSEINM, nullptr);
    ResetErrors();
    EXPECT_EQ(data.SetITData(ARG_SAKUSEINM, "山田"), 0);
    EXPECT_STREQ(data.GetITData(ARG_SAKUSEINM), "山田");
    EXPECT_EQ(data.SetITData(ARG_SAKUSEINM, ""), -1);
    EXPECT_EQ(data.SetITData(ARG_SAKUSEINM, nullptr), -1);
    EXPECT_STREQ(data.GetITData(ARG_SAKUSEINM), "山田");
    EXPECT_EQ(QZCUtility::GetError(), "0000-00000-HQZ9270E");

    // Setting a kind up twice keeps the first entry and its value.
    data.Initialize(ARG_SAKUSEINM, nullptr);
    EXPECT_STREQ(data.GetITData(ARG_SAKUSEINM), "山田");
    // A kind without a table is not set up.
    data.Initialize(static_cast<QZCDatArgValid_t>(7), nullptr);
    EXPECT_EQ(data.SetITData(static_cast<QZCDatArgValid_t>(7), "x"), -1);
}

TEST(QZCDatITData, PageNumbersAndTypeCases)
{
    QZCDatITData data;
    EXPECT_EQ(data.GetCsvPageNo(), 1);
    data.SetPageNo(ARG_CSVPAGENO, "25");
    EXPECT_EQ(data.GetCsvPageNo(), 25);
    data.SetPageNo(ARG_CSVPAGENO, "");
    EXPECT_EQ(data.GetCsvPageNo(), 1);
    data.SetPageNo(ARG_PAGENO, "3");
    data.SetPageNo(ARG_XMLPAGENO, "4");
    data.SetPageNo(ARG_CSV, "9");
    EXPECT_EQ(data.GetCsvPageNo(), 3);
    EXPECT_EQ(data.GetXmlPageNo(), 4);

    const struct {
        uint16_t typeCase;
        bool utiwake;
        bool first;
    } cases[] = {{TYPECASE_DETAIL, true, true},
                 {TYPECASE_DETAIL2, true, false},
                 {TYPECASE_APPENDED, false, false},
                 {TYPECASE_WRITE, false, false}};
    for (const auto& c : cases) {
        data.SetTypeCase(c.typeCase);
        EXPECT_EQ(data.IsUtiwakeOn(), c.utiwake) << c.typeCase;
        EXPECT_EQ(data.IsD15HO001On(), c.first) << c.typeCase;
    }
}

TEST(QZCDatConvertInfo, OneInstanceUntilDestroyed)
{
    QZCDatConvertInfo* info = QZCDatConvertInfo::instance();
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(QZCDatConvertInfo::instance(), info);
    const QZCDatConvertTable_t table = info->GetConvertTable();
    EXPECT_EQ(table.csvFile, info->GetCsvFile());
    EXPECT_EQ(table.definition, info->GetDefinition());
    EXPECT_EQ(table.itData, info->GetITData());
    ASSERT_NE(table.itData, nullptr);
    info->GetITData()->Initialize(ARG_SOFTNM, nullptr);
    EXPECT_EQ(info->GetITData()->SetITData(ARG_SOFTNM, "soft"), 0);

    QZCDatConvertInfo::destroy();
    QZCDatConvertInfo::destroy();
    EXPECT_STREQ(QZCDatConvertInfo::instance()->GetITData()->GetITData(ARG_SOFTNM), "");
    QZCDatConvertInfo::destroy();
}

TEST(QZCDatCsvFileRecords, SplitsQuotedFieldsAndLineEnds)
{
    QZCDatCsvFile csv;
    EXPECT_EQ(csv.ParseSimply("\"x,y\",z\r\n a\"b ,\"c\"\"d\" \nlast\n"), 0);
    ASSERT_EQ(csv.GetRecordCount(), 3);
    EXPECT_STREQ(csv.GetItem(0, 0), "x,y");
    EXPECT_STREQ(csv.GetItem(0, 1), "z");
    EXPECT_STREQ(csv.GetItem(1, 0), "a\"b");
    EXPECT_STREQ(csv.GetItem(1, 1), "c\"\"d");
    EXPECT_STREQ(csv.GetItem(2, 0), "last");
    EXPECT_STREQ(csv.GetItem(2, 1), "");
    EXPECT_STREQ(csv.GetItem(-1, 0), "");
    EXPECT_TRUE(csv.IsValidRecord(0));
    EXPECT_FALSE(csv.IsValidRecord(2));
    EXPECT_FALSE(csv.IsValidRecord(3));
    csv.SetItem("w", 0, 1);
    csv.SetItem("ignored", 0, 5);
    EXPECT_STREQ(csv.GetItem(0, 1), "w");
    // A longer text than the old one leaves the neighbours as they were.
    csv.SetItem("a longer value", 1, 0);
    EXPECT_STREQ(csv.GetItem(1, 0), "a longer value");
    EXPECT_STREQ(csv.GetItem(1, 1), "c\"\"d");
    EXPECT_STREQ(csv.GetItem(2, 0), "last");
}

TEST(QZCDatCsvFileRecords, FirstRefusedCharacterIsReportedAtItsRecordAndField)
{
    QZCDatCsvFile csv;
    ResetErrors();
    EXPECT_EQ(csv.ParseSimply("a,b\nc,d\ne,ｱ\nｱ,f\n"), -1);
    EXPECT_EQ(csv.GetRecordCount(), 4);
    EXPECT_EQ(QZCUtility::GetError(), "3-00002-HQZ8230E");
    EXPECT_THROW(csv.ParseSimply(nullptr), int);
}

}  // namespace
