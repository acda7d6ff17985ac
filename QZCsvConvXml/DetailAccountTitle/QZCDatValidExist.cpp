#include "QZCDatValidExist.h"

QZCDatMessage_t QZCDatValidExist::_validate(const std::string& value)
{
    if (!value.empty()) {
        return MSG_NONE;
    }
    return Fail("QZCDatValidExist::_validate", MSG_HQZ9210E);
}
