#include <optional>

#include <gtest/gtest.h>

#include "QZCMacOSNative.h"
#include "TestSupport.h"

namespace {

// The cases of tests/data/dates.tsv.
TEST(Dates, CaseTable)
{
    for (const Case& c : readCases("dates.tsv", 6)) {
        SCOPED_TRACE(c.where);
        if (c[0] == "valid") {
            EXPECT_EQ(QZCMacOSNative::dateTimeChange(c.text(1)), c[2] == "true");
        } else if (c[0] == "same") {
            const std::optional<QZCDate> date = dateStringToDate(c[1].c_str());
            EXPECT_EQ(date.has_value(), c[2] != "(none)");
            if (date) {
                EXPECT_EQ(date, dateStringToDate(c[2].c_str()));
            }
        } else {
            EXPECT_EQ(QZCMacOSNative::rangeDate(c.text(1), c.text(2), c.text(3), c[4] == "true"), std::stoi(c[5]));
        }
    }
}

}  // namespace
