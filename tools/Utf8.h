#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

// UTF-8 text as the tool shows it: file data and file names may hold any bytes.

// The text with every byte that is not part of a valid UTF-8 sequence
// replaced by U+FFFD.
std::string validUtf8(const std::string& bytes);

// A value of a file as an entry shows it: valid UTF-8, control characters
// as \xNN, at most 60 characters with "…" after a cut.
std::string shownValue(const std::string& value);

// Calls visit for every character of the text with its bytes, its code
// point (-1 for a byte that starts no valid sequence) and its 1-based line
// and column (CR, LF and CR LF end a line); visit returns false to stop.
using CharacterVisitor = std::function<bool(std::string_view bytes, int32_t codePoint, size_t line, size_t column)>;
void forEachCharacter(const std::string& text, const CharacterVisitor& visit);
