// Shipped definition files, broken in the ways a hand edit breaks them, used
// by the real operation from a private copy of the bundle: a broken
// definition fails the operation with its log line, and nothing in a
// definition reaches outside the bundle.
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <regex>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QZCLog.h"
#include "QZICsvConvXML.h"
#include "TestSupport.h"

namespace {

namespace fs = std::filesystem;

const std::string kExamples = std::string(QZC_SOURCE_DIR) + "/examples";
const char kXbrlDefinition[] = "Xbrl/V3.0/QZCAccountBookCheckDefinition2.xml";

// A definition file of the bundle and the operation that reads it on its
// shipped example.
struct Target {
    std::string definition;
    std::function<std::string()> run;
    bool Xbrl() const { return definition == kXbrlDefinition; }
};

std::vector<Target> ShippedTargets()
{
    std::vector<Target> targets;
    for (const char* folder : {"AccountTitle", "AppendedTable"}) {
        std::vector<fs::path> files;
        for (const auto& entry : fs::directory_iterator(std::string(QZC_BUNDLE_DIR) + "/" + folder))
            files.push_back(entry.path());
        std::sort(files.begin(), files.end());
        for (const fs::path& file : files) {
            // HOI010_4.0_vld.xml checks examples/detail/HOI010_4.0_預貯金等.csv as
            // 4.0; versions without an example there are left out.
            const std::string stem = file.filename().string().substr(0, file.filename().string().size() - 8);
            std::string csv;
            for (const auto& example : fs::directory_iterator(kExamples + "/detail")) {
                if (example.path().filename().string().rfind(stem + "_", 0) == 0 && example.path().extension() == ".csv")
                    csv = example.path().string();
            }
            if (csv.empty())
                continue;
            const std::string version = stem.substr(stem.find('_') + 1);
            const bool appended = std::string(folder) == "AppendedTable";
            targets.push_back({std::string(folder) + "/" + file.filename().string(), [=] {
                                   QZICsvConvXML library;
                                   return describe(appended ? library.CsvCheckToAppendedTable(csv.c_str(), version.c_str())
                                                            : library.CsvCheckToDetailAccountTitle2(csv.c_str(),
                                                                                                    version.c_str()));
                               }});
        }
    }
    const std::string folder = kExamples + "/financial-statements";
    targets.push_back({kXbrlDefinition, [folder] { return describe(QZICsvConvXML().CsvCheckToXbrl2(folder.c_str(), "3.0")); }});
    return targets;
}

std::string Shipped(const Target& target)
{
    return readBytes(std::string(QZC_BUNDLE_DIR) + "/" + target.definition);
}

// The answer of the target's operation with the definition replaced by
// text in a copy of the bundle, and the debug log it wrote.
struct Outcome {
    std::string answer;
    std::string log;
};

Outcome RunWith(const Target& target, const std::string& text)
{
    TempDir dir;
    const std::string bundle = dir.file("QZCsvConvXml.bundle");
    fs::copy(QZC_BUNDLE_DIR, bundle, fs::copy_options::recursive);
    writeBytes(bundle + "/" + target.definition, text);
    ScopedBundle scope(bundle);

    const std::string home = std::getenv("HOME") ? std::getenv("HOME") : "";
    ::setenv("HOME", dir.path().c_str(), 1);
    ::setenv(QZCLog::kSwitchVariable, "1", 1);
    Outcome outcome;
    outcome.answer = target.run();
    ::unsetenv(QZCLog::kSwitchVariable);
    QZCLog::m_bOutput = false;
    ::setenv("HOME", home.c_str(), 1);
    outcome.log = readBytes(QZCLog::m_strOutputPath);
    return outcome;
}

// What the operations answer when their definition is broken: the detail
// check fails with the unexpected-error entry only, the financial
// statements check fails without any result record.
std::string DefinitionFault(const Target& target)
{
    if (!target.Xbrl())
        return "E_FAIL|0000-00000-HQZ9560E|0";
    QZICsvConvXbrlResultXML failed;
    failed.initialize();
    failed.Result = "E_FAIL";
    return describe(failed);
}

void ExpectDefinitionFault(const Target& target, const std::string& text, const std::string& logLine)
{
    const Outcome outcome = RunWith(target, text);
    EXPECT_EQ(outcome.answer, DefinitionFault(target)) << target.definition;
    EXPECT_NE(outcome.log.find(logLine), std::string::npos) << target.definition << "\n" << outcome.log;
}

std::string ReplaceFirst(const std::string& text, const char* pattern, const char* replacement)
{
    std::string changed =
        std::regex_replace(text, std::regex(pattern), replacement, std::regex_constants::format_first_only);
    EXPECT_NE(changed, text) << pattern;
    return changed;
}

TEST(MalformedDefinitionTest, EveryShippedDefinitionWithAnUnknownKeyword)
{
    for (const Target& target : ShippedTargets()) {
        const std::string text = ReplaceFirst(Shipped(target), "<valid id=\"[^\"]*\"", "<valid id=\"nosuchcheck\"");
        ExpectDefinitionFault(target, text,
                              target.Xbrl() ? "定義体の読み込みに失敗しました。"
                                            : "不明なValidのidが指定されています。 nosuchcheck");
    }
}

TEST(MalformedDefinitionTest, MissingParameterAndMinimumAboveMaximum)
{
    for (const Target& target : ShippedTargets()) {
        if (target.definition != "AccountTitle/HOI110_3.0_vld.xml" &&
            target.definition != "AppendedTable/HOB016_6.0_vld.xml" && !target.Xbrl())
            continue;
        const std::string shipped = Shipped(target);
        if (target.Xbrl()) {
            const char* line = "定義体の読み込みに失敗しました。";
            ExpectDefinitionFault(target, ReplaceFirst(shipped, "<valid id=\"[^\"]*\"", "<valid"), line);
            ExpectDefinitionFault(target, ReplaceFirst(shipped, "<content min=\"([^\"]*)\" max=\"([^\"]*)\"",
                                                       "<content min=\"$2\" max=\"$1\""),
                                  line);
            // The element count rule loses its only parameter.
            ExpectDefinitionFault(target, ReplaceFirst(shipped, "<content count=\"5\"/>", ""), line);
            continue;
        }
        const char* line = "定義体パラメータ指定エラー。";
        ExpectDefinitionFault(target, ReplaceFirst(shipped, "(<valid id=\"charlength\") max=\"[^\"]*\"", "$1"), line);
        ExpectDefinitionFault(target, ReplaceFirst(shipped, "(<valid id=\"range2?\") min=\"([^\"]*)\" max=\"([^\"]*)\"",
                                                   "$1 min=\"$3\" max=\"$2\""),
                              line);
    }
}

// A document nested 10,000 levels deep inside the first element below the
// root costs no stack: the operation answers as with the shipped file, the
// extra elements being none it reads.
TEST(MalformedDefinitionTest, DeeplyNestedDocument)
{
    std::string nested;
    for (int i = 0; i < 10000; ++i)
        nested += "<n>";
    for (int i = 0; i < 10000; ++i)
        nested += "</n>";
    for (const Target& target : ShippedTargets()) {
        if (target.definition != "AccountTitle/HOI010_4.0_vld.xml" && !target.Xbrl())
            continue;
        const std::string text = ReplaceFirst(Shipped(target), "(<(report|RecordCheck)[^>]*>)", ("$1" + nested).c_str());
        EXPECT_EQ(RunWith(target, text).answer, target.run()) << target.definition;
    }
}

// External entities and DTDs resolve to nothing: the answer is that of the
// shipped file, whether the entity names a local file, a file that is not
// even XML, or an address that would never answer.
TEST(MalformedDefinitionTest, ExternalEntitiesAreNeverLoaded)
{
    TempDir dir;
    writeBytes(dir.file("broken.xml"), "<<< not XML");
    const std::vector<std::string> doctypes = {
        "<!DOCTYPE x [<!ENTITY e SYSTEM \"file:///etc/passwd\">]>",
        "<!DOCTYPE x [<!ENTITY e SYSTEM \"file://" + dir.file("broken.xml") + "\">]>",
        "<!DOCTYPE x [<!ENTITY e SYSTEM \"http://192.0.2.1/e.xml\">]>",
        "<!DOCTYPE x [<!ENTITY % p SYSTEM \"" + dir.file("broken.xml") + "\"> %p; <!ENTITY e \"\">]>",
        "<!DOCTYPE x SYSTEM \"http://192.0.2.1/x.dtd\" [<!ENTITY e \"\">]>"};
    for (const Target& target : ShippedTargets()) {
        const std::string expected = target.run();
        for (const std::string& doctype : doctypes) {
            // The entity is referenced as the root's first content.
            std::string text = ReplaceFirst(Shipped(target), "(<\\?xml[^>]*\\?>)", ("$1\n" + doctype).c_str());
            text = ReplaceFirst(text, "(\n<[A-Za-z][^>]*>)", "$1&e;");
            const auto start = std::chrono::steady_clock::now();
            EXPECT_EQ(RunWith(target, text).answer, expected) << target.definition << " " << doctype;
            EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
        }
    }
}

}  // namespace
