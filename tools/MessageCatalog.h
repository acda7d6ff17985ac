#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "QZIFormLayout.h"

// What the tool says to people, in Japanese or English: the meaning of every
// error code (the library itself only delivers codes), the rules of a form
// in words and the names of the columns whose meaning is fixed.
enum class Language { Japanese, English };

// A text of the tool in both languages.
struct Text {
    const char* ja;
    const char* en;
    const char* operator()(Language language) const { return language == Language::English ? en : ja; }
};

// Codes of the tool's own findings, outside the range the library uses.
inline constexpr const char* kReportNotWellFormed = "QZT0100E";
inline constexpr const char* kNotShiftJis = "QZT0200E";
inline constexpr const char* kNulByte = "QZT0210E";
inline constexpr const char* kEmptyFile = "QZT0300E";
inline constexpr const char* kUnreadableFile = "QZT0310E";
inline constexpr const char* kSpecialFile = "QZT0320E";
inline constexpr const char* kTooLargeFile = "QZT0330E";
inline constexpr const char* kNoShiftJisForm = "QZT0400E";
inline constexpr const char* kNotUtf8 = "QZT0410E";
inline constexpr const char* kUnknownForm = "QZT0500E";
inline constexpr const char* kNoAnswer = "QZT0600E";

std::string messageFor(const std::string& code, Language language);

// Whether the catalogue knows the code (every code the library can emit).
bool hasMessage(const std::string& code);

// A check of a form definition in words, such as "at most 30 characters",
// without its conditions; and a condition on the field named label, such as
// "when 口座番号 is given".
std::string ruleInWords(const QZIFormLayout::Rule& rule, Language language);
std::string conditionInWords(const QZIFormLayout::Rule& condition, const std::string& label, Language language);

// The meaning of a column of a financial statements line, by its first field
// (A, B, C1, C2, a title line or an account line); "" for none.
std::string statementsColumn(const std::vector<std::string>& line, int column, Language language);

// The name of an argument of a detail operation by its number (1 the CSV
// file, 2 the definition folder, 3 the style version).
std::string argumentName(int64_t number, Language language);

// The field names of the first two columns of every detail record.
std::string frameColumn(int column, bool detailStatement, Language language);
