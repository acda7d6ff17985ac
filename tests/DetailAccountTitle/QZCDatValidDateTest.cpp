#include <gtest/gtest.h>

#include <string>

#include "DatTestSupport.h"
#include "QZCDatValidExistdate.h"

namespace {

// Runs a date check whose era code stands in column 2 (index 1) over the
// record "HOI010,<columns>" and returns the joined error list.
std::string CheckDate(const char* type, const std::string& columns)
{
    QZCDatCsvFile csv;
    LoadCsv(csv, ("HOI010," + columns).c_str());
    auto item = QZCDatValidItem::CreateItem(1, type, "", "", "", MSG_NONE);
    ResetErrors();
    item->ValidateCsv(&csv, 0, 0);
    return QZCUtility::GetError();
}

const std::string kBadDate = "0001-00002-HQZ9620E";

TEST(QZCDatValidExistdate, DatesAtTheEraBoundaries)
{
    EXPECT_EQ(CheckDate("existdate", "5,5,4,1"), "");
    EXPECT_EQ(CheckDate("existdate", "3,64,1,7"), "");      // last day of 昭和
    EXPECT_EQ(CheckDate("existdate", "3,64,1,8"), kBadDate);
    EXPECT_EQ(CheckDate("existdate", "4,1,1,8"), "");       // first day of 平成
    EXPECT_EQ(CheckDate("existdate", "4,1,1,7"), kBadDate);
    EXPECT_EQ(CheckDate("existdate", "4,31,4,30"), "");     // last day of 平成
    EXPECT_EQ(CheckDate("existdate", "4,31,5,1"), kBadDate);
    EXPECT_EQ(CheckDate("existdate", "5,1,5,1"), "");       // first day of 令和
    EXPECT_EQ(CheckDate("existdate", "5,1,4,30"), kBadDate);
    EXPECT_EQ(CheckDate("existdate", "1,45,7,29"), "");     // 明治, 大正 and 昭和 meet
    EXPECT_EQ(CheckDate("existdate", "1,45,7,30"), kBadDate);
    EXPECT_EQ(CheckDate("existdate", "2,1,7,30"), "");
    EXPECT_EQ(CheckDate("existdate", "2,15,12,25"), kBadDate);
    EXPECT_EQ(CheckDate("existdate", "3,1,12,25"), "");
    EXPECT_EQ(CheckDate("existdate", "3,1,12,24"), kBadDate);
    EXPECT_EQ(CheckDate("existdate", "1,23,1,1"), "");      // first day the table allows
    EXPECT_EQ(CheckDate("existdate", "1,22,12,31"), kBadDate);
}

TEST(QZCDatValidExistdate, ImpossibleDatesAndLeapDays)
{
    EXPECT_EQ(CheckDate("existdate", "5,6,2,29"), "");
    EXPECT_EQ(CheckDate("existdate", "5,5,2,29"), kBadDate);
    EXPECT_EQ(CheckDate("existdate", "5,6,2,30"), kBadDate);
    EXPECT_EQ(CheckDate("existdate", "5,5,13,1"), kBadDate);
    EXPECT_EQ(CheckDate("existdate", "5,5,4,0"), kBadDate);
    EXPECT_EQ(CheckDate("existdate", "6,1,1,1"), kBadDate);  // no such era
    EXPECT_EQ(CheckDate("existdate", "5,R-5,4,1"), kBadDate);
    EXPECT_EQ(CheckDate("existdate", "5,,,"), kBadDate);
}

TEST(QZCDatValidExistdate, DaysWhoseLocalMidnightWasSkipped)
{
    // Summer time began at midnight on these days in Tokyo (1948-51) and in
    // São Paulo (2018); ctest runs this again under both zones.
    for (const char* date : {"3,23,5,2", "3,24,4,3", "3,25,5,7", "3,26,5,6", "4,30,11,4"})
        EXPECT_EQ(CheckDate("existdate", date), "") << date;
}

TEST(QZCDatValidExistdate, EraCodeYearMonthAndDayAreTheirLeadingDigits)
{
    for (const char* date : {"+5,5,4,1", "5,+5,4,1", "5,5,+4,1", "5,5,4,+1", "x5,5,4,1"})
        EXPECT_EQ(CheckDate("existdate", date), kBadDate) << date;
    for (const char* date : {"5x,5,4,1", "5,5y,4,1", "05,05,04,01"})
        EXPECT_EQ(CheckDate("existdate", date), "") << date;
}

TEST(QZCDatValidExistdate, EmptyDateIsNotChecked)
{
    EXPECT_EQ(CheckDate("existdate", ",,,"), "");
    EXPECT_EQ(CheckDate("existdate", ""), "");
}

TEST(QZCDatValidExistdate, CoarserFormsStartTheEraOnTheFirstOfItsMonthOrYear)
{
    EXPECT_EQ(CheckDate("existmonth", "4,1,1"), "");
    EXPECT_EQ(CheckDate("existmonth", "4,31,4"), "");
    EXPECT_EQ(CheckDate("existmonth", "4,31,5"), kBadDate);
    EXPECT_EQ(CheckDate("existmonth", "5,1,4"), kBadDate);
    EXPECT_EQ(CheckDate("existmonth", "5,1,13"), kBadDate);
    EXPECT_EQ(CheckDate("existyear", "1,20"), kBadDate);
    EXPECT_EQ(CheckDate("existyear", "1,23"), "");
    EXPECT_EQ(CheckDate("existyear", "4,1"), "");
    EXPECT_EQ(CheckDate("existyear", "5,1"), "");
    EXPECT_EQ(CheckDate("existyear", "4,32"), kBadDate);
}

TEST(QZCDatValidExistdate, JoinsAndConvertsEraDates)
{
    QZCDatCsvFile csv;
    LoadCsv(csv, "x,5,5,4,1\nx,4,31,-,2/3\nx,9,,,\n");
    QZCDatValidExistdate date(1, MSG_NONE);
    EXPECT_EQ(date.GetDateString(&csv, 0, 1), "令和05/04/01");
    EXPECT_EQ(date.GetDateString(&csv, 1, 1), "平成31/00/00");
    EXPECT_EQ(date.GetDateString(&csv, 2, 1), "");
    EXPECT_EQ(date.WarekiToSeireki("令和05/04/01"), "2023/04/01");
    EXPECT_EQ(date.WarekiToSeireki("平成31/04/30"), "2019/04/30");
    EXPECT_EQ(date.WarekiToSeireki("明治45/07/29"), "1912/07/29");
    EXPECT_EQ(date.WarekiToSeireki("2020/01/01"), "2020/01/01");
    EXPECT_EQ(QZCDatValidDate::GetEra(0), "");
    EXPECT_EQ(QZCDatValidDate::GetEra(2), "大正");
}

TEST(QZCDatValidExistdate, MessageOfTheDefinitionAndOuterConditions)
{
    QZCDatCsvFile csv;
    LoadCsv(csv, "HOI010,0,5,6,2,30");
    QZCDatValidExistdate date(2, MSG_HQZ9610E);
    ResetErrors();
    EXPECT_EQ(date.ValidateCsv(&csv, 0, 0), -1);
    EXPECT_EQ(QZCUtility::GetError(), "0001-00003-HQZ9610E");

    // A failing outer condition stops the date check even with nomsg.
    auto outer = QZCDatValidItem::CreateItem(1, "contain", "1", "", "", MSG_NONE);
    outer->SetNoMsg("1");
    date.AddOuterItem(std::move(outer));
    ResetErrors();
    EXPECT_EQ(date.ValidateCsv(&csv, 0, 0), -1);
    EXPECT_EQ(QZCUtility::GetError(), "");

    // As an outer condition a wrong date fails silently.
    QZCDatValidExistdate silent(2, MSG_NONE);
    EXPECT_EQ(silent.ValidateOuter(&csv, 0, -1), -1);
    EXPECT_EQ(QZCUtility::GetError(), "");
    EXPECT_THROW(silent.ValidateCsv(nullptr, 0, 0), int);
}

TEST(QZCDatValidExistdate, HugeDateItemsAreRefusedWithoutACrash)
{
    const std::string digits(1 << 20, '9');
    EXPECT_EQ(CheckDate("existdate", "5," + digits + "," + digits + "," + digits), kBadDate);
    EXPECT_EQ(CheckDate("existdate", digits + ",1,1,1"), kBadDate);
}

}  // namespace
