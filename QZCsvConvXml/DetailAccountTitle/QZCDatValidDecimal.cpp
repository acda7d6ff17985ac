#include "QZCDatValidDecimal.h"

namespace {

// The number of points is left to the checks that read the number.
bool IsDigitLineEndOrPoint(char c)
{
    return (c >= '0' && c <= '9') || c == '\n' || c == '\r' || c == '.';
}

}  // namespace

QZCDatMessage_t QZCDatValidDecimal::_validate(const std::string& value)
{
    if (IsAllBytes(value, IsDigitLineEndOrPoint, true)) {
        return MSG_NONE;
    }
    return Fail("QZCDatValidDecimal::_validate", MSG_HQZ9620E);
}
