#include <memory>

#include <gtest/gtest.h>

#include "QZCRegex.h"

namespace {

TEST(QZCRegex, GroupsAreAppendedInOrder)
{
    std::unique_ptr<QZCRegex> regex(QZCRegex::builder("^(A)(B)?"));
    std::vector<std::string> groups{"kept"};
    ASSERT_TRUE(QZCRegex::rgx(*regex, "AC", groups));
    EXPECT_EQ(groups, (std::vector<std::string>{"kept", "A", "A", ""}));
    EXPECT_FALSE(QZCRegex::rgx(*regex, "CA", groups));
    EXPECT_EQ(groups.size(), 4u);
}

TEST(QZCRegex, NonGreedyGroupsOfFileNames)
{
    QZCRegex regex("^HOT010_3\\.0(_(.+?)(_.+)?)?\\.[cC][sS][vV]$");
    std::vector<std::string> groups;
    ASSERT_TRUE(QZCRegex::rgx(regex, "HOT010_3.0_BS_2024_old.csv", groups));
    EXPECT_EQ(groups, (std::vector<std::string>{"HOT010_3.0_BS_2024_old.csv", "_BS_2024_old", "BS", "_2024_old"}));
    EXPECT_FALSE(QZCRegex::rgx(regex, "HOT010_3.0_BS.txt"));
}

// Fields of a megabyte must give an answer, not exhaust the stack.
TEST(QZCRegex, LongInputs)
{
    QZCRegex number("^[\\-+]?\\d+(\\.\\d+)?$");
    QZCRegex code("^([^\\-]+)?-[0-9a-zA-Z\\-]+$");
    std::string digits(1 << 20, '7');
    EXPECT_TRUE(QZCRegex::rgx(number, digits));
    EXPECT_TRUE(QZCRegex::rgx(number, "-" + digits + "." + digits));
    EXPECT_FALSE(QZCRegex::rgx(number, digits + "x"));
    EXPECT_FALSE(QZCRegex::rgx(code, digits));
    std::vector<std::string> groups;
    EXPECT_TRUE(QZCRegex::rgx(code, digits + "-" + digits, groups));
    EXPECT_EQ(groups[1], digits);
}

}  // namespace
