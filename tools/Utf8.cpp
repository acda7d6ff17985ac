#include "Utf8.h"

#include <cstdio>

#include <unicode/utf8.h>

namespace {

constexpr size_t kShownCharacters = 60;

}  // namespace

void forEachCharacter(const std::string& text, const CharacterVisitor& visit)
{
    const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
    const auto length = static_cast<int32_t>(text.size());
    size_t line = 1;
    size_t column = 1;
    for (int32_t at = 0; at < length;) {
        const int32_t start = at;
        UChar32 codePoint;
        U8_NEXT(bytes, at, length, codePoint);
        if (!visit(std::string_view(text.data() + start, static_cast<size_t>(at - start)), codePoint, line, column))
            return;
        const bool lineEnd = codePoint == '\n' || (codePoint == '\r' && (at == length || bytes[at] != '\n'));
        line += lineEnd ? 1 : 0;
        column = lineEnd ? 1 : column + 1;
    }
}

std::string validUtf8(const std::string& bytes)
{
    std::string text;
    text.reserve(bytes.size());
    forEachCharacter(bytes, [&](std::string_view character, int32_t codePoint, size_t, size_t) {
        text += codePoint < 0 ? std::string_view("\xEF\xBF\xBD") : character;
        return true;
    });
    return text;
}

std::string shownValue(const std::string& value)
{
    std::string shown;
    size_t count = 0;
    forEachCharacter(value, [&](std::string_view character, int32_t codePoint, size_t, size_t) {
        if (++count > kShownCharacters) {
            shown += "…";
            return false;
        }
        if (codePoint < 0) {
            shown += "\xEF\xBF\xBD";
        } else if (codePoint < 0x20 || codePoint == 0x7F) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\x%02X", static_cast<unsigned>(codePoint));
            shown += escaped;
        } else {
            shown += character;
        }
        return true;
    });
    return shown;
}
