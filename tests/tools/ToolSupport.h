#pragma once

#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

// The tool as a script runs it. Every answer printed with --json is held to
// the answer schema: one that does not match it fails the test.
struct ToolRun {
    int status = -1;
    std::string out;
    std::string err;
    nlohmann::json json() const { return nlohmann::json::parse(out, nullptr, false); }
};

// Runs "qzcsvconv ARGUMENTS" through the shell, in folder when one is given
// and with the variable settings of environment; the arguments may
// redirect standard input.
ToolRun runTool(const std::string& arguments, const std::string& folder = "", const std::string& environment = "");

// Whether a JSON answer matches the answer schema, naming what does not.
testing::AssertionResult matchesAnswerSchema(const nlohmann::json& answer);

std::string quoted(const std::string& text);
