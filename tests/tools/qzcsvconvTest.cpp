// The command-line tool as scripts use it: exit status, JSON and the report.
#include <cstdio>
#include <functional>
#include <set>
#include <string>

#include <sys/wait.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "../DetailAccountTitle/DetailTestBundle.h"
#include "MessageCatalog.h"
#include "QZCDOMParser.h"
#include "QZCParamCheck.h"
#include "QZCUtility.h"
#include "TestSupport.h"

namespace {

struct ToolRun {
    int status;
    std::string out;
};

ToolRun runTool(const std::string& arguments)
{
    std::string command = std::string(QZC_TOOL) + " " + arguments + " 2>/dev/null";
    ToolRun run{-1, ""};
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe)
        return run;
    char buffer[4096];
    size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0)
        run.out.append(buffer, got);
    int status = ::pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

const std::string kBundle = std::string("--bundle ") + QZC_BUNDLE_DIR;
const std::string kExample = std::string(QZC_SOURCE_DIR) + "/examples/financial-statements";
const std::string kExampleWithErrors = std::string(QZC_SOURCE_DIR) + "/examples/financial-statements-with-errors";

TEST(Tool, UsageErrorsExitWithTwo)
{
    EXPECT_EQ(runTool("").status, 2);
    EXPECT_EQ(runTool("nonsense a b").status, 2);
    EXPECT_EQ(runTool("xbrl only-one").status, 2);
    EXPECT_EQ(runTool("xbrl --json a 3.0").status, 2);  // global options come first
    EXPECT_EQ(runTool("--lang fr xbrl a 3.0").status, 2);
    EXPECT_EQ(runTool("detail2 only-one").status, 2);
    EXPECT_EQ(runTool("appended a 6.0 extra").status, 2);
    EXPECT_EQ(runTool("write out.csv").status, 2);
    EXPECT_EQ(runTool("write out.csv /no/such/data/file").status, 2);
    EXPECT_EQ(runTool("--help").status, 0);
    ToolRun version = runTool("--version");
    EXPECT_EQ(version.status, 0);
    EXPECT_NE(version.out.find("qzcsvconv 1."), std::string::npos);
}

TEST(Tool, CleanFolderAsJson)
{
    ToolRun run = runTool(kBundle + " --json xbrl " + kExample + " 3.0");
    ASSERT_EQ(run.status, 0) << run.out;
    nlohmann::json result = nlohmann::json::parse(run.out);
    const std::set<std::string> keys = {"Result", "DetailErrorInfo", "XbrlCsvFileCount", "CsvFileNameArray",
                                        "CheckResultArray", "XbrlTypeArray", "StyleVersionArray",
                                        "CorporateNameArray", "FiscalYearFromArray", "FiscalYearToArray",
                                        "GenericCSVArray", "DetailErrorInfoArray"};
    std::set<std::string> actual;
    for (const auto& item : result.items())
        actual.insert(item.key());
    EXPECT_EQ(actual, keys);
    EXPECT_EQ(result["Result"], "S_OK");
    ASSERT_TRUE(result["XbrlCsvFileCount"].is_number_integer());
    EXPECT_EQ(result["XbrlCsvFileCount"], 4);
    EXPECT_EQ(result["CsvFileNameArray"][0], "HOT010_3.0_BS.csv");
    EXPECT_EQ(result["CheckResultArray"], nlohmann::json({"0", "0", "0", "0"})) << run.out;
    EXPECT_EQ(result["XbrlTypeArray"], nlohmann::json({"BS", "NT", "PL", "SS"}));
    EXPECT_EQ(result["CorporateNameArray"][3], "株式会社みなと商事");
    EXPECT_EQ(result["FiscalYearToArray"][2], "2025-03-31");
}

TEST(Tool, ReportNamesEveryErrorInEitherLanguage)
{
    ToolRun japanese = runTool(kBundle + " xbrl " + kExampleWithErrors + " 3.0");
    EXPECT_EQ(japanese.status, 0);
    EXPECT_NE(japanese.out.find("HOT010-3.0_SS.csv: チェックできません（形式エラー）"), std::string::npos) << japanese.out;
    EXPECT_NE(japanese.out.find("HQZ9700E 勘定科目コードが科目コードリストにありません。"), std::string::npos);
    EXPECT_NE(japanese.out.find("行 4, 列 2: HQZ8070E"), std::string::npos);

    ToolRun english = runTool(kBundle + " --lang en xbrl " + kExampleWithErrors + " 3.0");
    EXPECT_NE(english.out.find("inconsistent with the other files"), std::string::npos) << english.out;
    EXPECT_NE(english.out.find("HQZ9450E The amount has too many digits"), std::string::npos);
}

TEST(Tool, FailedCheckExitsWithOne)
{
    TempDir dir;
    writeBytes(dir.file("HOT010_3.0_BS.csv"), "");  // accepted name, nothing to read
    ToolRun run = runTool(kBundle + " --json xbrl " + dir.path() + " 3.0");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(nlohmann::json::parse(run.out)["Result"], "E_FAIL");
}

// The detail commands run against a bundle with small definitions, which
// the tool finds through the environment.
class DetailToolTest : public ::testing::Test {
protected:
    ToolRun Run(const std::string& options, const std::string& command, const std::string& name,
                const std::string& text, const char* version)
    {
        return runTool(options + " " + command + " " + m_bundle.Csv(name, text) + " " + version);
    }
    DetailTestBundle m_bundle;
};

TEST_F(DetailToolTest, JsonHoldsTheResultObject)
{
    ToolRun run = Run("--json", "detail2", "HOI010_4.0.csv", "HOI010,0,みなと銀行,100,普通\n", "4.0");
    EXPECT_EQ(run.status, 0);
    nlohmann::json result = nlohmann::json::parse(run.out);
    EXPECT_EQ(result, nlohmann::json({{"Result", "S_OK"}, {"DetailErrorInfo", ""}, {"Conformity", 1}}));
    EXPECT_TRUE(result["Conformity"].is_number_integer());

    run = Run("--json", "appended", "HOB016_6.0.csv", "HOB016,,1\n", "6.0");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(nlohmann::json::parse(run.out),
              nlohmann::json({{"Result", "S_OK"}, {"DetailErrorInfo", "1-00002-HQZ9620E"}, {"Conformity", 2}}));

    run = Run("--json", "detail", "HOI010_4.0.csv", "HOI010,0,a,1,b\n", "4.0");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(nlohmann::json::parse(run.out),
              nlohmann::json({{"Result", "E_FAIL"}, {"DetailErrorInfo", "0000-00000-HQZ9350E"}, {"Conformity", 0}}));
}

TEST_F(DetailToolTest, ReportGivesTheVerdictAndEveryEntry)
{
    ToolRun run = Run("", "detail2", "HOI010_4.0.csv", "HOI010,0,みなと銀行,百,普通\n", "4.0");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "勘定科目内訳明細書CSVのチェック: S_OK\n変換できます（警告あり）\nエラー:\n"
                       "  行 1, 列 4: HQZ9620E 読み込んだCSVファイルの設定値が正しくありません。\n");
    run = Run("--lang en", "detail", "HOI010_2.0.csv", "HOI010(1),0,a,1,b\n", "2.0");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "Detail statement check: S_OK\ncan be converted\n");
    run = Run("--lang en", "appended", "HOB016_7.0.csv", "HOB016,a,1\n", "6.0");
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.out.find("Appended table check: E_FAIL\ncannot be converted\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("whole file: HQZ9350E The file name does not follow"), std::string::npos) << run.out;
}

TEST(Tool, WriteHandsTheDataOverUnchanged)
{
    TempDir dir;
    writeBytes(dir.file("data.txt"), "HOI010,0,銀行\r\nHOI010,1,合計\n");
    ToolRun run = runTool("write " + dir.file("out.csv") + " " + dir.file("data.txt"));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "CSVファイルの書き込み: S_OK\n書き込みました\n");
    EXPECT_EQ(readBytes(dir.file("out.csv")), "HOI010,0,\x8B\xE2\x8D\x73\r\nHOI010,1,\x8D\x87\x8C\x76\n");

    run = runTool("--json write " + dir.file("piped.csv") + " - < " + dir.file("data.txt"));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(readBytes(dir.file("piped.csv")), readBytes(dir.file("out.csv")));

    run = runTool("--json write " + dir.file("missing/out.csv") + " " + dir.file("data.txt"));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(nlohmann::json::parse(run.out),
              nlohmann::json({{"Result", "E_FAIL"}, {"DetailErrorInfo", "0000-00000-HQZ9240E"}, {"Conformity", 0}}));
    writeBytes(dir.file("emoji.txt"), "\xF0\x9F\x98\x80");
    run = runTool("--lang en write " + dir.file("out.csv") + " " + dir.file("emoji.txt"));
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.out.find("not written"), std::string::npos);
    EXPECT_NE(run.out.find("whole file: HQZ9560E"), std::string::npos) << run.out;
}

TEST(Tool, ReportPrintsOrWritesTheDocument)
{
    const std::string examples = std::string(QZC_SOURCE_DIR) + "/examples/detail/";
    ToolRun printed = runTool(kBundle + " report " + examples + "HOI110_3.0_借入金.csv 3.0");
    EXPECT_EQ(printed.status, 0);
    EXPECT_EQ(printed.out.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<CONTENTS><HOI110 ", 0), 0u) << printed.out;

    TempDir dir;
    const std::string target = dir.file("report.xml");
    ToolRun written = runTool(kBundle + " --lang en report -o " + target + " " + examples + "HOB016_6.0_控除所得税額.csv 6.0");
    EXPECT_EQ(written.status, 0);
    EXPECT_NE(written.out.find("Report XML: S_OK"), std::string::npos) << written.out;
    EXPECT_EQ(readBytes(target).rfind("<?xml", 0), 0u);

    // A file that cannot be converted leaves the target as it was.
    ToolRun refused = runTool(kBundle + " --json report -o " + target + " " + examples + "HOI010_4.0_預貯金等.csv 1.0");
    EXPECT_EQ(refused.status, 1);
    nlohmann::json result = nlohmann::json::parse(refused.out);
    EXPECT_EQ(result["Report"], "");
    EXPECT_EQ(result["Conformity"], 0);
    EXPECT_EQ(readBytes(target).rfind("<?xml", 0), 0u);
}

// Every code the library can put into an error entry has a message.
TEST(MessageCatalog, CoversEveryCode)
{
    for (const QZCDatMsgRow& row : DatMsgTable) {
        if (*row.code) {
            EXPECT_TRUE(hasMessage(row.code)) << row.code;
        }
    }
    for (const std::string& code : generalChackErrorList) {
        EXPECT_TRUE(hasMessage(code)) << code;
    }

    QZCDOMParser definition;
    ASSERT_TRUE(definition.Initialize());
    ASSERT_TRUE(definition.Parse((std::string(QZC_BUNDLE_DIR) + "/Xbrl/V3.0/QZCAccountBookCheckDefinition2.xml").c_str()));
    // Walk every element of the definition and collect its message codes.
    std::set<std::string> codes;
    std::function<void()> visit = [&] {
        if (!definition.GetAttribute("errorMsg").empty())
            codes.insert(definition.GetAttribute("errorMsg"));
        if (definition.MoveFirstChild() == 0) {
            do
                visit();
            while (definition.MoveNextSibling() == 0);
            definition.MoveParent();
        }
    };
    visit();
    EXPECT_FALSE(codes.empty());
    for (const std::string& code : codes) {
        EXPECT_TRUE(hasMessage(code)) << code;
    }
    EXPECT_EQ(messageFor("HQZ9999E", Language::English), "Unknown error.");
}

}  // namespace
