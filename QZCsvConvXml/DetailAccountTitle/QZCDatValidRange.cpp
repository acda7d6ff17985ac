#include "QZCDatValidRange.h"

#include <cstdlib>

#include "QZCMacOSNative.h"

namespace {

struct SplitNumber {
    long long integer;
    double fraction;
};

SplitNumber SplitAtPoint(const std::string& text)
{
    const size_t point = text.find('.');
    const long long integer = std::strtoll(text.substr(0, point).c_str(), nullptr, 10);
    if (point == std::string::npos || point + 1 == text.size()) {
        return {integer, 0.0};
    }
    return {integer, std::strtod(("0." + text.substr(point + 1)).c_str(), nullptr)};
}

}  // namespace

void QZCDatValidRange::SetParam(const std::string& min, const std::string& max)
{
    m_strMin = min;
    m_strMax = max;
}

int QZCDatValidRange::CompareDouble(const std::string& a, const std::string& b)
{
    if (a.empty() || b.empty()) {
        return -1;
    }
    const double x = std::strtod(a.c_str(), nullptr);
    const double y = std::strtod(b.c_str(), nullptr);
    if (y > x) {
        return 1;
    }
    if (x > y) {
        return 2;
    }
    // Equal as doubles: compare the integer parts exactly, then the fractions
    // on their own, where the double has all its digits for them.
    const SplitNumber left = SplitAtPoint(a);
    const SplitNumber right = SplitAtPoint(b);
    if (left.integer != right.integer) {
        return left.integer < right.integer ? 1 : 2;
    }
    if (left.fraction == right.fraction) {
        return 0;
    }
    // Below zero the larger fraction is the smaller number.
    const bool negative = a[0] == '-';
    const bool leftLarger = left.fraction > right.fraction;
    return leftLarger != negative ? 2 : 1;
}

QZCDatMessage_t QZCDatValidRange::_validate(const std::string& value)
{
    return _validate(value, value.find('.') != std::string::npos);
}

QZCDatMessage_t QZCDatValidRange::_validate(const std::string& value, bool decimal)
{
    const char* label = "QZCDatValidRange::_validate";
    m_strUpdated = value;
    if (m_strMin.empty() || m_strMax.empty()) {
        ThrowParamError(label);
    }
    if (value.empty()) {
        return MSG_NONE;
    }
    if (QZCMacOSNative::isNumberString(value.c_str(), decimal) != 0) {
        return Fail(label, MSG_HQZ9620E);
    }
    if (QZCMacOSNative::isNumberString(m_strMin.c_str(), decimal) != 0 ||
        QZCMacOSNative::isNumberString(m_strMax.c_str(), decimal) != 0) {
        ThrowParamError(label);
    }
    bool inside = false;
    if (decimal) {
        if (CompareDouble(m_strMin, m_strMax) == 2) {
            ThrowParamError(label);
        }
        inside = CompareDouble(value, m_strMin) != 1 && CompareDouble(value, m_strMax) != 2;
    } else {
        // Integers by their leading decimal part, so a minimum of 0.5 counts as 0.
        const long long number = std::strtoll(value.c_str(), nullptr, 10);
        const long long min = std::strtoll(m_strMin.c_str(), nullptr, 10);
        const long long max = std::strtoll(m_strMax.c_str(), nullptr, 10);
        if (min > max) {
            ThrowParamError(label);
        }
        inside = min <= number && number <= max;
    }
    if (!inside) {
        return Fail(label, MSG_HQZ9620E);
    }
    if (value.size() >= 2 && value[0] == '+') {
        m_strUpdated = value.substr(1);
    }
    return MSG_NONE;
}

bool QZCDatValidRange::_updated(std::string& out, const std::string& value)
{
    out = m_strUpdated;
    return out != value;
}
