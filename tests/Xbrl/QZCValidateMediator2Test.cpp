#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "QZCAccountBookListBuilder2.h"
#include "QZCFinancialStatementsCSV.h"
#include "QZCKamokuCodeListCSV.h"
#include "QZCParamCheck.h"
#include "QZCUtility.h"
#include "QZCValidateMediator2.h"
#include "TestSupport.h"

namespace {

const std::string kHead = "B,株式会社サンプル商事,,,\nC1,2025-04-01,,,\nC2,2026-03-31,,,\n";

QZCFinancialStatementsCSV parse(const std::string& text)
{
    QZCFinancialStatementsCSV csv;
    EXPECT_TRUE(csv.ParseCsvData(text.c_str()));
    return csv;
}

bool holdsGeneralCheckError()
{
    for (const std::string& entry : g_mlErrors) {
        for (const std::string& code : generalChackErrorList) {
            if (entry.find(code) != std::string::npos) {
                return true;
            }
        }
    }
    return false;
}

// Both passes over a file with the shipped definition and code lists, as
// the check of one file runs them (a general check error ends it); gives
// the error entries.
std::string checkFile(const std::string& xbrlType, const std::string& text)
{
    ScopedBundle bundle(QZC_BUNDLE_DIR);
    QZCUtility::ClearErrorInfo();
    const QZCFinancialStatementsCSV csv = parse(text);
    QZCValidateMediator2 mediator(xbrlType);
    EXPECT_TRUE(mediator.ConstructValidators()) << takeErrors();
    EXPECT_TRUE(mediator.CheckLinesWithinLimits(csv));
    if (!mediator.ExecCheck(csv) && holdsGeneralCheckError()) {
        return takeErrors();
    }
    QZCAccountBookListBuilder2 builder;
    std::string name, from, to;
    if (!builder.AnalyzeFinancialStatement(csv, name, from, to) && holdsGeneralCheckError()) {
        return takeErrors();
    }
    QZCKamokuCodeListCSV codeList;
    EXPECT_TRUE(codeList.ReadCsvFile((std::string(QZC_BUNDLE_DIR) + "/Xbrl/V3.0").c_str(), builder.GetAccountBook2()));
    builder.SetPropertyAfterLayered(codeList);
    mediator.ExecCheckAfterLayered(builder.GetAccountBook2(), codeList);
    return takeErrors();
}

const std::string kBalanceSheet = "A,BS,,,\n" + kHead +
    "貸借対照表,,,,\n"
    "資産の部,,T,2,AssetsAbstract\n"
    "流動資産,,T,3,CurrentAssetsAbstract\n"
    "現金及び預金,12000000,1,4,CashAndDeposits\n"
    "売掛金,8500000,1,4,AccountsReceivableTrade\n"
    "小口現金,50000,1,4,CashAndDeposits-Petty\n"
    "流動資産合計,20550000,1,4,CurrentAssets\n"
    "固定資産,,T,3,NoncurrentAssetsAbstract\n"
    "有形固定資産,,T,4,PropertyPlantAndEquipmentAbstract\n"
    "建物,3000000,1,5,Buildings\n"
    "土地,5000000,1,5,Land\n"
    "有形固定資産合計,8000000,1,5,PropertyPlantAndEquipment\n"
    "固定資産合計,8000000,1,4,NoncurrentAssets\n"
    "資産合計,28550000,1,3,Assets\n"
    "負債の部,,T,2,LiabilitiesAbstract\n"
    "流動負債,,T,3,CurrentLiabilitiesAbstract\n"
    "買掛金,4000000,1,4,AccountsPayableTrade\n"
    "未払法人税等,500000,1,4,IncomeTaxesPayable\n"
    "流動負債合計,4500000,1,4,CurrentLiabilities\n"
    "負債合計,4500000,1,3,Liabilities\n"
    "純資産の部,,T,2,NetAssetsAbstract\n"
    "株主資本,,T,3,ShareholdersEquityAbstract\n"
    "資本金,10000000,1,4,CapitalStock\n"
    "利益剰余金,,T,4,RetainedEarningsAbstract\n"
    "その他利益剰余金,,T,5,OtherRetainedEarningsAbstract\n"
    "繰越利益剰余金,14050000,1,6,RetainedEarningsBroughtForward\n"
    "その他利益剰余金合計,14050000,1,6,OtherRetainedEarnings\n"
    "利益剰余金合計,14050000,1,5,RetainedEarnings\n"
    "株主資本合計,24050000,1,4,ShareholdersEquity\n"
    "純資産合計,24050000,1,3,NetAssets\n"
    "負債純資産合計,28550000,1,2,LiabilitiesAndNetAssets\n";

const std::string kIncomeStatement = "A,PL,,,\n" + kHead +
    "損益計算書,,,,\n"
    "売上高,50000000,1,2,NetSales\n"
    "売上原価,,T,2,CostOfSalesAbstract\n"
    "期首商品棚卸高,1000000,1,3,BeginningGoodsCOS\n"
    "当期商品仕入高,30000000,1,3,CostOfPurchasedGoods\n"
    "合計,31000000,1,3,TotalBeginningAndPurchaseOfGoods\n"
    "期末商品棚卸高,1200000,1,3,EndingGoodsCOS\n"
    "売上原価合計,29800000,1,3,CostOfSales\n"
    "売上総利益,20200000,1,2,GrossProfit\n"
    "販売費及び一般管理費,,T,2,SellingGeneralAndAdministrativeExpensesAbstract\n"
    "役員報酬,6000000,1,3,DirectorsCompensationsSGA\n"
    "給料手当,8000000,1,3,SalariesAndAllowancesSGA\n"
    "販売費及び一般管理費合計,14000000,1,3,SellingGeneralAndAdministrativeExpenses\n"
    "営業利益,6200000,1,2,OperatingIncome\n"
    "経常利益,6200000,1,2,OrdinaryIncome\n"
    "税引前当期純利益,6200000,1,2,IncomeBeforeIncomeTaxes\n"
    "法人税等,,T,2,IncomeTaxesAbstract\n"
    "法人税、住民税及び事業税,1900000,1,3,IncomeTaxesCurrent\n"
    "法人税等合計,1900000,1,3,IncomeTaxes\n"
    "当期純利益,4300000,1,2,ProfitLoss\n";

const std::string kManufacturingCost = "A,SC,,,\n" + kHead +
    "製造原価報告書,,,,\n"
    "材料費,,T,2,MaterialCostAbstract\n"
    "期首材料棚卸高,500000,1,3,BeginningRawMaterialsMFG\n"
    "当期材料仕入高,4000000,1,3,PurchasesOfRawMaterialsMFG\n"
    "期末材料棚卸高,600000,1,3,EndingRawMaterialsMFG\n"
    "当期材料費,3900000,1,3,MaterialCost\n"
    "労務費,,T,2,LaborCostAbstract\n"
    "賃金,2500000,1,3,WagesAndSalariesMFG\n"
    "当期労務費,2500000,1,3,LaborCost\n"
    "当期総製造費用,6400000,1,2,ManufacturingCostForPeriod\n"
    "当期製品製造原価,6400000,1,2,CostOfFinishedGoodsManufacturedMFG\n";

const std::string kShareholdersEquity = "A,SS,,,\n" + kHead +
    "株主資本等変動計算書,,,,\n"
    "株主資本,,T,2,ShareholdersEquitySSAbstract\n"
    "資本金,,T,3,CapitalStockSSAbstract\n"
    "当期首残高,10000000,1,4,CapitalStockSSBalanceAtBeginningOfPeriod\n"
    "当期末残高,10000000,1,4,CapitalStockSSBalanceAtEndOfPeriod\n"
    "利益剰余金,,T,3,RetainedEarningsSSAbstract\n"
    "その他利益剰余金,,T,4,OtherRetainedEarningsSSAbstract\n"
    "任意積立金,,2,5,VoluntaryReserveSS\n"
    "積立金の名称,別途積立金,2,6,VoluntaryReserveNameSS\n"
    "当期首残高,3000000,1,6,VoluntaryReserveBalanceAtBeginningOfPeriodSS\n"
    "当期末残高,3000000,1,6,VoluntaryReserveBalanceAtEndOfPeriodSS\n"
    "任意積立金,,2,5,VoluntaryReserveSS\n"
    "積立金の名称,圧縮積立金,2,6,VoluntaryReserveNameSS\n"
    "当期首残高,500000,1,6,VoluntaryReserveBalanceAtBeginningOfPeriodSS\n"
    "積立金の取崩,-100000,1,6,ReversalOfVoluntaryReserveSS\n"
    "当期末残高,400000,1,6,VoluntaryReserveBalanceAtEndOfPeriodSS\n"
    "繰越利益剰余金,,T,5,RetainedEarningsBroughtForwardSSAbstract\n"
    "当期首残高,9750000,1,6,RetainedEarningsBroughtForwardSSBalanceAtBeginningOfPeriod\n"
    "当期純利益,4300000,1,6,RetainedEarningsBroughtForwardSSNetIncome\n"
    "当期末残高,14050000,1,6,RetainedEarningsBroughtForwardSSBalanceAtEndOfPeriod\n"
    "株主資本合計,24050000,1,3,ShareholdersEquitySS\n"
    "純資産合計,24050000,1,2,NetAssetsSS\n";

const std::string kMembersEquity = "A,SE,,,\n" + kHead +
    "社員資本等変動計算書,,,,\n"
    "社員資本,,T,2,MembersEquityAbstract\n"
    "資本金,,T,3,CapitalMEAbstract\n"
    "当期首残高,3000000,1,4,CapitalMEBalanceAtBeginningOfPeriod\n"
    "当期末残高,3000000,1,4,CapitalMEBalanceAtEndOfPeriod\n"
    "その他の変動事由,,2,3,OtherChangesME\n"
    "変動事由,社員の退社に伴う持分の払戻し,2,4,OtherChangesDescriptionME\n"
    "金額,-500000,1,4,OtherChangesAmountME\n"
    "社員資本合計,2500000,1,3,MembersEquity\n"
    "純資産合計,2500000,1,2,NetAssetsME\n";

const std::string kAppropriation = "A,SR,,,\n" + kHead +
    "損益金の処分表,,,,\n"
    "当期未処分利益,,T,2,UnappropriatedRetainedEarningsAbstract\n"
    "前期繰越利益,2000000,1,3,RetainedEarningsBroughtForwardFromPriorPeriod\n"
    "当期純利益,1500000,1,3,NetIncomeSR\n"
    "当期未処分利益合計,3500000,1,3,UnappropriatedRetainedEarnings\n"
    "利益処分額,,T,2,AppropriationOfRetainedEarningsAbstract\n"
    "配当金,500000,1,3,CashDividendsSR\n"
    "利益処分額合計,500000,1,3,AppropriationOfRetainedEarnings\n"
    "次期繰越利益,3000000,1,2,UnappropriatedRetainedEarningsCarriedForward\n";

const std::string kNotes = "A,NT,,,\n" + kHead +
    "個別注記表,,,,\n"
    "重要な会計方針に係る事項に関する注記,,T,2,SignificantAccountingPoliciesAbstract\n"
    "棚卸資産の評価基準及び評価方法,最終仕入原価法による原価法,2,3,ValuationBasisAndMethodForInventories\n"
    "固定資産の減価償却の方法,定率法,2,3,DepreciationMethodForNoncurrentAssets\n"
    "貸借対照表に関する注記,,T,2,BalanceSheetNotesAbstract\n"
    "有形固定資産の減価償却累計額,1200000,1,3,AccumulatedDepreciationOfPropertyPlantAndEquipment\n"
    "担保に供している資産,,2,3,PledgedAssets\n"
    "資産の名称,土地,2,4,PledgedAssetsName\n"
    "金額,5000000,1,4,PledgedAssetsAmount\n"
    "担保に供している資産,,2,3,PledgedAssets\n"
    "資産の名称,建物,2,4,PledgedAssetsName\n"
    "金額,2000000,1,4,PledgedAssetsAmount\n"
    "株主資本等変動計算書に関する注記,,T,2,ChangesInNetAssetsNotesAbstract\n"
    "発行済株式の種類及び総数,,2,3,IssuedShares\n"
    "株式の種類,普通株式,2,4,ClassOfIssuedShares\n"
    "当期首株式数,200,1,4,IssuedSharesAtBeginningOfPeriod\n"
    "当期末株式数,200,1,4,IssuedSharesAtEndOfPeriod\n"
    "重要な後発事象に関する注記,該当事項はありません。,2,2,SignificantSubsequentEventsNotes\n";

std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    const size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

TEST(ShippedDefinition, RealisticFilesPass)
{
    EXPECT_EQ(checkFile("BS", kBalanceSheet), "");
    EXPECT_EQ(checkFile("PL", kIncomeStatement), "");
    EXPECT_EQ(checkFile("SC", kManufacturingCost), "");
    EXPECT_EQ(checkFile("SS", kShareholdersEquity), "");
    EXPECT_EQ(checkFile("SE", kMembersEquity), "");
    EXPECT_EQ(checkFile("SR", kAppropriation), "");
    EXPECT_EQ(checkFile("NT", kNotes), "");
    EXPECT_EQ(checkFile("-", kBalanceSheet + kIncomeStatement.substr(kIncomeStatement.find("A,PL"), 8) +
                                 kIncomeStatement.substr(kIncomeStatement.find("損益計算書,"))),
              "");
}

TEST(ShippedDefinition, BrokenHeadLines)
{
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "B,株式会社サンプル商事", "C1,株式会社サンプル商事")),
              "0002-00001-HQZ9770E");
    EXPECT_EQ(checkFile("PL", kBalanceSheet), "0001-00002-HQZ9750E");
    EXPECT_EQ(checkFile("BS", kBalanceSheet + "A,PL,,,\n損益計算書,,,,\n"), "0036-00001-HQZ9750E");
    EXPECT_EQ(checkFile("-", replaced(kBalanceSheet, "A,BS", "A,XX")), "0001-00002-HQZ9720E");
    EXPECT_EQ(checkFile("-", kShareholdersEquity + "A,SR,,,\n損益金の処分表,,,,\n"), "0027-00002-HQZ8040E");
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "2026-03-31", "2025-03-31")), "0004-00002-HQZ9620E");
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "2025-04-01", "2025-02-30")), "0003-00002-HQZ9620E");
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "貸借対照表,,,,", "損益計算書,,,,")), "0005-00001-HQZ8030E");
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "貸借対照表,,,,", "資産の部,,T,2,AssetsAbstract")),
              "0005-00003-HQZ9710E");
}

TEST(ShippedDefinition, FirstPassRowRules)
{
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "A,BS,,,", "X,BS,,,")), "0001-00001-HQZ9760E");
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "C1,", "C2,")), "0003-00001-HQZ9780E");
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "C2,", "C1,")), "0004-00001-HQZ9790E");
    EXPECT_EQ(checkFile("BS", "A,BS,,,\n"), "0001-00001-HQZ9770E");
    EXPECT_EQ(checkFile("BS", "A,BS,,,\n" + kHead), "0004-00001-HQZ9710E");
    // The line after a later "A" line must be its title.
    EXPECT_EQ(checkFile("-", kBalanceSheet + "A,PL,,,\nB,x,,,\n"), "0037-00001-HQZ8220E");
    EXPECT_EQ(checkFile("-", kBalanceSheet + "A,PL,,,\nC1,2025-04-01,,,\n"), "0037-00001-HQZ9850E");
    EXPECT_EQ(checkFile("-", kBalanceSheet + "A,PL,,,\nC2,2026-03-31,,,\n"), "0037-00001-HQZ9870E");
    EXPECT_EQ(checkFile("-", kBalanceSheet + "A,PL,,,\n売上高,1,1,2,NetSales\n"), "0037-00002-HQZ9710E");
    EXPECT_EQ(checkFile("-", kBalanceSheet + "A,BS,,,\n貸借対照表,,,,\n"), "0036-00002-HQZ8050E");
}

TEST(ShippedDefinition, BrokenAccountLines)
{
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "売掛金,8500000,1,4,AccountsReceivableTrade",
                                       "売掛金,8500000,1,4")),
              "0009-00000-HQZ9290E");
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "売掛金,8500000,1,4,", "売掛金,8500000,X,4,")),
              "0009-00003-HQZ9820E,0009-00003-HQZ9830E");
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "売掛金,8500000,1,4,", "売掛金,8500000,1,1,")),
              "0009-00004-HQZ9890E");
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "AccountsReceivableTrade", "AccountsReceivable_Trade")),
              "0009-00005-HQZ9700E");
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "AccountsReceivableTrade", "AccountsReceivable")),
              "0009-00005-HQZ9700E");
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "売掛金,8500000,1,4,", "売掛金,8500000,1,6,")),
              "0009-00004-HQZ8270E,0009-00005-HQZ8260E");
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "小口現金,50000,", "小口現金,1234567890123456,")),
              "0010-00002-HQZ9450E");
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "売掛金,8500000,", "売掛金,8,500,")), "0009-00000-HQZ9290E");
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "売掛金,8500000,", "売掛金,8.500.0,")), "0009-00002-HQZ9680E");
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "流動資産,,T,3,", "流動資産,100,T,3,")), "0007-00002-HQZ9810E");
    // A standard account under the wrong parent.
    EXPECT_EQ(checkFile("BS", replaced(kBalanceSheet, "建物,3000000,1,5,Buildings", "現金及び預金,3000000,1,5,CashAndDeposits")),
              "0014-00005-HQZ8260E");
    // A group of notes without a required member.
    EXPECT_EQ(checkFile("NT", replaced(kNotes, "資産の名称,土地,2,4,PledgedAssetsName\n", "")), "0011-00005-HQZ8260E");
    EXPECT_EQ(checkFile("PL", kIncomeStatement + "売上高,1,1,2,NetSales\n"), "0025-00005-HQZ8090E");
}

// The second pass over small code lists written by the tests.
class SecondPass : public ::testing::Test {
protected:
    std::string check(const std::string& bsRows, const std::string& items, const std::string& more = "")
    {
        writeShiftJis(dir.file("kamokuCodeList_BS.csv"), bsRows);
        writeShiftJis(dir.file("kamokuCodeList_PL.csv"), "Cash,,,,,,現金,0,,\n");
        QZCUtility::ClearErrorInfo();
        QZCAccountBookListBuilder2 builder;
        std::string name, from, to;
        EXPECT_TRUE(builder.AnalyzeFinancialStatement(parse("A,BS\n" + kHead + "貸借対照表,,,,\n" + items + more),
                                                      name, from, to))
            << takeErrors();
        QZCKamokuCodeListCSV codeList;
        EXPECT_TRUE(codeList.ReadCsvFile(dir.path().c_str(), builder.GetAccountBook2()));
        builder.SetPropertyAfterLayered(codeList);
        QZCValidateMediator2 mediator("-");
        mediator.ExecCheckAfterLayered(builder.GetAccountBook2(), codeList);
        return takeErrors();
    }

    TempDir dir;
};

const std::string kTupleList =
    "Group,,,true,,,グループ,0,,\n"
    "T,,,,tuple,Group,組,0,,\n"
    "X,,,,,T,X,1,,\n"
    "Y,,,,,T,Y,0,,\n"
    "Z,,,,,T,Z,1,,\n"
    "Cash,,,,,,現金,0,,\n";

TEST_F(SecondPass, TupleMemberWalk)
{
    const std::string head = "グループ,,T,2,Group\n組,,2,3,T\n";
    EXPECT_EQ(check(kTupleList, head + "X,1,1,4,X\nZ,1,1,4,Z\n"), "");
    EXPECT_EQ(check(kTupleList, head + "X,1,1,4,X\nY,1,1,4,Y\n"), "0007-00005-HQZ8260E");
    EXPECT_EQ(check(kTupleList, head + "Z,1,1,4,Z\nX,1,1,4,X\n"), "0007-00005-HQZ8260E,0009-00005-HQZ8260E");
    EXPECT_EQ(check(kTupleList, head + "X,1,1,4,X\n現金,1,1,4,Cash\nZ,1,1,4,Z\n"), "0009-00005-HQZ8260E");
    // The group repeated directly passes; after another account it is closed.
    EXPECT_EQ(check(kTupleList, head + "X,1,1,4,X\nZ,1,1,4,Z\n" + "組,,2,3,T\nX,1,1,4,X\nZ,1,1,4,Z\n"), "");
}

TEST_F(SecondPass, DuplicateCodesAndMoneyRanges)
{
    EXPECT_EQ(check(kTupleList, "現金,1,1,2,Cash\n現金,2,1,2,Cash\n"), "0007-00005-HQZ8090E");
    EXPECT_EQ(check(kTupleList, "現金,1,1,2,Cash-A\n現金,2,1,2,Cash-A\n未知,1,1,2,Other-1\n"),
              "0007-00005-HQZ8090E,0008-00005-HQZ9700E");
    // The same code in two statements is no duplicate.
    EXPECT_EQ(check(kTupleList, "現金,1,1,2,Cash\n", "A,PL\n損益計算書,,,,\n現金,1,1,2,Cash\n"), "");

    EXPECT_EQ(check(kTupleList, "現金,1234567890123456,1,2,Cash-A\n"), "0006-00002-HQZ9450E");
    EXPECT_EQ(check(kTupleList, "現金,-123456789012345.12,1,2,Cash-A\n"), "");
    EXPECT_EQ(check(kTupleList, "現金,1.123,1,2,Cash-A\n"), "0006-00002-HQZ9450E");
    EXPECT_EQ(check(kTupleList, "現金,,1,2,Cash-A\n見出し,x,T,2,Cash-B\n"), "0007-00002-HQZ9810E");
}

TEST(Mediator, LineLimit)
{
    QZCUtility::ClearErrorInfo();
    std::string text;
    for (int i = 0; i < 5000; ++i) {
        text += "x\n";
    }
    QZCValidateMediator2 mediator("BS");
    EXPECT_TRUE(mediator.CheckLinesWithinLimits(parse(text)));
    EXPECT_FALSE(mediator.CheckLinesWithinLimits(parse(text + "x\n")));
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9900E");
}

}  // namespace
