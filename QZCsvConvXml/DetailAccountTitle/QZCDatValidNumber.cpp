#include "QZCDatValidNumber.h"

QZCDatMessage_t QZCDatValidNumber::_validate(const std::string& value)
{
    if (IsAllBytes(value, IsDigitOrLineEnd, true)) {
        return MSG_NONE;
    }
    return Fail("QZCDatValidNumber::_validate", MSG_HQZ9620E);
}
