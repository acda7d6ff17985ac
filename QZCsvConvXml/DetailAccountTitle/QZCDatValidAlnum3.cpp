#include "QZCDatValidAlnum3.h"

#include <algorithm>

namespace {

bool IsDigitLineEndOrHyphen(char c)
{
    return (c >= '0' && c <= '9') || c == '\n' || c == '\r' || c == '-';
}

}  // namespace

QZCDatMessage_t QZCDatValidAlnum3::_validate(const std::string& value)
{
    if (IsAllBytes(value, IsDigitLineEndOrHyphen, false) && std::count(value.begin(), value.end(), '-') <= 1) {
        return MSG_NONE;
    }
    return Fail("QZCDatValidAlnum3::_validate", MSG_HQZ9620E);
}
