#include <gtest/gtest.h>

#include <sstream>
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

// The text of a case: the named files joined, the first occurrence of one
// text replaced, more lines appended.
std::string caseText(const std::string& files, const std::string& from, const std::string& to,
                     const std::string& appended)
{
    std::string text;
    std::istringstream names(files);
    for (std::string name; names >> name;)
        text += testData("statements/" + name + ".csv");
    if (!from.empty()) {
        const size_t at = text.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        if (at != std::string::npos)
            text.replace(at, from.size(), to);
    }
    return text + appended;
}

TEST(ShippedDefinition, CaseTable)
{
    for (const Case& c : readCases("statements-checks.tsv", 6)) {
        SCOPED_TRACE(c.where);
        EXPECT_EQ(checkFile(c[0], caseText(c[1], c[2], c[3], c[4])), c.expected(5));
    }
}

// The second pass over a balance sheet's rows with a small code list.
TEST(SecondPass, CaseTable)
{
    const std::string head = "A,BS\nB,株式会社サンプル商事,,,\nC1,2025-04-01,,,\nC2,2026-03-31,,,\n貸借対照表,,,,\n";
    TempDir dir;
    writeShiftJis(dir.file("kamokuCodeList_BS.csv"), testData("statements/kamokuCodeList_tuple.csv"));
    writeShiftJis(dir.file("kamokuCodeList_PL.csv"), "Cash,,,,,,現金,0,,\n");
    for (const Case& c : readCases("statements-second-pass.tsv", 3)) {
        SCOPED_TRACE(c.where);
        QZCUtility::ClearErrorInfo();
        QZCAccountBookListBuilder2 builder;
        std::string name, from, to;
        EXPECT_TRUE(builder.AnalyzeFinancialStatement(parse(head + c[0] + c[1]), name, from, to)) << takeErrors();
        QZCKamokuCodeListCSV codeList;
        EXPECT_TRUE(codeList.ReadCsvFile(dir.path().c_str(), builder.GetAccountBook2()));
        builder.SetPropertyAfterLayered(codeList);
        QZCValidateMediator2("-").ExecCheckAfterLayered(builder.GetAccountBook2(), codeList);
        EXPECT_EQ(takeErrors(), c.expected(2));
    }
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
