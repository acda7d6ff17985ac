#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Characters of UTF-8 texts: lengths and positions counted in UTF-16 code
// units, trimming of the Unicode white space set, number syntax.
class QZCCharacters {
public:
    // UTF-8 bytes of the character at that UTF-16 index; 0 beyond the text.
    static uint64_t getStringLength(const char* text, uint64_t index);
    static uint64_t getCharacterLength(const char* text);
    // count characters from start; the whole text when it has at most start.
    static std::string subStringWithCharacterLength(const char* text, uint64_t start, uint64_t count);
    // No ASCII character; true for the empty text.
    static bool isAllMultiByteString(const char* text);
    // 0 a number, -1 a multi-byte character, -2 a character no number holds
    // (or an exponent where none is allowed), -3 an ill-formed number.
    static int isNumberString(const char* text, bool exponentAllowed);

    static std::string stringByTrimming(const std::string& text);
    // The part of the text that stringByTrimming keeps, without copying it.
    static std::string_view viewByTrimming(std::string_view text);
    // The text trimmed in its own encoding (UTF-8 when utf8, else Shift_JIS).
    static std::string characterByTrimming(const char* text, bool utf8);
};
