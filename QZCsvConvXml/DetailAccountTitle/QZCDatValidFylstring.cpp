#include "QZCDatValidFylstring.h"

int QZCDatValidFylstring::validate(const std::string& value)
{
    return static_cast<int>(_validate(value));
}

QZCDatMessage_t QZCDatValidFylstring::_validate(const std::string& value)
{
    if (QZCUtility::IsFylaAvailableString(value.c_str())) {
        return MSG_NONE;
    }
    return Fail("QZCDatValidFylstring::_validate", MSG_HQZ9310E);
}
