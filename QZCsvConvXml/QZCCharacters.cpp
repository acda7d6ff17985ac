#include "QZCCharacters.h"

#include <algorithm>
#include <optional>

#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include "QZCShiftJis.h"
#include "QZCUtility.h"

uint64_t QZCCharacters::getStringLength(const char* text, uint64_t index)
{
    if (!text)
        return 0;
    const auto* bytes = reinterpret_cast<const uint8_t*>(text);
    uint64_t unit = 0;
    for (int32_t i = 0; bytes[i] != 0;) {
        int32_t start = i;
        UChar32 c;
        U8_NEXT(bytes, i, -1, c);
        if (c < 0)
            c = 0xFFFD;
        uint64_t units = static_cast<uint64_t>(U16_LENGTH(c));
        if (index < unit + units)
            return units == 1 ? static_cast<uint64_t>(i - start) : 0;  // half a surrogate pair has no UTF-8 form
        unit += units;
    }
    return 0;
}

uint64_t QZCCharacters::getCharacterLength(const char* text)
{
    if (!text)
        return 0;
    const auto* bytes = reinterpret_cast<const uint8_t*>(text);
    uint64_t units = 0;
    for (int32_t i = 0; bytes[i] != 0;) {
        if (bytes[i] < 0x80) {
            ++i;
            ++units;
            continue;
        }
        UChar32 c;
        U8_NEXT(bytes, i, -1, c);
        units += c > 0xFFFF ? 2 : 1;
    }
    return units;
}

std::string QZCCharacters::subStringWithCharacterLength(const char* text, uint64_t start, uint64_t count)
{
    icu::UnicodeString unicodeText = icu::UnicodeString::fromUTF8(QZCUtility::OrEmpty(text));
    uint64_t length = static_cast<uint64_t>(unicodeText.length());
    if (length <= start)
        return QZCUtility::OrEmpty(text);
    uint64_t n = std::min(length - start, count);
    if (n == 0)
        return "";
    std::string result;
    return unicodeText.tempSubString(static_cast<int32_t>(start), static_cast<int32_t>(n)).toUTF8String(result);
}

bool QZCCharacters::isAllMultiByteString(const char* text)
{
    if (!text)
        return true;
    for (const char* p = text; *p; ++p)
        if (static_cast<unsigned char>(*p) < 0x80)
            return false;
    return true;
}

int QZCCharacters::isNumberString(const char* text, bool exponentAllowed)
{
    bool valid = false;
    int result = -3;
    bool signPending = false;
    bool pointSeen = false;
    bool exponentSeen = false;
    char previous = '\0';
    const char* p = text ? text : "";
    for (size_t position = 0; p[position] != '\0'; ++position) {
        char c = p[position];
        bool last = p[position + 1] == '\0';
        if (static_cast<unsigned char>(c) >= 0x80)
            return -1;
        if (c >= '0' && c <= '9') {
            if (!exponentSeen || signPending) {
                valid = true;
                signPending = false;
            }
            if (!valid) {
                result = -3;  // a digit straight after the exponent letter
                break;
            }
            result = 0;
        } else if (c == '+' || c == '-') {
            if (last || !(position == 0 || previous == 'E' || previous == 'e')) {
                valid = false;
                break;
            }
            signPending = true;
        } else if (c == '.') {
            if (pointSeen || exponentSeen || signPending) {
                valid = false;
                break;
            }
            pointSeen = true;
        } else if ((c == 'E' || c == 'e') && exponentAllowed && !exponentSeen && previous >= '0' && previous <= '9') {
            exponentSeen = true;
            valid = false;
        } else {
            valid = false;
            result = -2;
            break;
        }
        previous = c;
    }
    if (valid)
        return result;
    return result != 0 ? result : -3;
}

std::string QZCCharacters::stringByTrimming(const std::string& text)
{
    const std::string_view kept = viewByTrimming(text);
    return kept.size() == text.size() ? text : std::string(kept);
}

std::string_view QZCCharacters::viewByTrimming(std::string_view text)
{
    const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
    int32_t length = static_cast<int32_t>(text.size());
    int32_t begin = 0;
    while (begin < length) {
        int32_t next = begin;
        UChar32 c;
        U8_NEXT(bytes, next, length, c);
        if (c < 0 || !u_isUWhiteSpace(c))
            break;
        begin = next;
    }
    int32_t end = length;
    while (end > begin) {
        int32_t previous = end;
        UChar32 c;
        U8_PREV(bytes, begin, previous, c);
        if (c < 0 || !u_isUWhiteSpace(c))
            break;
        end = previous;
    }
    return text.substr(static_cast<size_t>(begin), static_cast<size_t>(end - begin));
}

std::string QZCCharacters::characterByTrimming(const char* text, bool utf8)
{
    if (!text)
        return "";
    if (utf8)
        return stringByTrimming(text);
    std::optional<std::string> decoded = QZCShiftJis::sjisToUtf8(text);
    if (!decoded)
        return "";
    std::optional<std::string> encoded = QZCShiftJis::utf8ToSjis(stringByTrimming(*decoded));
    return encoded ? *encoded : std::string();
}
