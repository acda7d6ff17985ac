#include "QZCDatValidLength.h"

#include "QZCUtility.h"

void QZCDatValidLength::SetParam(const std::string& length, const std::string& max)
{
    m_strLength = length;
    m_strMax = max;
}

QZCDatMessage_t QZCDatValidLength::_validate(const std::string& value)
{
    const char* label = "QZCDatValidLength::_validate";
    if (m_strLength.empty() == m_strMax.empty()) {
        ThrowParamError(label);
    }
    if (value.empty()) {
        return MSG_NONE;
    }
    if (!m_strLength.empty()) {
        const int64_t length = QZCUtility::LeadingInteger(m_strLength);
        return static_cast<int64_t>(value.size()) == length ? MSG_NONE : Fail(label, MSG_HQZ9620E);
    }
    return value.find('.') != std::string::npos ? _validateDecimal(value) : _validateInteger(value);
}

QZCDatMessage_t QZCDatValidLength::_validateInteger(const std::string& value)
{
    const int64_t limit = QZCUtility::LeadingInteger(m_strMax);
    // 16 places hold at most 15 digits and a sign.
    const bool signRequired = m_strMax.find('.') != std::string::npos || limit == 16;
    if (FitsPlaces(value, value.size(), static_cast<size_t>(limit < 0 ? 0 : limit), signRequired)) {
        return MSG_NONE;
    }
    return Fail("QZCDatValidLength::_validateInteger", MSG_HQZ9620E);
}

QZCDatMessage_t QZCDatValidLength::_validateDecimal(const std::string& value)
{
    const size_t maxPoint = m_strMax.find('.');
    const int64_t places = QZCUtility::LeadingInteger(m_strMax.substr(0, maxPoint));
    const int64_t decimals = maxPoint == std::string::npos ? 0 : QZCUtility::LeadingInteger(m_strMax.substr(maxPoint + 1));
    const size_t point = value.rfind('.');
    const size_t fraction = value.size() - point - 1;
    if (fraction <= static_cast<size_t>(decimals < 0 ? 0 : decimals) &&
        FitsPlaces(value, point, static_cast<size_t>(places < 0 ? 0 : places), true)) {
        return MSG_NONE;
    }
    return Fail("QZCDatValidLength::_validateDecimal", MSG_HQZ9620E);
}

bool QZCDatValidLength::FitsPlaces(const std::string& value, size_t length, size_t limit, bool signRequiredAtLimit)
{
    if (length != limit) {
        return length < limit;
    }
    return !signRequiredAtLimit || StartsWithSign(value);
}
