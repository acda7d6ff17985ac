#include <gtest/gtest.h>

#include "QZCMacOSNative.h"

namespace {

TEST(Dates, StrictParsingOfBothCalendars)
{
    EXPECT_TRUE(QZCMacOSNative::dateTimeChange("2020-04-01"));
    EXPECT_TRUE(QZCMacOSNative::dateTimeChange("2020.4.1"));
    EXPECT_TRUE(QZCMacOSNative::dateTimeChange("2020/04/01 10:20:30"));
    EXPECT_TRUE(QZCMacOSNative::dateTimeChange("2024/02/29"));
    // Days whose local midnight summer time skipped in Tokyo and São Paulo
    // (ctest runs this again under both zones).
    EXPECT_TRUE(QZCMacOSNative::dateTimeChange("1948/05/02"));
    EXPECT_TRUE(QZCMacOSNative::dateTimeChange("2018-11-04"));
    EXPECT_TRUE(QZCMacOSNative::dateTimeChange("昭和26年5月6日"));
    EXPECT_FALSE(QZCMacOSNative::dateTimeChange("2023/02/29"));
    EXPECT_FALSE(QZCMacOSNative::dateTimeChange("2020-02-30"));
    EXPECT_FALSE(QZCMacOSNative::dateTimeChange("2020/04/01x"));
    EXPECT_FALSE(QZCMacOSNative::dateTimeChange(""));
    EXPECT_FALSE(QZCMacOSNative::dateTimeChange(nullptr));

    std::optional<QZCDate> era = dateStringToDate("令和元年5月1日");
    std::optional<QZCDate> western = dateStringToDate("2019/05/01");
    ASSERT_TRUE(era && western);
    EXPECT_EQ(*era, *western);
    EXPECT_EQ(dateStringToDate("平成31年4月30日"), dateStringToDate("2019/04/30"));
    EXPECT_EQ(dateStringToDate("昭和64年1月7日"), dateStringToDate("1989/01/07"));
    EXPECT_FALSE(dateStringToDate("令和元年2月30日"));
}

TEST(Dates, RangeCodes)
{
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/05/01", "2020/04/01", "2020/06/30", true), 33);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/04/01", "2020/04/01", "2020/06/30", true), 32);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/04/01", "2020/04/01", "2020/04/01", true), 0);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/07/01", "2020/04/01", "2020/06/30", true), 17);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/03/01", "2020/04/01", "2020/06/30", true), 34);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/05/01", "2020/04/01", "2020/06/31", true), -4);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/05/01", nullptr, "2020/06/30", true), -3);
    EXPECT_EQ(QZCMacOSNative::rangeDate("x", "2020/04/01", "2020/06/30", true), -2);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/05/01", "", "", false), -5);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/05/01", "2020/04/01", nullptr, false), 1 + 0xF0);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/05/01", nullptr, "2020/05/01", false), 0x0F);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/05/01", "bad", nullptr, false), -3);
}

}  // namespace
