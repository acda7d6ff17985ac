#include "QZCDatValidRange2.h"

QZCDatMessage_t QZCDatValidRange2::_validate(const std::string& value)
{
    const bool decimal = value.find('.') != std::string::npos || m_strMin.find('.') != std::string::npos ||
                         m_strMax.find('.') != std::string::npos;
    return _validate(value, decimal);
}
