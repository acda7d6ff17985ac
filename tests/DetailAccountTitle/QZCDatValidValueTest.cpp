#include <gtest/gtest.h>

#include <string>

#include "DatTestSupport.h"
#include "QZCDatValidRange.h"
#include "QZCDatValidStyleVersion.h"
#include "TestSupport.h"

namespace {

// The value checks of tests/data/detail-values.tsv.
TEST(QZCDatValidValues, CaseTable)
{
    for (const Case& c : readCases("detail-values.tsv", 6)) {
        SCOPED_TRACE(c.where + ": " + c[0] + " \"" + c[1].substr(0, 40) + "\"");
        auto check = [&] { return CheckValue(c[0].c_str(), c[1], c[2].c_str(), c[3].c_str(), c[4].c_str()); };
        if (c[5] == "throws") {
            EXPECT_THROW(check(), int);
            // Nothing of a definition fault reaches the error list.
            EXPECT_EQ(QZCUtility::GetError(), "");
        } else if (c[5] == "any") {
            EXPECT_NO_THROW(check());
        } else {
            EXPECT_EQ(check(), c.expected(5));
        }
    }
}

TEST(QZCDatValidRange, CompareDoubleIsExactBeyondDoublePrecision)
{
    EXPECT_EQ(QZCDatValidRange::CompareDouble("12345678901234567.1", "12345678901234567.2"), 1);
    EXPECT_EQ(QZCDatValidRange::CompareDouble("1234567890123456.8", "1234567890123456.7"), 2);
    EXPECT_EQ(QZCDatValidRange::CompareDouble("-1234567890123456.8", "-1234567890123456.7"), 1);
    EXPECT_EQ(QZCDatValidRange::CompareDouble("12345678901234567", "12345678901234568"), 1);
    EXPECT_EQ(QZCDatValidRange::CompareDouble("1.50", "1.5"), 0);
    EXPECT_EQ(QZCDatValidRange::CompareDouble("", "1"), -1);
}

class QZCDatValidPathTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        writeBytes(m_dir.file("data.csv"), "HOI010,0\n");
        writeBytes(m_dir.file("empty.csv"), "");
    }
    std::string Path(const char* name) const { return m_dir.file(name); }

    TempDir m_dir;
};

TEST_F(QZCDatValidPathTest, FileMustExistAndHoldData)
{
    EXPECT_EQ(CheckValue("existpath", Path("data.csv"), "file"), "");
    EXPECT_EQ(CheckValue("existpath", Path("empty.csv"), "file"), "HQZ9230E");
    EXPECT_EQ(CheckValue("existpath", Path("none.csv"), "file"), "HQZ9230E");
    EXPECT_EQ(CheckValue("existpath", m_dir.path(), "file"), "HQZ9230E");
    EXPECT_EQ(CheckValue("existpath", "", "file"), "HQZ9240E");
}

TEST_F(QZCDatValidPathTest, FolderKinds)
{
    EXPECT_EQ(CheckValue("existpath", m_dir.path(), "dir1"), "");
    EXPECT_EQ(CheckValue("existpath", Path("data.csv"), "dir1"), "HQZ9240E");
    EXPECT_EQ(CheckValue("existpath", Path("out.xml"), "dir2"), "");
    EXPECT_EQ(CheckValue("existpath", Path("missing/out.xml"), "dir2"), "HQZ9240E");
}

TEST_F(QZCDatValidPathTest, StyleVersionNeedsAVersionAndItsDefinitionFile)
{
    auto check = [](const std::string& value, const std::string& path) {
        ResetErrors();
        auto item = QZCDatValidItem::CreateItem(-1, "styleversion", "", "", "", MSG_NONE);
        static_cast<QZCDatValidStyleVersion*>(item.get())->SetParam(path);
        item->Validate(value, 9999, 3);
        return QZCUtility::GetError();
    };
    EXPECT_EQ(check("3.0", Path("data.csv")), "");
    EXPECT_EQ(check("", Path("data.csv")), "0000-00000-HQZ9250E");
    EXPECT_EQ(check("3.0", Path("none.xml")), "0000-00000-HQZ9250E");
}

}  // namespace
