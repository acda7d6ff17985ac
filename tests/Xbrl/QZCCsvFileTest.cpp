#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "QZCFinancialStatementsCSV.h"
#include "QZCUtility.h"
#include "TestSupport.h"

namespace {

using Lines = QZCCsvFile::Lines;

Lines parse(const std::string& text)
{
    QZCFinancialStatementsCSV csv;
    EXPECT_TRUE(csv.ParseCsvData(text.c_str()));
    return csv.GetCSVData();
}

TEST(CsvFile, QuotedFields)
{
    EXPECT_EQ(parse("a,\"b,c\",d\n"), (Lines{{"a", "b,c", "d"}}));
    // A doubled quote inside a quoted field stays as two quotes.
    EXPECT_EQ(parse("\"x\"\"y\"\n"), (Lines{{"x\"\"y"}}));
    // Line ends inside quotes belong to the field.
    EXPECT_EQ(parse("\"a\nb\",c\r\nd"), (Lines{{"a\nb", "c"}, {"d"}}));
    // A closing quote followed by one blank before the line end.
    EXPECT_EQ(parse("\"ab\" \nc\n"), (Lines{{"ab"}, {"c"}}));
    // A quote that is not the field's first character is ordinary.
    EXPECT_EQ(parse("a\"b,c\n"), (Lines{{"a\"b", "c"}}));
    EXPECT_EQ(parse(" \"a\",b\n"), (Lines{{"\"a\"", "b"}}));
    // The end of the text inside quotes ends the field and its line.
    EXPECT_EQ(parse("a,\"b,c"), (Lines{{"a", "b,c"}}));
}

TEST(CsvFile, LineEndsAndTrimming)
{
    EXPECT_EQ(parse(" a , b \n"), (Lines{{"a", "b"}}));
    EXPECT_EQ(parse("a\r\nb\rc\nd"), (Lines{{"a"}, {"b"}, {"c"}, {"d"}}));
    EXPECT_EQ(parse("a\n\nb\n"), (Lines{{"a"}, {""}, {"b"}}));
    EXPECT_EQ(parse("a,\n"), (Lines{{"a", ""}}));
    EXPECT_EQ(parse("a\tb\n"), (Lines{{"a\tb"}}));
    EXPECT_EQ(parse(""), Lines{});
    EXPECT_EQ(parse("貸借対照表,,,,\n"), (Lines{{"貸借対照表", "", "", "", ""}}));
}

TEST(CsvFile, ReadsShiftJisFilesAndRefusesBadOnes)
{
    TempDir dir;
    writeShiftJis(dir.file("ok.csv"), "A,BS\r\nB,株式会社テスト\r\n");
    QZCFinancialStatementsCSV csv;
    ASSERT_TRUE(csv.ReadCsvFile(dir.file("ok.csv").c_str()));
    EXPECT_EQ(csv.GetLineCount(), 2u);
    EXPECT_EQ(csv.GetCSVData()[1], (std::vector<std::string>{"B", "株式会社テスト"}));

    writeBytes(dir.file("empty.csv"), "");
    for (const std::string& path : {dir.file("empty.csv"), dir.file("missing.csv"), std::string()}) {
        QZCUtility::AddCsvErrorInfo(1, 1, "HQZ9300E");
        EXPECT_FALSE(csv.ReadCsvFile(path.c_str())) << path;
        EXPECT_EQ(takeErrors(), "0000-00000-HQZ9560E") << path;
    }
    EXPECT_FALSE(csv.ParseCsvData(nullptr));
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9560E");
}

TEST(CsvFile, LargeAndBinaryInput)
{
    const std::string field(1 << 20, 'x');
    Lines lines = parse("a,\"" + field + "\",b\n");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0][1].size(), field.size());

    std::string wide;
    for (int i = 0; i < 100000; ++i) {
        wide += "1,";
    }
    EXPECT_EQ(parse(wide)[0].size(), 100001u);

    TempDir dir;
    writeBytes(dir.file("nul.csv"), std::string(4096, '\0'));
    QZCFinancialStatementsCSV csv;
    EXPECT_TRUE(csv.ReadCsvFile(dir.file("nul.csv").c_str()));
    EXPECT_EQ(csv.GetLineCount(), 0u);
}

}  // namespace
