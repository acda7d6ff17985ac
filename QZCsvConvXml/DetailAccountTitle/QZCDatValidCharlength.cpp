#include "QZCDatValidCharlength.h"

#include "QZCMacOSNative.h"
#include "QZCUtility.h"

void QZCDatValidCharlength::SetParam(const std::string& max)
{
    m_strMax = max;
}

QZCDatMessage_t QZCDatValidCharlength::_validate(const std::string& value)
{
    if (m_strMax.empty()) {
        ThrowParamError("QZCDatValidCharlength::_validate");
    }
    if (_strcount(value) <= QZCUtility::LeadingInteger(m_strMax)) {
        return MSG_NONE;
    }
    return Fail("QZCDatValidCharlength::_validate", MSG_HQZ9620E);
}

int64_t QZCDatValidCharlength::_strcount(const std::string& value) const
{
    return static_cast<int64_t>(QZCMacOSNative::getCharacterLength(value.c_str()));
}
