#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Platform services: files and folders, Shift_JIS text, dates, UTF-16
// counting and trimming, resource paths. Texts are UTF-8; a null pointer
// counts as a missing text.
class QZCMacOSNative {
public:
    virtual ~QZCMacOSNative() = default;

    static std::string homeDirectory();
    static std::string getBundlePath();
    static std::string getBundlePathName(const char* resourceName);

    static bool pathFileExists(const char* path);
    static bool pathDirectoryExists(const char* path, bool parent);
    static uint64_t getFileSize(const char* path);
    // The largest file the readers take (about 682 MiB): its text, at most
    // three UTF-8 bytes per Shift_JIS byte, stays within a 32-bit length, as
    // the field storage of a detail file and the character routines count.
    static constexpr uint64_t kMaxReadableFileSize = INT32_MAX / 3;
    // The file is readable by the current user and, when it is a regular
    // file, not larger than the readers take: a larger one is refused from
    // its size, before any of it is read.
    static bool pathFileIsRead(const char* path);
    static std::string readSJISFile(const char* path);
    static bool writeSJISFile(const char* path, const std::string& text, bool utf8);

    static std::string dateTimeNow(const char* datePattern, const char* timePattern);
    static bool dateTimeChange(const char* text);
    static int rangeDate(const char* date, const char* lower, const char* upper, bool bothRequired);

    static uint64_t getStringLength(const char* text, uint64_t index);
    static uint64_t getCharacterLength(const char* text);
    static std::string subStringWithCharacterLength(const char* text, uint64_t start, uint64_t count);
    static bool isAllMultiByteString(const char* text);
    static int isNumberString(const char* text, bool exponentAllowed);

    static std::string appendFilePath(const char* base, const char* component);
    static std::string stringByTrimming(const std::string& text);
    // The part of the text that stringByTrimming keeps, without copying it.
    static std::string_view viewByTrimming(std::string_view text);
    static std::string characterByTrimming(const char* text, bool utf8);
    static std::string getLastPathComponent(const char* path, bool withExtension);
    static std::string getPathExtension(const char* path);
    static bool getFilesUnderFolder(const char* folder, std::vector<std::string>& files);

    // Asks for huge pages for the whole 2 MiB blocks inside a large buffer:
    // the first touch of every 4 KiB page costs a fault, and on a virtual
    // machine a fault can cost microseconds, more than filling the page.
    static void adviseHugePages(const void* data, size_t size);

    // Shift_JIS (Windows code page 932) conversion. Both fail with nullopt on
    // bytes or characters that have no form in the other encoding.
    static std::optional<std::string> sjisToUtf8(const std::string& bytes);
    static std::optional<std::string> utf8ToSjis(const std::string& text);
};

// Milliseconds since the epoch, as the platform date formatters give them.
using QZCDate = double;

// Reads a date in the Gregorian ("2020/04/01", "2020-04-01 10:20:30") or the
// era form ("令和元年5月1日"); strict, the whole text must match.
std::optional<QZCDate> dateStringToDate(const char* text);
// Creates the cached formatter of that index (0 to 3) if it does not exist yet.
void createDateFormatter(int index);
