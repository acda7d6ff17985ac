#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "QZCAccountBook2.h"
#include "QZCKamokuCodeListCSV.h"
#include "QZCMacOSNative.h"
#include "QZCUtility.h"
#include "TestSupport.h"

namespace {

std::vector<QZCAccountBook2> books(const std::vector<std::string>& kinds)
{
    std::vector<QZCAccountBook2> list(kinds.size());
    for (size_t i = 0; i < kinds.size(); ++i) {
        list[i].SetBookType(kinds[i]);
    }
    return list;
}

std::vector<std::string> childNames(const QZCKamokuCodeListCSV& codeList, const std::string& kind,
                                    const std::string& parent)
{
    std::vector<CHILD_ITEM> children;
    codeList.GetChildList(kind, parent, children);
    std::vector<std::string> names;
    for (const CHILD_ITEM& child : children) {
        names.push_back(child.key + ":" + child.substitutionGroup);
    }
    return names;
}

class CodeListTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QZCUtility::ClearErrorInfo();
        writeShiftJis(dir.file("kamokuCodeList_BS.csv"),
                      "Top,duration,,true,,,資産の部,0,,\n"
                      "Cash,instant,debit,,,Top,現金,1,xbrli:monetaryItemType\n"
                      "Notes,instant,debit,,,Top,受取手形,0,xbrli:monetaryItemType,Ctx\n"
                      "Cash,instant,credit,,,Other,重複,0,,\n"
                      "Total,instant,debit,,,Top,合計,0,,\n");
        writeShiftJis(dir.file("kamokuCodeList_PL.csv"), "Cash,duration,credit,,,,現金,0,,\n");
    }

    TempDir dir;
};

TEST_F(CodeListTest, KeysFirstRowsAndAttributes)
{
    QZCKamokuCodeListCSV codeList;
    ASSERT_TRUE(codeList.ReadCsvFile(dir.path().c_str(), books({"BS", "PL"})));
    std::vector<std::string> row;
    ASSERT_TRUE(codeList.GetRow("BS", "Cash", row));
    EXPECT_EQ(row[2], "debit");  // the first of the two Cash rows
    ASSERT_TRUE(codeList.GetRow("PL", "Cash", row));
    EXPECT_EQ(row[2], "credit");
    EXPECT_FALSE(codeList.GetRow("SC", "Cash", row));
    EXPECT_TRUE(row.empty());

    EXPECT_EQ(codeList.GetAttrValue("BS", "Notes", "contextID"), "Ctx");
    EXPECT_EQ(codeList.GetAttrValue("BS", "Cash", "balance"), "debit");
    EXPECT_EQ(codeList.GetAttrValue("BS", "Cash", "label"), "");
    EXPECT_EQ(codeList.GetAttrValue("BS", "Unknown", "balance"), "");
    EXPECT_THROW(codeList.GetAttrValue("BS", "Cash", "contextID"), std::out_of_range);
}

TEST_F(CodeListTest, ChildrenInFileOrderAndRepeatedKinds)
{
    QZCKamokuCodeListCSV once;
    ASSERT_TRUE(once.ReadCsvFile(dir.path().c_str(), books({"BS"})));
    const std::vector<std::string> three{"BS_Cash:1", "BS_Notes:0", "BS_Total:0"};
    EXPECT_EQ(childNames(once, "BS", "Top"), three);
    EXPECT_EQ(childNames(once, "BS", "Other"), std::vector<std::string>{"BS_Cash:0"});
    EXPECT_EQ(childNames(once, "PL", "Top"), std::vector<std::string>{});

    QZCKamokuCodeListCSV twice;
    ASSERT_TRUE(twice.ReadCsvFile(dir.path().c_str(), books({"BS", "BS"})));
    std::vector<std::string> six = three;
    six.insert(six.end(), three.begin(), three.end());
    EXPECT_EQ(childNames(twice, "BS", "Top"), six);
}

TEST_F(CodeListTest, RefusedKindsFilesAndRows)
{
    QZCKamokuCodeListCSV codeList;
    EXPECT_FALSE(codeList.ReadCsvFile(nullptr, books({"BS"})));
    EXPECT_FALSE(codeList.ReadCsvFile(dir.path().c_str(), books({""})));
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9560E");
    EXPECT_FALSE(codeList.ReadCsvFile(dir.path().c_str(), books({"SC"})));
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9560E");

    // A row with a parent needs eight fields; the rows before it stay.
    writeShiftJis(dir.file("kamokuCodeList_NT.csv"), "A,,,,,,x,0\nB,,,,,A,x\n");
    EXPECT_FALSE(codeList.ReadCsvFile(dir.path().c_str(), books({"NT"})));
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9560E");
    std::vector<std::string> row;
    EXPECT_TRUE(codeList.GetRow("NT", "A", row));
    EXPECT_FALSE(codeList.MakeMap("SS", QZCCsvFile::Lines{{"A", "", "", "", ""}}));
    EXPECT_FALSE(codeList.MakeMap("SS", QZCCsvFile::Lines{QZCCsvFile::Line{}}));
    takeErrors();
}

// Every parent named in a shipped list is an item of the same list, and
// every required tuple member lies below a tuple.
TEST(ShippedCodeLists, ParentsExistAndTuplesHaveMembers)
{
    const std::string folder = std::string(QZC_BUNDLE_DIR) + "/Xbrl/V3.0";
    for (const char* kind : {"BS", "PL", "SC", "SS", "SE", "SR", "NT"}) {
        QZCCsvFile file;
        const std::string path = QZCMacOSNative::appendFilePath(folder.c_str(),
                                                                (std::string("kamokuCodeList_") + kind + ".csv").c_str());
        ASSERT_TRUE(file.ReadCsvFile(path.c_str())) << kind;
        std::set<std::string> names;
        std::set<std::string> tuples;
        for (const auto& row : file.GetCSVData()) {
            ASSERT_EQ(row.size(), 10u) << kind << " " << row[0];
            EXPECT_TRUE(names.insert(row[0]).second) << kind << " repeats " << row[0];
            if (row[4] == "tuple") {
                tuples.insert(row[0]);
            }
        }
        for (const auto& row : file.GetCSVData()) {
            EXPECT_TRUE(row[5].empty() || names.count(row[5])) << kind << " " << row[0] << " -> " << row[5];
            if (row[7] == "1") {
                EXPECT_TRUE(tuples.count(row[5])) << kind << " required " << row[0];
            }
        }
        QZCKamokuCodeListCSV codeList;
        EXPECT_TRUE(codeList.ReadCsvFile(folder.c_str(), books({kind}))) << kind;
    }
}

}  // namespace
