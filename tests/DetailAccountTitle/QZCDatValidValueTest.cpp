#include <gtest/gtest.h>

#include <string>

#include "DatTestSupport.h"
#include "QZCDatValidRange.h"
#include "QZCDatValidStyleVersion.h"
#include "TestSupport.h"

namespace {

const char* kBad = "HQZ9620E";

TEST(QZCDatValidCharacterClasses, AlnumTakesDigitsAndLineEndsOnly)
{
    EXPECT_EQ(CheckValue("alnum", "0123456789\r\n"), "");
    EXPECT_EQ(CheckValue("alnum", "12a"), kBad);
    EXPECT_EQ(CheckValue("alnum", "-1"), kBad);
    EXPECT_EQ(CheckValue("alnum", "１"), kBad);
}

TEST(QZCDatValidCharacterClasses, Alnum2TakesPrintableAsciiWithTheBlank)
{
    EXPECT_EQ(CheckValue("alnum2", "abc DEF-1 ~"), "");
    EXPECT_EQ(CheckValue("alnum2", "a\tb"), kBad);
    EXPECT_EQ(CheckValue("alnum2", "a\x7f"), kBad);
    EXPECT_EQ(CheckValue("alnum2", "é"), kBad);
}

TEST(QZCDatValidCharacterClasses, Alnum3AllowsOneHyphenAnywhere)
{
    EXPECT_EQ(CheckValue("alnum3", "123-45"), "");
    EXPECT_EQ(CheckValue("alnum3", "-12345"), "");
    EXPECT_EQ(CheckValue("alnum3", "12345-"), "");
    EXPECT_EQ(CheckValue("alnum3", "1-2-3"), kBad);
    EXPECT_EQ(CheckValue("alnum3", "1+2"), kBad);
}

TEST(QZCDatValidCharacterClasses, NumberAndDecimalTakeASignOnlyInFront)
{
    EXPECT_EQ(CheckValue("number", "-"), "");
    EXPECT_EQ(CheckValue("number", "+120"), "");
    EXPECT_EQ(CheckValue("number", "1-2"), kBad);
    EXPECT_EQ(CheckValue("number", "1.5"), kBad);
    EXPECT_EQ(CheckValue("number", "--1"), kBad);
    EXPECT_EQ(CheckValue("decimal", "-1.2.3"), "");
    EXPECT_EQ(CheckValue("decimal", "1.2-"), kBad);
    EXPECT_EQ(CheckValue("decimal", "1e5"), kBad);
}

TEST(QZCDatValidCharacterClasses, MultibyteRefusesAnyAsciiCharacter)
{
    EXPECT_EQ(CheckValue("multibyte", ""), "");
    EXPECT_EQ(CheckValue("multibyte", "株式会社"), "");
    EXPECT_EQ(CheckValue("multibyte", "株式会社A"), kBad);
    EXPECT_EQ(CheckValue("multibyte", "株式 会社"), kBad);
}

TEST(QZCDatValidCharacterClasses, FylstringRefusesCharactersOutsideTheServiceSet)
{
    EXPECT_EQ(CheckValue("fylstring", "東京都千代田区１－１"), "");
    EXPECT_EQ(CheckValue("fylstring", "ｱ"), "HQZ9310E");
    EXPECT_EQ(CheckValue("fylstring", "𠮷"), "HQZ9310E");
}

TEST(QZCDatValidPresence, ExistAndEmpty)
{
    EXPECT_EQ(CheckValue("exist", ""), "HQZ9210E");
    EXPECT_EQ(CheckValue("exist", "x"), "");
    EXPECT_EQ(CheckValue("empty", ""), "");
    EXPECT_EQ(CheckValue("empty", "0"), "HQZ9610E");
}

TEST(QZCDatValidCharlength, CountsUtf16Units)
{
    EXPECT_EQ(CheckValue("charlength", "あいう", "", "", "3"), "");
    EXPECT_EQ(CheckValue("charlength", "あいうえ", "", "", "3"), kBad);
    // A character outside the BMP is two units.
    EXPECT_EQ(CheckValue("charlength", "あ𠮷", "", "", "3"), "");
    EXPECT_EQ(CheckValue("charlength", "あい𠮷", "", "", "3"), kBad);
}

TEST(QZCDatValidWordLists, ContainComparesWholeWordsExactly)
{
    EXPECT_EQ(CheckValue("contain", "1", "0  1 2"), "");
    EXPECT_EQ(CheckValue("contain", "", "0 1"), "");
    EXPECT_EQ(CheckValue("contain", "0 1", "0 1"), kBad);
    EXPECT_EQ(CheckValue("contain", "A", "a b"), kBad);
}

TEST(QZCDatValidWordLists, ExtensionComparesTheLastExtensionInLowerCase)
{
    EXPECT_EQ(CheckValue("extension", "data.CSV", ".csv .txt"), "");
    EXPECT_EQ(CheckValue("extension", "a.b.txt", ".csv .txt"), "");
    EXPECT_EQ(CheckValue("extension", "data", ".csv .txt"), "HQZ9370E");
    EXPECT_EQ(CheckValue("extension", "data.csv.bak", ".csv .txt"), "HQZ9370E");
}

TEST(QZCDatValidLength, ExactLengthCountsUtf8Bytes)
{
    EXPECT_EQ(CheckValue("length", "12345678", "8"), "");
    EXPECT_EQ(CheckValue("length", "1234567", "8"), kBad);
    EXPECT_EQ(CheckValue("length", "123456789", "8"), kBad);
    EXPECT_EQ(CheckValue("length", "あい", "6"), "");
}

TEST(QZCDatValidLength, IntegerLimitOf16NeedsASignToBeFilled)
{
    const std::string digits15(15, '9');
    EXPECT_EQ(CheckValue("length", "9" + digits15, "", "", "16"), kBad);
    EXPECT_EQ(CheckValue("length", "-" + digits15, "", "", "16"), "");
    EXPECT_EQ(CheckValue("length", digits15, "", "", "16"), "");
    EXPECT_EQ(CheckValue("length", digits15, "", "", "15"), "");
    EXPECT_EQ(CheckValue("length", "-" + digits15, "", "", "15"), kBad);
}

TEST(QZCDatValidLength, DecimalLimitCountsPlacesOnBothSides)
{
    EXPECT_EQ(CheckValue("length", "123.456", "", "", "10.2"), kBad);
    EXPECT_EQ(CheckValue("length", "1234567890.1", "", "", "10.2"), kBad);
    EXPECT_EQ(CheckValue("length", "-123456789.12", "", "", "10.2"), "");
    EXPECT_EQ(CheckValue("length", "123456789.", "", "", "10.2"), "");
    // A filled integer part of a decimal maximum needs a sign too.
    EXPECT_EQ(CheckValue("length", "1234567890", "", "", "10.2"), kBad);
    EXPECT_EQ(CheckValue("length", "+123456789", "", "", "10.2"), "");
    // A maximum without decimals refuses any digit after the point.
    EXPECT_EQ(CheckValue("length", "12.5", "", "", "5"), kBad);
    EXPECT_EQ(CheckValue("length", "12.", "", "", "5"), "");
}

TEST(QZCDatValidRange, IntegerBoundsAndWriteBackOfThePlusSign)
{
    EXPECT_EQ(CheckValue("range", "999", "", "0", "999"), "");
    EXPECT_EQ(CheckValue("range", "1000", "", "0", "999"), kBad);
    EXPECT_EQ(CheckValue("range", "-1", "", "0", "999"), kBad);
    EXPECT_EQ(CheckValue("range", "abc", "", "0", "999"), kBad);
    EXPECT_EQ(CheckValue("range", "-", "", "0", "999"), kBad);
    EXPECT_EQ(CheckValue("range", "5.5", "", "0", "999"), "");
    EXPECT_EQ(CheckValue("range", "-10.5", "", "-10", "10"), kBad);
    EXPECT_EQ(CheckValue("range", "99999999999999999999", "", "0", "999"), kBad);
}

TEST(QZCDatValidRange, Range2ComparesAsDecimalsWhenABoundHasAPoint)
{
    EXPECT_EQ(CheckValue("range2", "1", "", "0.5", "1"), "");
    EXPECT_EQ(CheckValue("range2", "0", "", "0.5", "1"), kBad);
    // "range" cuts the bound to its integer part.
    EXPECT_EQ(CheckValue("range", "0", "", "0.5", "1"), "");
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

TEST(QZCDatValidDefinitionFaults, MissingOrUnusableParametersThrowWhenTheCheckRuns)
{
    // Built without complaint: the fault shows only when a value is checked.
    auto range = QZCDatValidItem::CreateItem(0, "range", "", "a", "9", MSG_NONE);
    ASSERT_NE(range, nullptr);
    EXPECT_THROW(range->Validate("5", 1, 1), int);
    EXPECT_THROW(CheckValue("range", "5", "", "10", "1"), int);
    EXPECT_THROW(CheckValue("range", "5.5", "", "10", "1.5"), int);
    EXPECT_THROW(CheckValue("range", "5", "", "", "9"), int);
    EXPECT_THROW(CheckValue("range", "", "", "1", ""), int);
    EXPECT_THROW(CheckValue("length", "5", "1", "", "2"), int);
    EXPECT_THROW(CheckValue("length", "5"), int);
    EXPECT_THROW(CheckValue("charlength", "5"), int);
    EXPECT_THROW(CheckValue("contain", "5", " "), int);
    EXPECT_THROW(CheckValue("extension", "a.csv"), int);
    EXPECT_THROW(CheckValue("existpath", "/tmp", "Dir1"), int);
    EXPECT_THROW(CheckValue("styleversion", "3.0"), int);
    // Nothing of a definition fault reaches the error list.
    EXPECT_EQ(QZCUtility::GetError(), "");
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

TEST(QZCDatValidLargeValues, AMegabyteFieldGoesThroughEveryCheck)
{
    const std::string digits(1 << 20, '7');
    const std::string kanji = [] {
        std::string text;
        for (int i = 0; i < (1 << 20) / 3; ++i) {
            text += "漢";
        }
        return text;
    }();
    const char* types[] = {"alnum", "alnum2", "alnum3", "decimal", "number", "empty", "exist", "fylstring",
                           "multibyte"};
    for (const char* type : types) {
        CheckValue(type, digits);
        CheckValue(type, kanji);
    }
    EXPECT_EQ(CheckValue("alnum", digits), "");
    EXPECT_EQ(CheckValue("multibyte", kanji), "");
    EXPECT_EQ(CheckValue("charlength", kanji, "", "", "10"), kBad);
    EXPECT_EQ(CheckValue("length", digits, "", "", "16"), kBad);
    EXPECT_EQ(CheckValue("range", digits, "", "0", "9"), kBad);
    EXPECT_EQ(CheckValue("range", digits + ".5", "", "0", "9"), kBad);
    EXPECT_EQ(CheckValue("contain", digits, "0 1"), kBad);
    EXPECT_EQ(CheckValue("extension", digits, ".csv"), "HQZ9370E");
}

}  // namespace
