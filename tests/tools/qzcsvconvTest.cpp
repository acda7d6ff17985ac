// The command-line tool as people and scripts use it: exit statuses, the
// entries of its answers, its hints and its command line.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "DetailTestBundle.h"
#include "MessageCatalog.h"
#include "QZCDOMParser.h"
#include "QZCParamCheck.h"
#include "QZCUtility.h"
#include "QZICsvConvSupport.h"
#include "TestSupport.h"
#include "ToolSupport.h"

namespace {

using nlohmann::json;

const std::string kBundle = "--bundle " + quoted(QZC_BUNDLE_DIR);
const std::string kExamples = std::string(QZC_SOURCE_DIR) + "/examples/";

// The first entry of an answer at a line and column.
json entryAt(const json& answer, int64_t line, int64_t column)
{
    for (const json& entry : answer["Entries"]) {
        if (entry["Line"] == line && entry["Column"] == column)
            return entry;
    }
    return json();
}

TEST(Tool, ExitStatusFollowsTheVerdict)
{
    TempDir dir;
    ::mkdir(dir.file("empty").c_str(), 0755);
    ::mkdir(dir.file("bad-names").c_str(), 0755);
    writeShiftJis(dir.file("bad-names/HOT010-3.0_BS.csv"), "A,BS\r\n");
    writeBytes(dir.file("data.txt"), "HOI010,0,銀行\r\n");
    // The exit status of each bundled example is checked by ExamplesTest.cpp.
    const struct {
        std::string arguments;
        int status;
    } cases[] = {
        {"--json xbrl " + dir.file("missing") + " 3.0", 1},
        {"--json xbrl " + dir.file("empty") + " 3.0", 1},
        {"--json xbrl " + dir.file("bad-names") + " 3.0", 1},
        {"--json --bundle /nonexistent xbrl " + kExamples + "financial-statements 3.0", 1},
        {"--json detail2 " + kExamples + "detail/HOI010_4.0_預貯金等.csv 1.0", 1},
        {"--json detail " + kExamples + "detail/HOI010_4.0_預貯金等.csv 4.0", 1},
        {"--json report " + kExamples + "detail/HOI110_3.0_借入金.csv 3.0", 0},
        {"--json report " + kExamples + "detail/with-errors/HOI010_4.0_預貯金等_フォーマット区分.csv 4.0", 1},
        {"--json write " + dir.file("out.csv") + " " + dir.file("data.txt"), 0},
        {"--json write " + dir.file("missing/out.csv") + " " + dir.file("data.txt"), 1},
        {"", 2},
        {"nonsense a b", 2},
        {"xbrl only-one", 2},
        {"--lang fr xbrl a 3.0", 2},
        {"appended a 6.0 extra", 2},
        {"write out.csv /no/such/data/file", 2},
    };
    for (const auto& test : cases) {
        const ToolRun run = runTool(kBundle + " " + test.arguments);
        EXPECT_EQ(run.status, test.status) << test.arguments << "\n" << run.out << run.err;
        if (test.status != 2) {
            EXPECT_EQ(run.json()["Valid"], test.status == 0) << test.arguments;
        }
    }
}

TEST(Tool, EntriesNameFieldValueAndRuleInBothLanguages)
{
    DetailTestBundle bundle;
    writeBytes(std::string(std::getenv("QZCSVCONVXML_BUNDLE")) + "/AccountTitle/HOI010_4.0_vld.xml",
               testData("labelled-definition.xml"));  // labels and a rule of each kind the report words
    const std::string csv = bundle.Csv("HOI010_4.0.csv", "HOI010,0,みなと銀行本店営業部,,123,5,7,2,30,1000\r\n");
    const struct {
        int column;
        const char* field;
        const char* value;
        const char* ruleJa;
        const char* ruleEn;
    } cases[] = {
        {3, "金融機関名", "みなと銀行本店営業部", "5文字以内", "at most 5 characters"},
        {4, "種類", "", "入力が必要（口座番号が入力されている場合）", "required (when 口座番号 is given)"},
        {6, "満期日", "5,7,2,30", "元号・年・月・日がその元号の期間に実在する日付",
         "an existing date within its era (era, year, month, day)"},
        {10, "amount", "1000", "0以上999以下の数値", "a number from 0 to 999"},
    };
    for (const char* lang : {"ja", "en"}) {
        const ToolRun run = runTool(std::string("--json --lang ") + lang + " detail2 " + quoted(csv) + " 4.0");
        const json answer = run.json();
        EXPECT_EQ(answer["Summary"]["Entries"], 4) << run.out;
        for (const auto& test : cases) {
            const json entry = entryAt(answer, 1, test.column);
            EXPECT_EQ(entry["Field"], test.field) << lang << " column " << test.column;
            EXPECT_EQ(entry["Value"], test.value) << lang << " column " << test.column;
            EXPECT_EQ(entry["Rule"], std::string(lang) == "ja" ? test.ruleJa : test.ruleEn) << lang;
            EXPECT_EQ(entry["Message"], std::string(lang) == "ja" ? "読み込んだCSVファイルの設定値が正しくありません。"
                                                                  : "A value of the CSV file is wrong.");
            EXPECT_EQ(entry["BlocksConversion"], false);
        }
    }
    const ToolRun text = runTool("--lang en detail2 " + quoted(csv) + " 4.0");
    EXPECT_NE(text.out.find("  line 1, column 3, 金融機関名: \"みなと銀行本店営業部\" (rule: at most 5 characters)\n"
                            "    HQZ9620E A value of the CSV file is wrong.\n"),
              std::string::npos)
        << text.out;
}

TEST(Tool, StatementsEntriesNameTheColumnsMeaning)
{
    const json answer = runTool(kBundle + " --json --lang ja xbrl " + kExamples + "financial-statements-with-errors 3.0").json();
    const json code = entryAt(answer, 24, 5);
    EXPECT_EQ(code["Field"], "勘定科目コード");
    EXPECT_EQ(code["Value"], "TelephoneRight");
    EXPECT_EQ(code["File"], kExamples + "financial-statements-with-errors/HOT010_3.0_BS.csv");
    EXPECT_EQ(entryAt(answer, 40, 2)["Field"], "金額");
    EXPECT_EQ(entryAt(answer, 4, 2)["Field"], "事業年度（至）");
    EXPECT_EQ(answer["Summary"], json({{"Entries", 5}, {"Blocking", 5}, {"Files", 4}, {"FilesWithFindings", 4}}));
}

// What the library's answer leaves silent, told by the tool.
TEST(Tool, HintsAndFindingsWhereTheCodeAloneMisleads)
{
    TempDir dir;
    writeBytes(dir.file("HOI010_4.0.csv"), "\xEF\xBB\xBFHOI010,0,銀行,1,2\r\n");
    ::mkdir(dir.file("utf8").c_str(), 0755);
    writeBytes(dir.file("utf8/HOT010_3.0_BS.csv"), "A,BS\r\nB,株式会社みなと\r\n");
    writeBytes(dir.file("HOI010_4.0_sjis.csv"), "HOI010,0,a\r\nHOI010,0,\x82\xA0\x82\r\n");
    writeBytes(dir.file("HOI010_4.0_nul.csv"), std::string("HOI010,0,a\r\nHOI010,0,b") + '\0' + "c\r\n");
    ::mkdir(dir.file("special").c_str(), 0755);
    writeBytes(dir.file("special/HOT010_3.0_BS.csv"), "");
    ::mkfifo(dir.file("special/HOT010_3.0_PL.csv").c_str(), 0644);
    writeBytes(dir.file("write.txt"), "a,b\nc,〜d😀\n");
    // Sparse files over the size the library reads, refused unread.
    ::mkdir(dir.file("large").c_str(), 0755);
    for (const char* name : {"HOI010_4.0_large.csv", "large/HOT010_3.0_BS.csv"}) {
        writeBytes(dir.file(name), "");
        std::filesystem::resize_file(dir.file(name), QZICsvConvSupport::MaxReadableFileSize() + 1);
    }
    const struct {
        std::string arguments;
        std::string code;  // the tool's finding, if any
        int64_t line;
        std::string value;
        std::string hint;  // a text the hints hold
    } cases[] = {
        {"detail2 " + dir.file("HOI010_4.0.csv") + " 4.0", "", 0, "", "is UTF-8 text; the CSV files must be Shift_JIS"},
        {"xbrl " + dir.file("utf8") + " 3.0", "", 0, "", "qzcsvconv write '" + dir.file("utf8/HOT010_3.0_BS.csv")},
        {"detail2 " + dir.file("HOI010_4.0_sjis.csv") + " 4.0", kNotShiftJis, 2, "0x82", ""},
        {"detail2 " + dir.file("HOI010_4.0_nul.csv") + " 4.0", kNulByte, 2, "0x00", ""},
        {"xbrl " + dir.file("special") + " 3.0", kEmptyFile, 0, "", ""},
        {"xbrl " + dir.file("special") + " 3.0", kSpecialFile, 0, "", ""},
        {"detail2 " + dir.file("HOI010_4.0_large.csv") + " 4.0", kTooLargeFile, 0, "", ""},
        {"xbrl " + dir.file("large") + " 3.0", kTooLargeFile, 0, "", ""},
        {"write " + dir.file("out.csv") + " " + dir.file("write.txt"), kNoShiftJisForm, 2, "〜 (U+301C)", ""},
        {"--bundle /nonexistent detail2 " + kExamples + "detail/HOI010_4.0_預貯金等.csv 4.0", "", 0, "",
         "looked in: /nonexistent"},
    };
    for (const auto& test : cases) {
        const ToolRun run = runTool(kBundle + " --json --lang en " + test.arguments);
        const json answer = run.json();
        EXPECT_EQ(run.status, 1) << test.arguments;
        if (!test.code.empty()) {
            json found;
            for (const json& entry : answer["Entries"]) {
                if (entry["Code"] == test.code && found.is_null())
                    found = entry;
            }
            ASSERT_TRUE(found.is_object()) << test.arguments << "\n" << run.out;
            EXPECT_EQ(found["Line"], test.line) << test.arguments;
            if (!test.value.empty()) {
                EXPECT_EQ(found["Value"], test.value) << test.arguments;
            }
        }
        if (!test.hint.empty()) {
            EXPECT_NE(answer["Hints"].dump().find(test.hint), std::string::npos) << test.arguments << "\n" << run.out;
        }
    }
    // The UTF-8 hint is the first line of the report.
    const ToolRun text = runTool("--lang en detail2 " + dir.file("HOI010_4.0.csv") + " 4.0");
    EXPECT_EQ(text.out.rfind("Note: " + dir.file("HOI010_4.0.csv") + " is UTF-8 text", 0), 0u) << text.out;
}

TEST(Tool, NamesAStatementsFileItCannotRead)
{
    TempDir dir;
    ::chmod(dir.path().c_str(), 0755);
    for (const char* name : {"HOT010_3.0_BS.csv", "HOT010_3.0_PL.csv"})
        std::filesystem::copy_file(kExamples + "financial-statements/" + name, dir.file(name));
    ::chmod(dir.file("HOT010_3.0_PL.csv").c_str(), 0);
    // Root reads any file: the tool then runs as nobody.
    const std::string caller = ::geteuid() == 0 ? "setpriv --reuid=nobody --regid=nogroup --clear-groups" : "";
    if (!caller.empty() && std::system((caller + " true").c_str()) != 0)
        GTEST_SKIP() << "cannot run the tool as nobody (setpriv)";
    const json answer = runTool(kBundle + " --json xbrl " + dir.path() + " 3.0", "", caller).json();
    EXPECT_EQ(answer["Result"], "E_FAIL");
    EXPECT_EQ(answer["Entries"].back()["File"], dir.file("HOT010_3.0_PL.csv"));
    EXPECT_EQ(answer["Entries"].back()["Code"], kUnreadableFile);
}

TEST(Tool, ReportIsWellFormedOrNotHandedOut)
{
    // Forms of their own: a unit attribute of 120 characters, whose start tag
    // the report cuts short; a unit on an element that the page's container
    // tags repeat.
    DetailTestBundle bundle;
    const std::string folder = std::string(std::getenv("QZCSVCONVXML_BUNDLE")) + "/AccountTitle/";
    writeBytes(folder + "HOI010_4.0_vld.xml",
               R"(<definition><report id="HOI010" reportId="HOI010" reportVR="4.0" columnNum="4" maxOccurs="100">
                    <item id="rows" parent="HOI010" meisaiGoukei="0"/>
                    <item id="area" parent="rows" column="3" unit="1" meisaiGoukei="0"/></report></definition>)");
    writeBytes(folder + "HOI020_4.0_vld.xml",
               R"(<definition><report id="HOI020" reportId="HOI020" reportVR="4.0" columnNum="4" maxOccurs="9" )"
               R"(sibling="1"><item id="bank" parent="HOI020" column="3" unit="1" meisaiGoukei="0"/>)"
               "</report></definition>");
    const std::string cases[] = {
        bundle.Csv("HOI010_4.0.csv", "HOI010,0,2480," + std::string(120, 'm') + "\r\n") + " 4.0",
        bundle.Csv("HOI020_4.0.csv", "HOI020,0,みなと銀行,円\r\n") + " 4.0",
    };
    const std::string target = bundle.Path("report.xml");
    for (const std::string& csv : cases) {
        writeBytes(target, "old");
        const ToolRun run = runTool("--json report -o " + target + " " + csv);
        EXPECT_EQ(run.status, 1) << csv;
        const json answer = run.json();
        EXPECT_EQ(answer["Report"], "") << csv;
        EXPECT_EQ(answer["Conformity"], 1) << csv;
        EXPECT_EQ(answer["Verdict"], "failed") << csv;
        EXPECT_EQ(answer["Entries"].back()["Code"], kReportNotWellFormed) << csv;
        EXPECT_EQ(readBytes(target), "old") << csv;
    }

    const ToolRun rowKind = runTool(kBundle + " --lang en report " + kExamples + "detail/with-errors/HOI010_4.0_預貯金等_フォーマット区分.csv 4.0");
    EXPECT_EQ(rowKind.status, 1);
    EXPECT_EQ(rowKind.out.rfind("Note: No report XML was produced", 0), 0u) << rowKind.out;
}

TEST(Tool, JsonStaysValidUtf8ForAnyFileName)
{
    TempDir dir;
    writeShiftJis(dir.file("HOT010_3.0_BS.csv"), "A,BS\r\n");
    writeShiftJis(dir.file("\x8A\x94\x8E\xAE.csv"), "A,BS\r\n");  // a Shift_JIS name
    const ToolRun run = runTool(kBundle + " --json xbrl " + dir.path() + " 3.0");
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.out.find("\xEF\xBF\xBD"), std::string::npos) << run.out;
}

TEST(Tool, CommandLineConventions)
{
    const std::string folder = kExamples + "financial-statements-with-errors";
    const ToolRun before = runTool(kBundle + " --json --lang en xbrl " + folder + " 3.0");
    const ToolRun after = runTool("xbrl " + folder + " 3.0 --lang en " + kBundle + " --json");
    EXPECT_EQ(after.status, before.status);
    EXPECT_EQ(after.out, before.out);

    const ToolRun unknown = runTool("nonsense a b");
    EXPECT_EQ(unknown.status, 2);
    EXPECT_NE(unknown.err.find("unknown command 'nonsense'; the commands are xbrl, detail, detail2, appended, write, "
                               "report"),
              std::string::npos)
        << unknown.err;

    const ToolRun version = runTool("-V");
    std::ifstream schemaFile(std::string(QZC_SOURCE_DIR) + "/tools/qzcsvconv-answer.schema.json");
    const std::string schemaVersion = version.out.substr(version.out.find("answer schema ") + 14);
    EXPECT_EQ(version.status, 0);
    EXPECT_NE(version.out.find("library QZCsvConvXml 1."), std::string::npos) << version.out;
    EXPECT_EQ(json::parse(schemaFile)["$id"], "qzcsvconv-answer-" + schemaVersion.substr(0, schemaVersion.size() - 1) +
                                                  ".schema.json");
    const ToolRun help = runTool("--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("Exit status:"), std::string::npos);

    const std::string clean = " xbrl " + kExamples + "financial-statements 3.0";
    EXPECT_NE(runTool(kBundle + clean, "", "env -u LC_ALL -u LC_MESSAGES LANG=ja_JP.UTF-8").out.find("すべて"), std::string::npos);
    EXPECT_NE(runTool(kBundle + clean, "", "env LANG=ja_JP.UTF-8 LC_ALL=C.UTF-8").out.find("every file"),
              std::string::npos);

    // A CSV file on standard input answers as the file itself.
    const std::string errors = kExamples + "detail/with-errors/HOI010_4.0_預貯金等.csv";
    json piped = runTool(kBundle + " --json --name HOI010_4.0.csv detail2 - 4.0 < " + errors).json();
    json named = runTool(kBundle + " --json detail2 " + errors + " 4.0").json();
    EXPECT_EQ(piped["DetailErrorInfo"], named["DetailErrorInfo"]);
    EXPECT_EQ(piped["Entries"][0]["File"], "-");
    EXPECT_EQ(piped["Entries"][0]["Rule"], named["Entries"][0]["Rule"]);
}

// Every code the library can put into an error entry, and every code of the
// tool's own, has a message.
TEST(MessageCatalog, CoversEveryCode)
{
    std::set<std::string> codes(std::begin(generalChackErrorList), std::end(generalChackErrorList));
    for (const QZCDatMsgRow& row : DatMsgTable) {
        if (*row.code)
            codes.insert(row.code);
    }
    for (const char* code : {kReportNotWellFormed, kNotShiftJis, kNulByte, kEmptyFile, kUnreadableFile, kSpecialFile,
                             kNoShiftJisForm, kNotUtf8, kUnknownForm, kNoAnswer})
        codes.insert(code);

    QZCDOMParser definition;
    ASSERT_TRUE(definition.Initialize());
    ASSERT_TRUE(definition.Parse((std::string(QZC_BUNDLE_DIR) + "/Xbrl/V3.0/QZCAccountBookCheckDefinition2.xml").c_str()));
    // Walk every element of the definition and collect its message codes.
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
    for (const std::string& code : codes) {
        EXPECT_TRUE(hasMessage(code)) << code;
    }
    EXPECT_EQ(messageFor("HQZ9999E", Language::English), "Unknown error.");
}

}  // namespace
