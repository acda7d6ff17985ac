// Every bundled example against the answer written beside it.
//
// An example's answer is a file NAME.expected.json anywhere under examples/:
//   {
//     "command": ["detail2", "HOI010_4.0.csv", "4.0"],
//     "answer": {"Result": "S_OK", "Conformity": 1, "DetailErrorInfo": ""},
//     "exit": 0
//   }
// "command" is what follows `qzcsvconv --json`, with paths relative to the
// folder of the expected file; every key of "answer" must equal the same key
// of the tool's JSON; "exit", when given, is the exit status.
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <sys/wait.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "TestSupport.h"

namespace {

namespace fs = std::filesystem;

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

std::string quoted(const std::string& text)
{
    std::string out = "'";
    for (char c : text)
        out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

class Examples : public testing::TestWithParam<fs::path> {};

TEST_P(Examples, GiveTheirExpectedAnswer)
{
    const fs::path& file = GetParam();
    std::ifstream in(file);
    nlohmann::json expected = nlohmann::json::parse(in, nullptr, false);
    ASSERT_FALSE(expected.is_discarded()) << file << " is not JSON";
    ASSERT_TRUE(expected.contains("command") && expected.contains("answer")) << file;

    std::string command = "cd " + quoted(file.parent_path().string()) + " && " + QZC_TOOL + " --bundle "
                          + quoted(QZC_BUNDLE_DIR) + " --json";
    for (const nlohmann::json& argument : expected["command"])
        command += " " + quoted(argument.get<std::string>());
    command += " 2>/dev/null";

    std::string out;
    FILE* pipe = ::popen(command.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    char buffer[4096];
    for (size_t got; (got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        out.append(buffer, got);
    int status = ::pclose(pipe);

    nlohmann::json answer = nlohmann::json::parse(out, nullptr, false);
    ASSERT_FALSE(answer.is_discarded()) << command << "\nprinted no JSON:\n" << out;
    for (const auto& [key, value] : expected["answer"].items()) {
        EXPECT_EQ(answer.value(key, nlohmann::json()), value) << file.filename() << ": key " << key;
    }
    if (expected.contains("exit")) {
        EXPECT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, expected["exit"].get<int>()) << file.filename();
    }
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
