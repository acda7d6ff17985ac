#include "QZCErrorInfo.h"

#include <cstdio>

#include "QZCUtility.h"

namespace {

void padLeft(std::string& text, size_t width)
{
    if (text.size() < width)
        text.insert(0, width - text.size(), '0');
}

// The decimal number of at most 18 digits that fills the whole text.
bool parseNumber(std::string_view text, int64_t& value)
{
    if (text.empty() || text.size() > 18)
        return false;
    value = 0;
    for (char c : text) {
        if (c < '0' || c > '9')
            return false;
        value = value * 10 + (c - '0');
    }
    return true;
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

bool QZCErrorInfo::Parse(std::string_view entry, int64_t& line, int64_t& column, std::string& code)
{
    size_t first = entry.find('-');
    size_t second = first == std::string_view::npos ? first : entry.find('-', first + 1);
    if (second == std::string_view::npos || second + 1 == entry.size())
        return false;
    if (!parseNumber(entry.substr(0, first), line) || !parseNumber(entry.substr(first + 1, second - first - 1), column))
        return false;
    code = std::string(entry.substr(second + 1));
    return true;
}
