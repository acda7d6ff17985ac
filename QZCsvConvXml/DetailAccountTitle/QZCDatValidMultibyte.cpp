#include "QZCDatValidMultibyte.h"

#include "QZCMacOSNative.h"

QZCDatMessage_t QZCDatValidMultibyte::_validate(const std::string& value)
{
    if (QZCMacOSNative::isAllMultiByteString(value.c_str())) {
        return MSG_NONE;
    }
    return Fail("QZCDatValidMultibyte::_validate", MSG_HQZ9620E);
}
