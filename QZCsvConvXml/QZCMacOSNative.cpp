#include "QZCMacOSNative.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <unicode/calendar.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include "QZCFileWriter.h"
#include "QZCLoadResource.h"

namespace {

std::string str(const char* text)
{
    return text ? std::string(text) : std::string();
}

// The Windows code page 932 table: keeps 0x5C and 0x7E as backslash and
// tilde and maps the NEC and IBM extensions that accounting software writes.
constexpr const char* kShiftJisConverter = "ibm-943_P15A-2003";

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};

// Conversions stop at the first unmappable or invalid sequence instead of
// substituting replacement characters.
std::unique_ptr<UConverter, ConverterCloser> openConverter(const char* name)
{
    UErrorCode status = U_ZERO_ERROR;
    UConverter* opened = ucnv_open(name, &status);
    if (U_FAILURE(status))
        return std::unique_ptr<UConverter, ConverterCloser>();
    ucnv_setToUCallBack(opened, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setFromUCallBack(opened, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    return std::unique_ptr<UConverter, ConverterCloser>(opened);
}

// Each converter is opened once and reset before every use.
UConverter* shiftJis()
{
    static const std::unique_ptr<UConverter, ConverterCloser> converter = openConverter(kShiftJisConverter);
    if (converter)
        ucnv_reset(converter.get());
    return converter.get();
}

UConverter* utf8()
{
    static const std::unique_ptr<UConverter, ConverterCloser> converter = openConverter("UTF-8");
    if (converter)
        ucnv_reset(converter.get());
    return converter.get();
}

bool statPath(const char* path, struct stat& info)
{
    return path && *path && ::stat(path, &info) == 0;
}

// Shift_JIS to UTF-8 fed in pieces, written a chunk at a time straight into
// the text: a large file costs one buffer of its UTF-8 size. A character
// split between two pieces waits in the converter for the next one.
class SjisDecoder {
public:
    bool ready() const { return m_source && m_target; }
    // False on bytes that are not Shift_JIS.
    bool append(const char* in, size_t size, bool last, std::string& text);

private:
    UConverter* m_source = shiftJis();
    UConverter* m_target = utf8();
    UChar m_pivot[1024];
    UChar* m_pivotSource = m_pivot;
    UChar* m_pivotTarget = m_pivot;
    bool m_first = true;
};

bool SjisDecoder::append(const char* in, size_t size, bool last, std::string& text)
{
    const char* const end = in + size;
    for (;;) {
        char chunk[65536];
        char* out = chunk;
        UErrorCode status = U_ZERO_ERROR;
        ucnv_convertEx(m_target, m_source, &out, chunk + sizeof chunk, &in, end, m_pivot, &m_pivotSource,
                       &m_pivotTarget, m_pivot + std::size(m_pivot), m_first, last, &status);
        m_first = false;
        text.append(chunk, static_cast<size_t>(out - chunk));
        if (status != U_BUFFER_OVERFLOW_ERROR)
            return U_SUCCESS(status);
    }
}

// Japanese text grows by half (two Shift_JIS bytes, three UTF-8 bytes),
// ASCII not at all.
size_t expectedUtf8Size(size_t sjisSize)
{
    return sjisSize + sjisSize / 2;
}

// Cached date formatters, created on first use.
std::unique_ptr<icu::SimpleDateFormat> gDateTimeFormat[4];

icu::SimpleDateFormat* dateFormatter(int index)
{
    createDateFormatter(index);
    return gDateTimeFormat[index].get();
}

std::optional<QZCDate> parseDate(int index, const std::string& text)
{
    icu::SimpleDateFormat* formatter = dateFormatter(index);
    if (!formatter)
        return std::nullopt;
    icu::UnicodeString unicodeText = icu::UnicodeString::fromUTF8(text);
    icu::ParsePosition position(0);
    UDate date = formatter->parse(unicodeText, position);
    if (position.getErrorIndex() >= 0 || position.getIndex() != unicodeText.length())
        return std::nullopt;
    return date;
}

void replaceAll(std::string& text, const std::string& from, const std::string& to)
{
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

// Compares a date with one bound: 0 equal, 1 date later, 2 date earlier.
int compareDates(QZCDate date, QZCDate bound)
{
    return date == bound ? 0 : (date > bound ? 1 : 2);
}

size_t lastSeparator(const std::string& path)
{
    return path.find_last_of('/');
}

// Removes trailing separators except a lone root "/".
std::string withoutTrailingSeparators(std::string path)
{
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

}  // namespace

void createDateFormatter(int index)
{
    // Year, month, day (and hour, minute, second) in the Gregorian and the era
    // calendar. Month, day and time fields take one or two digits ("2020/4/1")
    // while the calendar stays strict ("2020/02/30" is refused); ICU would
    // demand exactly two digits for "MM" and "dd" in strict mode.
    static const char* const patterns[4] = {"yyyy/M/d", "yyyy/M/d H:m:s", "GGy/M/d", "GGy/M/d H:m:s"};
    if (index < 0 || index > 3 || gDateTimeFormat[index])
        return;
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale locale(index < 2 ? "ja_JP" : "ja_JP@calendar=japanese");
    auto formatter = std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString(patterns[index], -1, US_INV), locale, status);
    if (U_FAILURE(status))
        return;
    formatter->setLenient(false);
    // A calendar date is judged on its own: in a local zone a day whose
    // midnight was skipped by summer time would not exist.
    formatter->setTimeZone(*icu::TimeZone::getGMT());
    gDateTimeFormat[index] = std::move(formatter);
}

std::optional<QZCDate> dateStringToDate(const char* text)
{
    if (!text)
        return std::nullopt;
    std::string value = text;
    if (value.find_first_not_of("1234567890/:.- ") == std::string::npos) {
        std::replace(value.begin(), value.end(), '-', '/');
        std::replace(value.begin(), value.end(), '.', '/');
        return parseDate(value.find(':') != std::string::npos ? 1 : 0, value);
    }
    replaceAll(value, "元", "01");
    replaceAll(value, "年", "/");
    replaceAll(value, "月", "/");
    replaceAll(value, "日", "");
    return parseDate(value.find(':') != std::string::npos ? 3 : 2, value);
}

std::string QZCMacOSNative::homeDirectory()
{
    if (const char* home = std::getenv("HOME"); home && *home)
        return home;
    if (const passwd* user = ::getpwuid(::getuid()); user && user->pw_dir)
        return user->pw_dir;
    return "";
}

std::string QZCMacOSNative::getBundlePath()
{
    return QZCLoadResource().getBundlePath();
}

std::string QZCMacOSNative::getBundlePathName(const char* resourceName)
{
    return QZCLoadResource().getPathName(resourceName);
}

bool QZCMacOSNative::pathFileExists(const char* path)
{
    struct stat info;
    return statPath(path, info) && !S_ISDIR(info.st_mode);
}

bool QZCMacOSNative::pathDirectoryExists(const char* path, bool parent)
{
    if (!path || !*path)
        return false;
    std::string folder = path;
    if (parent) {
        folder = withoutTrailingSeparators(folder);
        size_t separator = lastSeparator(folder);
        if (separator == std::string::npos)
            folder = ".";
        else
            folder = separator == 0 ? "/" : folder.substr(0, separator);
    }
    struct stat info;
    return statPath(folder.c_str(), info) && S_ISDIR(info.st_mode);
}

uint64_t QZCMacOSNative::getFileSize(const char* path)
{
    struct stat info;
    return statPath(path, info) ? static_cast<uint64_t>(info.st_size) : UINT64_MAX;
}

bool QZCMacOSNative::pathFileIsRead(const char* path)
{
    struct stat info;
    return path && *path && ::access(path, R_OK) == 0 &&
           !(statPath(path, info) && S_ISREG(info.st_mode) &&
             static_cast<uint64_t>(info.st_size) > kMaxReadableFileSize);
}

void QZCMacOSNative::adviseHugePages(const void* data, size_t size)
{
    constexpr uintptr_t kHugePage = uintptr_t{2} << 20;
    const auto start = reinterpret_cast<uintptr_t>(data);
    const uintptr_t begin = (start + kHugePage - 1) & ~(kHugePage - 1);
    const uintptr_t end = (start + size) & ~(kHugePage - 1);
    if (end > begin)
        ::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
}

std::optional<std::string> QZCMacOSNative::sjisToUtf8(const std::string& bytes)
{
    SjisDecoder decoder;
    std::string text;
    text.reserve(expectedUtf8Size(bytes.size()));
    if (!decoder.ready() || !decoder.append(bytes.data(), bytes.size(), true, text))
        return std::nullopt;
    return text;
}

std::optional<std::string> QZCMacOSNative::utf8ToSjis(const std::string& text)
{
    UConverter* converter = shiftJis();
    if (!converter)
        return std::nullopt;
    // Every UTF-8 sequence becomes at most two Shift_JIS bytes.
    std::string bytes(text.size() * 2 + 1, '\0');
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = ucnv_fromAlgorithmic(converter, UCNV_UTF8, bytes.data(), static_cast<int32_t>(bytes.size()),
                                          text.data(), static_cast<int32_t>(text.size()), &status);
    if (U_FAILURE(status))
        return std::nullopt;
    bytes.resize(static_cast<size_t>(length));
    return bytes;
}

std::string QZCMacOSNative::readSJISFile(const char* path)
{
    constexpr size_t kMaxBytes = kMaxReadableFileSize;
    FILE* file = path && *path ? std::fopen(path, "rb") : nullptr;
    if (!file)
        return "";
    SjisDecoder decoder;
    std::string text;
    struct stat status;
    if (::fstat(::fileno(file), &status) == 0 && S_ISREG(status.st_mode) &&
        static_cast<size_t>(status.st_size) <= kMaxBytes)
        text.reserve(expectedUtf8Size(static_cast<size_t>(status.st_size)));
    adviseHugePages(text.data(), text.capacity());
    // The file is decoded as it is read instead of being held whole first.
    char buffer[65536];
    size_t total = 0;
    bool ok = decoder.ready();
    for (size_t got; ok && (got = std::fread(buffer, 1, sizeof buffer, file)) > 0;) {
        total += got;
        ok = total <= kMaxBytes && decoder.append(buffer, got, false, text);
    }
    ok = ok && !std::ferror(file) && decoder.append(buffer, 0, true, text);
    std::fclose(file);
    if (!ok)
        return "";
    if (size_t nul = text.find('\0'); nul != std::string::npos)
        text.resize(nul);
    return text;
}

bool QZCMacOSNative::writeSJISFile(const char* path, const std::string& text, bool utf8)
{
    std::optional<std::string> bytes;
    if (utf8)
        bytes = utf8ToSjis(text);
    else if (sjisToUtf8(text))
        bytes = text;
    // Data without a Shift_JIS form: a new file is created empty, an existing
    // one keeps its content.
    return bytes ? QZCFileWriter::Write(path, *bytes) : QZCFileWriter::CreateEmpty(path);
}

std::string QZCMacOSNative::dateTimeNow(const char* datePattern, const char* timePattern)
{
    std::string pattern = str(datePattern);
    std::string time = str(timePattern);
    if (!pattern.empty() && !time.empty())
        pattern += ' ';
    pattern += time;
    if (pattern.empty())
        return "";
    UErrorCode status = U_ZERO_ERROR;
    icu::SimpleDateFormat formatter(icu::UnicodeString::fromUTF8(pattern), icu::Locale("ja_JP"), status);
    if (U_FAILURE(status))
        return "";
    icu::UnicodeString formatted;
    formatter.format(icu::Calendar::getNow(), formatted);
    std::string result;
    return formatted.toUTF8String(result);
}

bool QZCMacOSNative::dateTimeChange(const char* text)
{
    return dateStringToDate(text).has_value();
}

int QZCMacOSNative::rangeDate(const char* date, const char* lower, const char* upper, bool bothRequired)
{
    std::optional<QZCDate> value = dateStringToDate(date);
    if (!value)
        return -2;
    bool hasLower = lower && *lower;
    bool hasUpper = upper && *upper;
    std::optional<QZCDate> from = dateStringToDate(lower);
    if ((bothRequired || hasLower) && !from)
        return -3;
    std::optional<QZCDate> to = dateStringToDate(upper);
    if (!bothRequired && !hasLower && !hasUpper)
        return -5;
    if ((bothRequired || hasUpper) && !to)
        return -4;
    int lowerPart = hasLower || bothRequired ? compareDates(*value, *from) : 0x0F;
    int upperPart = hasUpper || bothRequired ? compareDates(*value, *to) * 16 : 0xF0;
    return lowerPart + upperPart;
}

uint64_t QZCMacOSNative::getStringLength(const char* text, uint64_t index)
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

uint64_t QZCMacOSNative::getCharacterLength(const char* text)
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

std::string QZCMacOSNative::subStringWithCharacterLength(const char* text, uint64_t start, uint64_t count)
{
    icu::UnicodeString unicodeText = icu::UnicodeString::fromUTF8(str(text));
    uint64_t length = static_cast<uint64_t>(unicodeText.length());
    if (length <= start)
        return str(text);
    uint64_t n = std::min(length - start, count);
    if (n == 0)
        return "";
    std::string result;
    return unicodeText.tempSubString(static_cast<int32_t>(start), static_cast<int32_t>(n)).toUTF8String(result);
}

bool QZCMacOSNative::isAllMultiByteString(const char* text)
{
    if (!text)
        return true;
    for (const char* p = text; *p; ++p)
        if (static_cast<unsigned char>(*p) < 0x80)
            return false;
    return true;
}

int QZCMacOSNative::isNumberString(const char* text, bool exponentAllowed)
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

std::string QZCMacOSNative::appendFilePath(const char* base, const char* component)
{
    if (!base)
        return "";
    std::string joined = withoutTrailingSeparators(base);
    std::string tail = str(component);
    size_t skip = tail.find_first_not_of('/');
    tail = skip == std::string::npos ? std::string() : tail.substr(skip);
    if (tail.empty())
        return joined;
    if (joined.empty())
        return tail;
    if (joined.back() != '/')
        joined += '/';
    return joined + tail;
}

std::string QZCMacOSNative::stringByTrimming(const std::string& text)
{
    const std::string_view kept = viewByTrimming(text);
    return kept.size() == text.size() ? text : std::string(kept);
}

std::string_view QZCMacOSNative::viewByTrimming(std::string_view text)
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

std::string QZCMacOSNative::characterByTrimming(const char* text, bool utf8)
{
    if (!text)
        return "";
    if (utf8)
        return stringByTrimming(text);
    std::optional<std::string> decoded = sjisToUtf8(text);
    if (!decoded)
        return "";
    std::optional<std::string> encoded = utf8ToSjis(stringByTrimming(*decoded));
    return encoded ? *encoded : std::string();
}

std::string QZCMacOSNative::getLastPathComponent(const char* path, bool withExtension)
{
    std::string trimmed = withoutTrailingSeparators(str(path));
    size_t separator = lastSeparator(trimmed);
    std::string name = separator == std::string::npos || trimmed == "/" ? trimmed : trimmed.substr(separator + 1);
    if (withExtension)
        return name;
    size_t dot = name.find_last_of('.');
    return dot == std::string::npos || dot == 0 ? name : name.substr(0, dot);
}

std::string QZCMacOSNative::getPathExtension(const char* path)
{
    std::string name = getLastPathComponent(path, true);
    size_t dot = name.find_last_of('.');
    return dot == std::string::npos || dot == 0 ? std::string() : name.substr(dot + 1);
}

bool QZCMacOSNative::getFilesUnderFolder(const char* folder, std::vector<std::string>& files)
{
    files.clear();
    DIR* directory = folder && *folder ? ::opendir(folder) : nullptr;
    if (!directory)
        return false;
    bool ok = true;
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(directory);
        if (!entry) {
            ok = errno == 0;
            break;
        }
        std::string name = entry->d_name;
        if (name == "." || name == ".." || name == ".DS_Store")
            continue;
        std::string path = appendFilePath(folder, name.c_str());
        struct stat info;
        if (::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode))
            continue;
        files.push_back(path);
    }
    ::closedir(directory);
    std::sort(files.begin(), files.end());
    return ok;
}
