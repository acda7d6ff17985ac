#include "QZCDatValidAlnum2.h"

namespace {

bool IsPrintableAsciiOrLineEnd(char c)
{
    return (c >= 0x20 && c <= 0x7E) || c == '\n' || c == '\r';
}

}  // namespace

QZCDatMessage_t QZCDatValidAlnum2::_validate(const std::string& value)
{
    if (IsAllBytes(value, IsPrintableAsciiOrLineEnd, false)) {
        return MSG_NONE;
    }
    return Fail("QZCDatValidAlnum2::_validate", MSG_HQZ9620E);
}
