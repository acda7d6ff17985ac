#include "QZCDatValidEmpty.h"

QZCDatMessage_t QZCDatValidEmpty::_validate(const std::string& value)
{
    if (value.empty()) {
        return MSG_NONE;
    }
    return Fail("QZCDatValidEmpty::_validate", MSG_HQZ9610E);
}
