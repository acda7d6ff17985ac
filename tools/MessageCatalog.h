#pragma once

#include <string>

// What an error code means, in Japanese or English, for people reading the
// tool's report. The library itself only delivers codes.
enum class Language { Japanese, English };

std::string messageFor(const std::string& code, Language language);

// Whether the catalogue knows the code (every code the library can emit).
bool hasMessage(const std::string& code);
