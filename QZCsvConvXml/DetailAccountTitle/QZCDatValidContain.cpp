#include "QZCDatValidContain.h"

#include <algorithm>

void QZCDatValidContain::SetParam(const std::string& list)
{
    m_vecWords = SplitWords(list);
}

QZCDatMessage_t QZCDatValidContain::_validate(const std::string& value)
{
    if (m_vecWords.empty()) {
        ThrowParamError("QZCDatValidContain::_validate");
    }
    if (value.empty() || std::find(m_vecWords.begin(), m_vecWords.end(), value) != m_vecWords.end()) {
        return MSG_NONE;
    }
    return Fail("QZCDatValidContain::_validate", MSG_HQZ9620E);
}
