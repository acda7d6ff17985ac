#pragma once

#include <optional>
#include <string>

// Shift_JIS text as the library reads and writes it: the Windows code page
// 932 table, conversions that stop at the first byte or character without
// a form in the other encoding instead of substituting one.
class QZCShiftJis {
public:
    // nullopt on bytes or characters that have no form in the other encoding.
    static std::optional<std::string> sjisToUtf8(const std::string& bytes);
    static std::optional<std::string> utf8ToSjis(const std::string& text);
    // The whole file decoded into UTF-8, cut at a NUL; "" when it cannot be
    // opened or is not Shift_JIS.
    static std::string readSJISFile(const char* path);
    // Writes the text (UTF-8 when utf8, else Shift_JIS) as Shift_JIS through
    // the file writer; text without a Shift_JIS form leaves an existing file
    // as it was and creates a new one empty.
    static bool writeSJISFile(const char* path, const std::string& text, bool utf8);
};
