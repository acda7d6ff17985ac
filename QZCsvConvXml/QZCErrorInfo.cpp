#include "QZCErrorInfo.h"

#include <cstdio>

#include "QZCUtility.h"

namespace {

void padLeft(std::string& text, size_t width)
{
    if (text.size() < width)
        text.insert(0, width - text.size(), '0');
}

size_t decimalDigits(int64_t value)
{
    return std::to_string(value).size();
}

}  // namespace

void QZCErrorInfo::SetInfo(const char* line, const char* column, const char* code)
{
    m_strLine = line ? line : "";
    bool forceColumnZero = false;
    if (g_nRecordCount == 0) {
        // No record counted yet: an argument error cannot point at a line.
        if (m_strLine == "9999") {
            m_strLine = "0000";
            forceColumnZero = true;
        }
        padLeft(m_strLine, 4);
    } else if (m_strLine == "0") {
        m_strLine = "0000";
    } else if (m_strLine != "0000") {
        padLeft(m_strLine, decimalDigits(g_nRecordCount));
    }
    m_strColumn = forceColumnZero ? "00000" : (column ? column : "");
    padLeft(m_strColumn, 5);
    m_strCode = code ? code : "";
}

std::string QZCErrorInfo::GetErrorInfo() const
{
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%s-%s-%s", m_strLine.c_str(), m_strColumn.c_str(), m_strCode.c_str());
    return buffer;
}
