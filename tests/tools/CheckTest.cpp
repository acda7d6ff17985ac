// check: a whole filing at once, in worker processes, and its HTML page in
// a real browser.
#include <cstdio>
#include <filesystem>
#include <set>
#include <string>

#include <sys/wait.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "MessageCatalog.h"
#include "TestSupport.h"
#include "ToolSupport.h"

namespace {

using nlohmann::json;

const std::string kBundle = "--bundle " + quoted(QZC_BUNDLE_DIR);
const std::string kExamples = std::string(QZC_SOURCE_DIR) + "/examples";

TEST(Check, AnswersEveryExampleAsItsOwnCommandDoes)
{
    const ToolRun run = runTool(kBundle + " --json --lang en check -j 2 " + kExamples);
    const json check = run.json();
    ASSERT_TRUE(check.contains("Answers")) << run.out;
    EXPECT_EQ(run.status, check["Valid"] ? 0 : 1);
    EXPECT_GE(check["Answers"].size(), 20u);
    std::set<std::string> commands;
    for (const json& answer : check["Answers"]) {
        std::string arguments = kBundle + " --json --lang en " + answer["Command"].get<std::string>();
        for (const json& argument : answer["Arguments"])
            arguments += " " + quoted(argument.get<std::string>());
        EXPECT_EQ(runTool(arguments).json(), answer) << arguments;
        commands.insert(answer["Command"].get<std::string>());
    }
    EXPECT_EQ(commands, std::set<std::string>({"xbrl", "detail", "detail2", "appended"}));
    const json& summary = check["Summary"];
    EXPECT_EQ(summary["Inputs"], check["Answers"].size());
    EXPECT_EQ(summary["Clean"].get<size_t>() + summary["WithFindings"].get<size_t>() + summary["Failed"].get<size_t>(),
              check["Answers"].size());
}

TEST(Check, KeepsTheOrderOfItsInputsWhateverTheWorkers)
{
    TempDir dir;
    writeBytes(dir.file("notes.csv"), "a,b\r\n");
    const std::string detail = kExamples + "/detail/";
    const std::string list = detail + "HOI110_3.0_借入金.csv\n" + dir.file("notes.csv") + "\n" + kExamples +
                             "/financial-statements\n\n" + detail + "HOB016_6.0_控除所得税額.csv\n" +
                             dir.file("missing.csv") + "\n";
    writeBytes(dir.file("list.txt"), list);
    const ToolRun one = runTool(kBundle + " --json check -j 1 - < " + dir.file("list.txt"));
    const ToolRun two = runTool(kBundle + " --json check -j 3 - < " + dir.file("list.txt"));
    EXPECT_EQ(one.status, 1);
    json answers = one.json()["Answers"];
    ASSERT_EQ(answers.size(), 5u) << one.out;
    EXPECT_EQ(answers, two.json()["Answers"]);
    EXPECT_EQ(answers[0]["Arguments"], json({detail + "HOI110_3.0_借入金.csv", "3.0"}));
    EXPECT_EQ(answers[1]["Command"], "unknown");
    EXPECT_EQ(answers[1]["Entries"][0]["Code"], kUnknownForm);
    EXPECT_EQ(answers[2]["Command"], "xbrl");
    EXPECT_EQ(answers[3]["Command"], "appended");
    EXPECT_EQ(answers[4]["Verdict"], "failed");
    EXPECT_EQ(one.json()["Summary"]["Failed"], 2);

    const ToolRun text = runTool(kBundle + " --lang en check " + detail + "HOI110_3.0_借入金.csv");
    EXPECT_EQ(text.status, 0);
    EXPECT_NE(text.out.find("Inputs checked: 1 ("), std::string::npos) << text.out;
    EXPECT_NE(text.out.find("clean: 1, with findings: 0, failed: 0\n"), std::string::npos) << text.out;
}

// The page of the examples in headless Chromium: the verdicts are shown and
// exactly the offending cells of the errors example are marked. The
// screenshot stays in the build folder.
TEST(Check, HtmlPageOpensInABrowserWithTheRightCellsMarked)
{
    TempDir dir;
    const std::string page = dir.file("report.html");
    const ToolRun run = runTool(kBundle + " --lang en check --html " + page + " " + kExamples);
    ASSERT_EQ(run.status, 1) << run.err;

    const std::string browser = "timeout 120 chromium --headless --no-sandbox --disable-gpu --disable-quic "
                                "--no-first-run --disable-background-networking --disable-component-update "
                                "--disable-sync --user-data-dir=" + quoted(dir.file("profile")) + " ";
    std::string dom;
    FILE* pipe = ::popen((browser + "--dump-dom file://" + page + " 2>/dev/null").c_str(), "r");
    if (pipe) {
        char buffer[65536];
        for (size_t got; (got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
            dom.append(buffer, got);
        ::pclose(pipe);
    }
    if (dom.find("<html") == std::string::npos)
        GTEST_SKIP() << "headless Chromium cannot start here (install the chromium package)";

    EXPECT_NE(dom.find("can be converted with warnings"), std::string::npos);
    EXPECT_NE(dom.find("every file can become XBRL"), std::string::npos);
    // The marked cells of the errors example's data table.
    const size_t start = dom.find("<summary>" + kExamples + "/detail/with-errors/HOI010_4.0_預貯金等.csv</summary>");
    ASSERT_NE(start, std::string::npos);
    const std::string table = dom.substr(start, dom.find("</details>", start) - start);
    std::set<std::string> marked;
    for (size_t at = 0; (at = table.find("data-at=\"", at)) != std::string::npos; at += 9)
        marked.insert(table.substr(at + 9, table.find('"', at + 9) - at - 9));
    EXPECT_EQ(marked, std::set<std::string>({"1,4", "2,6", "3,7", "4,3", "5,7", "6,3"}));

    const std::string screenshot = std::filesystem::current_path() / "check-report.png";
    EXPECT_EQ(std::system((browser + "--window-size=1280,1400 --screenshot=" + quoted(screenshot) + " file://" +
                           page + " >/dev/null 2>&1")
                              .c_str()),
              0);
    EXPECT_TRUE(std::filesystem::file_size(screenshot) > 0);
}

}  // namespace
