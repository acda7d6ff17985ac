#include "QZCDatValidExtension.h"

#include <algorithm>

#include "QZCUtility.h"

void QZCDatValidExtension::SetParam(const std::string& list)
{
    m_vecExtensions = SplitWords(list);
}

QZCDatMessage_t QZCDatValidExtension::_validate(const std::string& value)
{
    if (m_vecExtensions.empty()) {
        ThrowParamError("QZCDatValidExtension::_validate");
    }
    if (value.empty()) {
        return MSG_NONE;
    }
    const size_t point = value.rfind('.');
    if (point != std::string::npos) {
        const std::string extension = QZCUtility::AsciiLower(value.substr(point));
        if (std::find(m_vecExtensions.begin(), m_vecExtensions.end(), extension) != m_vecExtensions.end()) {
            return MSG_NONE;
        }
    }
    return Fail("QZCDatValidExtension::_validate", MSG_HQZ9370E);
}
