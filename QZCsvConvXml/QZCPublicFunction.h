#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// The library's own conventions on top of the platform services.
class QZCPublicFunction {
public:
    virtual ~QZCPublicFunction() = default;

    static std::string SpecialEncodingWork(const char* bytes, size_t length);
    static std::string SpecialEncoding(const std::string& text);
    static std::string Now(const char* datePattern, const char* timePattern);
    static std::string StringTrim(const std::string& text);
    static std::string CharacterTrim(const char* text, bool utf8);
    static std::string GetInifileString(const std::string& folder, const char* fileName,
                                        const char* section, const char* key);
    static std::string LoadResoucePath(uint16_t resourceNumber);
    static std::string GetBundlePath(const char* subFolder);
    static std::string GetBundlePath(uint16_t resourceNumber);
};

// Resource number of the financial statements resources of version V3.0.
constexpr uint16_t QZC_RESOURCE_XBRL_V30 = 1001;
