#pragma once

#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "Explain.h"

// The single-input commands: each runs one operation of the library and
// answers with one JSON object whose layout the answer schema describes:
// the result object's properties under their own names, and beside them
// the command and its arguments, the verdict ("clean", "findings" or
// "failed"), Valid, a Summary of counts, the Entries and the Hints.
struct Invocation {
    std::string command;
    std::vector<std::string> arguments;
    // report -o: the file the report XML goes to.
    std::string output;
    // --name: the file name a CSV file on standard input is checked under.
    std::string inputName;
    Language language = Language::Japanese;
};

// A command that cannot run as given: the tool exits with 2.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Runs xbrl, detail, detail2, appended, write or report.
Json runCommand(const Invocation& invocation);

// The path of file i of a financial statements answer: inside the folder
// that was checked, or the checked file itself.
std::string statementsFile(const Json& answer, size_t index);

// 0 for an answer with nothing found, 1 for anything found or failed.
int exitStatus(const Json& answer);

// Prints an answer as indented JSON; bytes that are not UTF-8 (a Shift_JIS
// file name, say) become U+FFFD, so printing never fails.
void printJson(std::ostream& out, const Json& answer);

// The version of the answer layout, as the schema file names it.
inline constexpr const char* kSchemaVersion = "1.1";
