#include "QZCDatValidAlnum.h"

QZCDatMessage_t QZCDatValidAlnum::_validate(const std::string& value)
{
    if (IsAllBytes(value, IsDigitOrLineEnd, false)) {
        return MSG_NONE;
    }
    return Fail("QZCDatValidAlnum::_validate", MSG_HQZ9620E);
}
