#include <gtest/gtest.h>

#include <string>

#include "DatTestSupport.h"
#include "QZCDatValidExistdate.h"
#include "TestSupport.h"

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

// The date checks of tests/data/detail-dates.tsv.
TEST(QZCDatValidExistdate, CaseTable)
{
    for (const Case& c : readCases("detail-dates.tsv", 3)) {
        SCOPED_TRACE(c.where + ": " + c[0] + " " + c[1].substr(0, 40));
        EXPECT_EQ(CheckDate(c[0].c_str(), c[1]), c[2] == "ok" ? "" : "0001-00002-" + c[2]);
    }
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

}  // namespace
