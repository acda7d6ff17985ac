#pragma once

#include <string>
#include <vector>

#include "Explain.h"

// check PATH...: every detail statement, appended table and statements
// folder of a filing, each recognised by its file name and checked by the
// single-input command its form and version belong to, in worker processes
// (the library keeps process-wide state). The answers keep the order of
// the inputs and are identical to those of the single-input commands.
struct CheckOptions {
    std::vector<std::string> paths;  // "-": a list of paths on standard input
    unsigned jobs = 0;               // 0: one per core
    bool json = false;
    Language language = Language::Japanese;
};

// The check's answer: Command "check", Verdict, Valid, a Summary of the
// inputs and one answer per input under Answers.
Json runCheck(const CheckOptions& options);
