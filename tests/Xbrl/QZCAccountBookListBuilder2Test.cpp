#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "QZCAccountBookListBuilder2.h"
#include "QZCFinancialStatementsCSV.h"
#include "QZCKamokuCodeListCSV.h"
#include "QZCUtility.h"
#include "TestSupport.h"

namespace {

const char* const kHeader = "A,BS\nB,株式会社テスト\nC1,2025/04/01\nC2,2026/03/31\n貸借対照表,,,,\n";

struct Built {
    bool ok = false;
    std::vector<QZCAccountBook2> books;
    std::string corporateName;
    std::string errors;
};

Built build(const std::string& text, QZCAccountBookListBuilder2& builder)
{
    QZCUtility::ClearErrorInfo();
    QZCFinancialStatementsCSV csv;
    EXPECT_TRUE(csv.ParseCsvData(text.c_str()));
    Built built;
    std::string from;
    std::string to;
    built.ok = builder.AnalyzeFinancialStatement(csv, built.corporateName, from, to);
    built.books = builder.GetAccountBook2();
    built.errors = takeErrors();
    return built;
}

Built build(const std::string& text)
{
    QZCAccountBookListBuilder2 builder;
    return build(text, builder);
}

std::vector<QZCAccountItem2> items(const QZCAccountBook2& book)
{
    return {book.GetAccountItemIterator2(), book.GetAccountItemEndIterator2()};
}

std::vector<QZCAccountItem2> children(const QZCAccountItem2& item)
{
    return {item.GetChildrenIterator2(), item.GetChildrenEndIterator2()};
}

TEST(AccountBookBuilder, LayersItemsIntoTrees)
{
    Built built = build(std::string(kHeader) +
                        "資産の部,,T,2,AssetsAbstract\n現金及び預金,100,1,3,CashAndDeposits\n"
                        "売掛金,,1,3,AccountsReceivableTrade\n負債の部,,T,2,LiabilitiesAbstract\n");
    ASSERT_TRUE(built.ok) << built.errors;
    EXPECT_EQ(built.corporateName, "株式会社テスト");
    ASSERT_EQ(built.books.size(), 1u);
    const auto top = items(built.books[0]);
    ASSERT_EQ(top.size(), 2u);
    const auto assets = children(top[0]);
    ASSERT_EQ(assets.size(), 2u);
    EXPECT_TRUE(children(top[1]).empty());
    EXPECT_EQ(assets[1].GetParentSbjId(), "AssetsAbstract");
    EXPECT_EQ(assets[1].GetRowNo(), 8);
    EXPECT_EQ(assets[1].GetContent(), "0");
    EXPECT_EQ(top[0].GetLayerPath(), "/資産の部");
    EXPECT_TRUE(top[0].IsAbstract());
    EXPECT_EQ(top[0].GetItemType(), "xbrli:stringItemType");
    EXPECT_EQ(assets[0].GetElementName(), "BSCashAndDeposits");
    EXPECT_EQ(assets[0].GetNameSpace(), QZC_XBRL_NAMESPACE_URI);
}

TEST(AccountBookBuilder, LayerJumpsAndUnusualLayers)
{
    Built jump = build(std::string(kHeader) + "a,,T,2,X\nb,1,1,4,Y\nc,1,1,x,Z\n");
    EXPECT_FALSE(jump.ok);
    EXPECT_EQ(jump.errors, "0007-00004-HQZ8270E");
    const auto top = items(jump.books[0]);
    ASSERT_EQ(top.size(), 2u);  // layer "x" reads 0 and goes to the top
    EXPECT_EQ(children(top[0]).size(), 1u);
    EXPECT_EQ(top[1].GetLayerNo(), 0);

    // A chain 2, 3, ..., 5001 nests 5000 items without an error.
    std::string chain = kHeader;
    for (int layer = 2; layer <= 5001; ++layer) {
        chain += "n," + std::to_string(layer) + ",1," + std::to_string(layer) + ",C\n";
    }
    Built deep = build(chain);
    EXPECT_TRUE(deep.ok) << deep.errors;
    ASSERT_EQ(items(deep.books[0]).size(), 1u);
}

TEST(AccountBookBuilder, StatementStartsAndTitles)
{
    Built two = build(std::string(kHeader) + "現金,1,1,2,Cash\nA,SC\n製造原価報告書,,,,\n材料費,1,1,2,MaterialCost\n");
    ASSERT_TRUE(two.ok) << two.errors;
    ASSERT_EQ(two.books.size(), 2u);
    EXPECT_EQ(two.books[1].GetBookTypeID(), "SC");
    EXPECT_EQ(two.books[1].GetRowNo(), 7);
    EXPECT_EQ(items(two.books[1])[0].GetElementName(), "MaterialCost");

    EXPECT_EQ(build("A,BS\nB,x\nC1,x\nC2,x\n損益計算書,,,,\n").errors, "0005-00001-HQZ8030E");
    EXPECT_EQ(build(std::string(kHeader) + "現金,1,1,2,Cash\n貸借対照表,,,,\n").errors, "0007-00001-HQZ9710E");

    Built none = build("a,1,1,2,X\n");
    ASSERT_EQ(none.books.size(), 1u);
    EXPECT_EQ(none.books[0].GetBookTypeID(), "");
}

TEST(AccountBookBuilder, StructuralFaults)
{
    for (const char* text : {"B\n", "A,BS\nx,1\n", "A,BS\n,1,1\n"}) {
        Built built = build(text);
        EXPECT_FALSE(built.ok) << text;
        EXPECT_EQ(built.errors, "0000-00000-HQZ9560E") << text;
    }
}

class CodeListAttributes : public ::testing::Test {
protected:
    void SetUp() override
    {
        writeShiftJis(dir.file("kamokuCodeList_BS.csv"),
                      "Cash,instant,debit,,,,現金,0,,\n"
                      "Lease,duration,,,tuple,,リース,0,,\n"
                      "LeaseName,duration,,,,Lease,名称,1,,\n");
    }

    Built attributes(const std::string& lines, bool expectedOk)
    {
        QZCAccountBookListBuilder2 builder;
        Built built = build(std::string(kHeader) + lines, builder);
        EXPECT_TRUE(built.ok) << built.errors;
        QZCKamokuCodeListCSV codeList;
        EXPECT_TRUE(codeList.ReadCsvFile(dir.path().c_str(), built.books));
        EXPECT_EQ(builder.SetPropertyAfterLayered(codeList), expectedOk);
        built.books = builder.GetAccountBook2();
        built.errors = takeErrors();
        return built;
    }

    TempDir dir;
};

TEST_F(CodeListAttributes, OriginalAccounts)
{
    Built ok = attributes("現金,1,1,2,Cash\n小口現金,1,1,2,Cash-Petty1\n空,1,1,2,\n", true);
    EXPECT_EQ(ok.errors, "");
    EXPECT_EQ(ok.books[0].GetElementName(), "jpfr-fyla-t-cte_BalanceSheetsAbstract");
    const auto top = items(ok.books[0]);
    EXPECT_FALSE(top[0].IsOriginalSubject());
    EXPECT_TRUE(top[1].IsOriginalSubject());
    EXPECT_TRUE(top[2].IsOriginalSubject());

    for (const char* code : {"CashPetty", "Unknown-1", "Cash-x_y", "-1"}) {
        Built bad = attributes(std::string("小口現金,1,1,2,") + code + "\n", false);
        EXPECT_EQ(bad.errors, "0006-00005-HQZ9700E") << code;
    }
}

TEST_F(CodeListAttributes, TuplesClearTypeAndMarkMembers)
{
    Built built = attributes("リース,,2,2,Lease\n名称,x,2,3,LeaseName\n詳細,,T,4,Cash\n", true);
    const auto top = items(built.books[0]);
    EXPECT_TRUE(top[0].IsTuple());
    EXPECT_EQ(top[0].GetItemType(), "");
    const auto member = children(top[0]);
    EXPECT_TRUE(member[0].IsInnerTupleItem());
    EXPECT_EQ(member[0].GetRequiredSubject(), "1");
    EXPECT_TRUE(children(member[0])[0].IsInnerTupleItem());
}

}  // namespace
