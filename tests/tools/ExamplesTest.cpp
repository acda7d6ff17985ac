// Every bundled example against the answer written beside it.
//
// An example's answer is a file NAME.expected.json anywhere under examples/:
//   {
//     "command": ["detail2", "HOI010_4.0.csv", "4.0"],
//     "answer": {"Result": "S_OK", "Conformity": 1, "DetailErrorInfo": ""}
//   }
// "command" is what follows `qzcsvconv --json`, with paths relative to the
// folder of the expected file; every key of "answer" must equal the same key
// of the tool's JSON. Every answer must match the answer schema, and the exit
// status must follow the rule the tool documents.
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "ToolSupport.h"

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

std::vector<fs::path> expectedFiles()
{
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(fs::path(QZC_SOURCE_DIR) / "examples")) {
        const std::string name = entry.path().filename().string();
        const std::string suffix = ".expected.json";
        if (entry.is_regular_file() && name.size() > suffix.size()
            && name.compare(name.size() - suffix.size(), suffix.size(), suffix) == 0)
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

// The documented exit status, from the result object's properties alone:
// 0 exactly when nothing was found.
int documentedExit(const json& answer)
{
    const std::string command = answer["Command"];
    if (answer["Result"] != "S_OK")
        return 1;
    if (command == "xbrl") {
        const json& results = answer["CheckResultArray"];
        return !results.empty() && std::all_of(results.begin(), results.end(), [](const json& r) { return r == "0"; })
                   ? 0
                   : 1;
    }
    if (command == "detail")
        return answer["DetailErrorInfo"] == "" ? 0 : 1;
    if (command == "write")
        return 0;
    return answer["Conformity"] == 1 ? 0 : 1;
}

class Examples : public testing::TestWithParam<fs::path> {};

TEST_P(Examples, GiveTheirExpectedAnswer)
{
    const fs::path& file = GetParam();
    std::ifstream in(file);
    const json expected = json::parse(in, nullptr, false);
    ASSERT_FALSE(expected.is_discarded()) << file << " is not JSON";
    ASSERT_TRUE(expected.contains("command") && expected.contains("answer")) << file;

    std::string arguments = "--bundle " + quoted(QZC_BUNDLE_DIR) + " --json";
    for (const json& argument : expected["command"])
        arguments += " " + quoted(argument.get<std::string>());
    const ToolRun run = runTool(arguments, file.parent_path().string());
    const json answer = run.json();
    ASSERT_FALSE(answer.is_discarded()) << arguments << "\nprinted no JSON:\n" << run.out;
    for (const auto& [key, value] : expected["answer"].items()) {
        EXPECT_EQ(answer.value(key, json()), value) << file.filename() << ": key " << key;
    }
    EXPECT_EQ(run.status, documentedExit(answer)) << file.filename();
}

std::string testName(const testing::TestParamInfo<fs::path>& info)
{
    std::string name = fs::relative(info.param, fs::path(QZC_SOURCE_DIR) / "examples").string();
    name = name.substr(0, name.size() - std::string(".expected.json").size());
    for (char& c : name) {
        if (!std::isalnum(static_cast<unsigned char>(c)))
            c = '_';
    }
    return name + "_" + std::to_string(info.index);
}

INSTANTIATE_TEST_SUITE_P(Bundled, Examples, testing::ValuesIn(expectedFiles()), testName);

}  // namespace
