// Shift_JIS decoding and encoding. A decoded text encodes again, and the
// encoded form decodes to the same text.
#include "FuzzSupport.h"
#include "QZCMacOSNative.h"

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string bytes = Bytes(data, size);
    if (const auto text = QZCMacOSNative::sjisToUtf8(bytes)) {
        const auto encoded = QZCMacOSNative::utf8ToSjis(*text);
        Require(encoded.has_value());
        const auto decoded = QZCMacOSNative::sjisToUtf8(*encoded);
        Require(decoded.has_value() && *decoded == *text);
    }
    // The same bytes taken as UTF-8 text.
    if (const auto encoded = QZCMacOSNative::utf8ToSjis(bytes)) {
        const auto decoded = QZCMacOSNative::sjisToUtf8(*encoded);
        Require(decoded.has_value() && QZCMacOSNative::utf8ToSjis(*decoded) == encoded);
    }
    return 0;
}
