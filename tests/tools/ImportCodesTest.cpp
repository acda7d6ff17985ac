// The import of a public account list: the code list it writes, the lists it
// refuses, and statements written with the public codes checked against the
// imported list.
#include <filesystem>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ImportCodes.h"
#include "QZICsvConvSupport.h"
#include "TestSupport.h"
#include "ToolSupport.h"

namespace {

namespace fs = std::filesystem;

// An account row of the public list (tests/data/public-account-rows.tsv):
// depth, code ("-": a heading without a code), element, label, balance (""
// for a heading) and the parent the code list must give it.
struct PublicRow {
    int depth;
    std::string code, element, label, balance, parent;
};

const std::vector<PublicRow>& publicRows()
{
    static const std::vector<PublicRow> rows = [] {
        std::vector<PublicRow> read;
        for (const Case& c : readCases("public-account-rows.tsv", 6))
            read.push_back({std::stoi(c[0]), c[1], c[2], c[3], c[4], c[5]});
        return read;
    }();
    return rows;
}

std::string key(const PublicRow& row)
{
    return row.code == "-" ? row.element : row.code;
}

// The public list as a spreadsheet saves it: title, column numbers,
// headings, then one account a row in 23 columns.
std::string publicList(const std::string& title = "貸借対照表　勘定科目コード表(2019年版)")
{
    std::string text = title + ",,,,,,,,,,,,,,,,,,,,,,\r\n";
    for (int column = 0; column < 23; ++column)
        text += std::to_string(column) + (column < 22 ? "," : "\r\n");
    text += "業種,科目分類,標準ラベル（日本語）,冗長ラベル（日本語）,標準ラベル（英語）,冗長ラベル（英語）,"
            "用途区分（日本語）,用途区分（英語）,名前空間プレフィックス,要素名,データ型,代替グループ,"
            "期間時点区分,貸借区分,抽象区分,depth,タイトル項目,合計（用途区分）,勘定科目区分,勘定科目コード,"
            "対応勘定科目（日本語）,対応勘定科目（英語）,勘定科目区分\r\n";
    for (const PublicRow& row : publicRows()) {
        const bool heading = row.balance.empty();
        const std::string code = row.code;
        const std::string category = code == "-" ? "-" : code.substr(2, 2);
        text += std::string("一般商工業,貸借対照表,") + row.label + "," + row.label + ",\"Label, English\",,,,jppfs_cor," +
                row.element + (heading ? ",xbrli:stringItemType" : ",xbrli:monetaryItemType") + ",xbrli:item," +
                (heading ? "duration" : "instant") + "," + row.balance + (heading ? ",TRUE," : ",FALSE,") +
                std::to_string(row.depth) + ",,," + category + "," + code + "," + row.label + ",,\r\n";
    }
    return text;
}

std::map<std::string, std::vector<std::string>> codeListRows(const std::string& path)
{
    std::map<std::string, std::vector<std::string>> rows;
    for (const std::vector<std::string>& row : QZICsvConvSupport::ParseCsv(*QZICsvConvSupport::ShiftJISToUtf8(readBytes(path))))
        rows[row.at(0)] = row;
    return rows;
}

TEST(ImportCodes, GivesEveryPublicRowItsKeyParentAndAttributes)
{
    TempDir dir;
    writeShiftJis(dir.file("public.csv"), publicList());
    ASSERT_EQ(runTool("import-codes BS " + dir.file("public.csv") + " " + dir.file("codes.csv")).status, 0);

    const auto rows = codeListRows(dir.file("codes.csv"));
    EXPECT_EQ(rows.size(), publicRows().size());
    for (const PublicRow& expected : publicRows()) {
        const bool heading = expected.balance.empty();
        const std::vector<std::string> row = {key(expected), heading ? "duration" : "instant", expected.balance,
                                              heading ? "true" : "", "", expected.parent, expected.label,
                                              "xbrli:item", expected.element,
                                              heading ? "" : "CurrentYearNonConsolidatedInstant"};
        EXPECT_EQ(rows.count(key(expected)) ? rows.at(key(expected)) : std::vector<std::string>(), row);
    }

    // The same list saved as UTF-8 with a byte order mark gives the same file.
    writeBytes(dir.file("public-utf8.csv"), "\xEF\xBB\xBF" + publicList());
    ASSERT_EQ(runTool("import-codes BS " + dir.file("public-utf8.csv") + " " + dir.file("codes-utf8.csv")).status, 0);
    EXPECT_EQ(readBytes(dir.file("codes-utf8.csv")), readBytes(dir.file("codes.csv")));
}

// The balance sheet written with the public codes: one line an account
// below the statement's title rows, and a sub-account of the filer's own.
std::string statement()
{
    std::string text = "A,BS,,,\nB,株式会社インポート商事,,,\nC1,2025-04-01,,,\nC2,2026-03-31,,,\n貸借対照表,,,,\n";
    for (const PublicRow& row : publicRows()) {
        if (row.depth >= 2)
            text += row.label + (!row.balance.empty() ? ",1000,1," : ",,T,") + std::to_string(row.depth) + "," +
                    row.code + "\n";
        if (key(row) == "10A100020")
            text += "小口現金,30000,1,5,10A100020-01\n";
    }
    return text;
}

std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    text.replace(text.find(from), from.size(), to);
    return text;
}

TEST(ImportCodes, StatementsWithThePublicCodesCheckAgainstTheImportedList)
{
    TempDir dir;
    const std::string bundle = dir.file("QZCsvConvXml.bundle");
    fs::copy(QZC_BUNDLE_DIR, bundle, fs::copy_options::recursive);
    writeShiftJis(dir.file("public.csv"), publicList());
    ASSERT_EQ(ImportCodes("BS", dir.file("public.csv"), bundle + "/Xbrl/V3.0/kamokuCodeList_BS.csv", false,
                          Language::Japanese),
              0);
    ScopedBundle scope(bundle);

    const struct {
        const char* what;
        std::string statement;
        const char* detail;
    } cases[] = {
        {"clean, with an account of the filer's own", statement(), ""},
        {"an account under another parent than the list's", replaced(statement(), "商品,1000,1,4,10A100050", "土地,1000,1,4,10A210040"),
         "0012-00005-HQZ8260E"},
        {"an element name where the list has codes", replaced(statement(), "1,4,10A100020", "1,4,CashAndDeposits"),
         "0008-00005-HQZ9700E"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const std::string folder = dir.file(std::string("folder-") + std::to_string(&c - cases));
        fs::create_directory(folder);
        writeShiftJis(folder + "/HOT010_3.0_BS.csv", c.statement);
        const QZICsvConvXbrlResultXML result = QZICsvConvXML().CsvCheckToXbrl2(folder.c_str(), "3.0");
        ASSERT_EQ(result.DetailErrorInfoArray.size(), 1u) << describe(result);
        EXPECT_EQ(result.DetailErrorInfoArray[0], c.detail);
        EXPECT_EQ(result.CheckResultArray[0], *c.detail ? "1" : "0");
    }
}

TEST(ImportCodes, RefusesWhatIsNotAPublicList)
{
    const std::string list = publicList();
    const struct {
        const char* what;
        std::string bytes;
        const char* refusal;
    } cases[] = {
        {"a statements file", statement(), "行 2: 公開の勘定科目コード表の列番号 0 から 22 がありません。"},
        {"the list of another statement", publicList("損益計算書　勘定科目コード表(2019年版)"),
         "行 1: 損益計算書の表です。BS の表ではありません。"},
        {"a depth that is not a number", replaced(list, ",FALSE,4,", ",FALSE,x,"),
         "行 8: 階層（15列）が数値ではありません: x"},
        {"a code the check cannot read", replaced(list, ",10A100020,", ",10A-100020,"),
         "行 8: 勘定科目コード（19列）が英数字ではありません: 10A-100020"},
        {"a row cut short", replaced(list, ",FALSE,4,,,A1,10A100020,現金及び預金,,", ",FALSE,4"),
         "行 8: 列が 16 しかありません。"},
        {"bytes of neither encoding", "\x80\xFF\x80", "UTF-8 でも Shift_JIS でもありません。"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ConvertPublicAccountList("BS", c.bytes, Language::Japanese).refusal, c.refusal) << c.what;
    }

    // A refused list leaves the code list as it was; an unknown kind is a usage error.
    TempDir dir;
    writeBytes(dir.file("codes.csv"), "as it was");
    writeBytes(dir.file("public.csv"), statement());
    EXPECT_EQ(ImportCodes("BS", dir.file("public.csv"), dir.file("codes.csv"), true, Language::English), 1);
    EXPECT_EQ(readBytes(dir.file("codes.csv")), "as it was");
    EXPECT_EQ(ImportCodes("XX", dir.file("public.csv"), dir.file("codes.csv"), false, Language::English), 2);
}

}  // namespace
