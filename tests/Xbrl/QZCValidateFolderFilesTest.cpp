#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "QZCAccountFile.h"
#include "QZCUtility.h"
#include "QZCValidateFolderFiles.h"
#include "TestSupport.h"

namespace {

// Surveys the names as one folder and gives each name's error list.
std::map<std::string, std::string> checkFolder(const std::vector<std::string>& names)
{
    QZCUtility::ClearErrorInfo();
    std::vector<std::string> paths;
    for (const std::string& name : names) {
        paths.push_back("/data/" + name);
    }
    QZCValidateFolderFiles checker;
    checker.PreCheck(paths);
    std::map<std::string, std::string> errors;
    for (const std::string& path : paths) {
        QZCAccountFile file;
        file.SetCSVFileName(path);
        const bool ok = checker.DoCheck(file);
        errors[path.substr(6)] = takeErrors();
        EXPECT_EQ(ok, errors[path.substr(6)].empty()) << path;
    }
    return errors;
}

std::string checkSingle(const std::string& name)
{
    QZCUtility::ClearErrorInfo();
    QZCAccountFile file;
    file.SetCSVFileName("/data/" + name);
    QZCValidateFile checker;
    checker.DoCheck(file);
    return takeErrors();
}

using Errors = std::map<std::string, std::string>;

TEST(FolderFiles, Survey)
{
    EXPECT_EQ(checkFolder({"HOT010_3.0_BS.csv", "HOT010_3.0_PL.csv"}),
              (Errors{{"HOT010_3.0_BS.csv", ""}, {"HOT010_3.0_PL.csv", ""}}));
    EXPECT_EQ(checkFolder({"HOT010_3.0_BS.csv", "HOT010_3.0_BS_old.csv"}),
              (Errors{{"HOT010_3.0_BS.csv", "0000-00000-HQZ9130E"}, {"HOT010_3.0_BS_old.csv", "0000-00000-HQZ9130E"}}));
    EXPECT_EQ(checkFolder({"HOT010_3.0.csv"}), (Errors{{"HOT010_3.0.csv", ""}}));
    for (const auto& names : {std::vector<std::string>{"HOT010_3.0.csv", "HOT010_3.0_BS.csv"},
                              std::vector<std::string>{"HOT010_3.0_BS.csv", "HOT010_3.0.csv"}}) {
        EXPECT_EQ(checkFolder(names),
                  (Errors{{"HOT010_3.0.csv", "0000-00000-HQZ9740E"}, {"HOT010_3.0_BS.csv", "0000-00000-HQZ9740E"}}));
    }
    EXPECT_EQ(checkFolder({"HOT010_3.0_BS.csv", "HOT010_3.0_SR.csv", "HOT010_3.0_SS.csv"}),
              (Errors{{"HOT010_3.0_BS.csv", ""},
                      {"HOT010_3.0_SR.csv", "0000-00000-HQZ8020E"},
                      {"HOT010_3.0_SS.csv", "0000-00000-HQZ8020E"}}));
    EXPECT_EQ(checkFolder({"HOT010_3.0_BS.txt", "hot010_3.0_PL.csv", "HOT010_3.0_PL.csv"}),
              (Errors{{"HOT010_3.0_BS.txt", "0000-00000-HQZ9930E"},
                      {"hot010_3.0_PL.csv", "0000-00000-HQZ9930E"},
                      {"HOT010_3.0_PL.csv", ""}}));
}

TEST(FolderFiles, SingleFileNames)
{
    EXPECT_EQ(checkSingle("HOT010_3.0_XX.csv"), "");
    EXPECT_EQ(checkSingle("HOT010_3.0_BS:1.csv"), "0000-00000-HQZ9060E");
    EXPECT_EQ(checkSingle("HOT010_3.0_BS.CSV.bak"), "0000-00000-HQZ9930E");
    const std::string stem = "HOT010_3.0_BS_";
    const std::string name125 = stem + std::string(125 - stem.size() - 4, 'x') + ".csv";
    EXPECT_EQ(checkSingle(name125), "");
    EXPECT_EQ(checkSingle(stem + std::string(126 - stem.size() - 4, 'x') + ".csv"), "0000-00000-HQZ9660E");
}

TEST(FolderFiles, XbrlTypeFromName)
{
    QZCValidateFile checker;
    const std::map<std::string, std::string> expected{
        {"HOT010_3.0_BS.csv", "BS"}, {"HOT010_3.0_BS_2024.csv", "BS"}, {"HOT010_3.0.csv", "-"},
        {"HOT010_3.0_bs.csv", "-"},  {"HOT010_3.0_XX.csv", "-"},       {"HOT010_3.0_NT.CSV", "NT"}};
    for (const auto& [name, type] : expected) {
        std::string found = "unset";
        EXPECT_TRUE(checker.getFileXBRLType(name, found)) << name;
        EXPECT_EQ(found, type) << name;
    }
    std::string untouched = "unset";
    EXPECT_FALSE(checker.getFileXBRLType("HOT010_2.0_BS.csv", untouched));
    EXPECT_EQ(untouched, "unset");
}

TEST(CheckResults, CategorySettersAndRecords)
{
    QZCUtility::ClearErrorInfo();
    QZCAccountFile file;
    file.SetCSVFileName("/data/HOT010_3.0_BS.csv");
    QZCUtility::AddCsvErrorInfo(0, 0, "HQZ9930E");
    file.SetFormatErrorResultInfo("3.0");
    _XBRLRESULTINFO result = file.GetResultInfo();
    EXPECT_EQ(result.checkResult, 3);
    EXPECT_EQ(result.xbrlType, "-");
    EXPECT_EQ(result.detailErrorInfo, "0000-00000-HQZ9930E");
    EXPECT_TRUE(g_mlErrors.empty());

    std::vector<QZCAccountBook2> books(2);
    books[0].SetBookType("BS");
    books[1].SetBookType("PL");
    file.SetAccountBook2List(books);
    file.SetXBRLPropertyInfo("株式会社テスト", "2025-04-01", "2026-03-31");
    QZCUtility::AddCsvErrorInfo(7, 2, "HQZ9680E");
    file.SetCompleteResultInfo("3.0");
    result = file.GetResultInfo();
    EXPECT_EQ(result.checkResult, 0);
    EXPECT_EQ(result.xbrlType, "BS,PL");
    EXPECT_EQ(result.corporateName, "株式会社テスト");
    EXPECT_EQ(result.detailErrorInfo, "");
    file.SetIncompleteResultInfo("3.0");  // picks up what complete left
    EXPECT_EQ(file.GetResultInfo().detailErrorInfo, "0007-00002-HQZ9680E");
    QZCUtility::AddCsvErrorInfo(2, 2, "HQZ8080E");
    file.SetInconsistencyResultInfo("3.0", "given");
    EXPECT_EQ(file.GetResultInfo().detailErrorInfo, "given");
    EXPECT_TRUE(g_mlErrors.empty());

    QZCXbrlResult records;
    records.AddResultInfo("a.csv", 2, "BS", "3.0", "", "", "", "", "x");
    EXPECT_EQ(records.GetCheckResult(0), 2);
    EXPECT_EQ(records.GetCheckResult(-1), -1);
    EXPECT_EQ(records.GetCheckResult(1), -1);
    EXPECT_EQ(records.GetFileName(1), "");
    EXPECT_EQ(records.GetDetailErrorInfo(0), "x");
}

}  // namespace
