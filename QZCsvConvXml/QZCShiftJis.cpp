#include "QZCShiftJis.h"

#include <cstdio>
#include <iterator>
#include <memory>

#include <sys/stat.h>

#include <unicode/ucnv.h>

#include "QZCFileAccess.h"
#include "QZCFileWriter.h"

namespace {

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

// Each converter is opened once per thread, since a converter keeps state
// while it converts, and reset before every use.
UConverter* shiftJis()
{
    static thread_local const std::unique_ptr<UConverter, ConverterCloser> converter = openConverter(kShiftJisConverter);
    if (converter)
        ucnv_reset(converter.get());
    return converter.get();
}

UConverter* utf8()
{
    static thread_local const std::unique_ptr<UConverter, ConverterCloser> converter = openConverter("UTF-8");
    if (converter)
        ucnv_reset(converter.get());
    return converter.get();
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

}  // namespace

std::optional<std::string> QZCShiftJis::sjisToUtf8(const std::string& bytes)
{
    SjisDecoder decoder;
    std::string text;
    text.reserve(expectedUtf8Size(bytes.size()));
    if (!decoder.ready() || !decoder.append(bytes.data(), bytes.size(), true, text))
        return std::nullopt;
    return text;
}

std::optional<std::string> QZCShiftJis::utf8ToSjis(const std::string& text)
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

std::string QZCShiftJis::readSJISFile(const char* path)
{
    constexpr size_t kMaxBytes = QZCFileAccess::kMaxReadableFileSize;
    FILE* file = path && *path ? std::fopen(path, "rb") : nullptr;
    if (!file)
        return "";
    SjisDecoder decoder;
    std::string text;
    struct stat status;
    if (::fstat(::fileno(file), &status) == 0 && S_ISREG(status.st_mode)) {
        // A file too large to hold is refused from its size, unread.
        if (static_cast<size_t>(status.st_size) > kMaxBytes) {
            std::fclose(file);
            return "";
        }
        text.reserve(expectedUtf8Size(static_cast<size_t>(status.st_size)));
    }
    QZCFileAccess::adviseHugePages(text.data(), text.capacity());
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

bool QZCShiftJis::writeSJISFile(const char* path, const std::string& text, bool utf8)
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
