#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "MessageCatalog.h"

using Json = nlohmann::json;

// Entries of an answer as a person needs them: the file, the place, the
// field with its value and the rule that failed, the code with its message.
// Field, value and rule are null where nothing names them.

// An entry at a line and column of a file: a cell, a whole line (column
// 0), the whole file (line 0) or an argument of the operation (line 9999).
Json makeEntry(const std::string& file, int64_t line, int64_t column, const std::string& code, Language language);

// The entries of a detail statement's or appended table's error text, with
// field names, values and rules from the form's definition.
std::vector<Json> explainDetail(const std::string& file, const std::string& csvPath, const std::string& styleVersion,
                                const std::string& errorInfo, Language language);

// The entries of a financial statements file's error text, with the meaning
// of each column and the value.
std::vector<Json> explainStatements(const std::string& file, const std::string& csvPath, const std::string& errorInfo,
                                    Language language);

// What the library's answer leaves silent about the bytes of a CSV file:
// entries for a file too large to read, text that is not Shift_JIS or holds
// a NUL byte, and a hint for a UTF-8 file with the command that converts it.
void inspectCsvBytes(const std::string& file, const std::string& path, Language language, std::vector<Json>& entries,
                     std::vector<std::string>& hints);

// Entries for the files of a statements folder that cannot be checked at
// all: empty, too large, unreadable or not regular files.
std::vector<Json> inspectFolder(const std::string& folder, Language language);

// Entries for the first characters of data to write that have no Shift_JIS
// form, or for the place where it stops being UTF-8.
std::vector<Json> inspectWriteData(const std::string& file, const std::string& data, Language language);

// The path quoted for a POSIX shell.
std::string shellQuoted(const std::string& path);
