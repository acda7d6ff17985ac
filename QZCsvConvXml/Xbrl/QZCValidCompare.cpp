#include "QZCValidCompare.h"

#include <stdexcept>

#include "QZCDOMParser.h"

bool QZCValidCompare::SetDefinition(QZCDOMParser& parser, const std::string& itemId)
{
    return defineWith(parser, itemId, "QZCValidCompare::SetDefinition", true, [this](QZCDOMParser& content) {
        const bool smaller = content.GetAttribute("type") == "SMALLER";
        (smaller ? m_nSmallerKeyIdx : m_nLargerKeyIdx) = LeadingInt(content.GetAttribute("column")) - 1;
        (smaller ? m_strSmallerKey : m_strLargerKey) = content.GetAttribute("value");
    });
}

bool QZCValidCompare::DoCheckLine(const Line& line, int row)
{
    SetTargetRow(row);
    const std::string& value = line.at(static_cast<size_t>(m_nColumnIdx));
    if (value.size() < 8) {
        throw std::out_of_range("date too short");
    }
    const int date = LeadingInt(value.substr(0, 4) + value.substr(5, 2) + value.substr(8, 2));
    if (line.at(static_cast<size_t>(m_nSmallerKeyIdx)) == m_strSmallerKey) {
        m_nSmallerDate = date;
    }
    if (line.at(static_cast<size_t>(m_nLargerKeyIdx)) == m_strLargerKey) {
        m_nLargerDate = date;
    }
    const bool ordered = m_nSmallerDate == 0 || m_nLargerDate == 0 || m_nSmallerDate <= m_nLargerDate;
    return judge(ordered, "QZCValidCompare::DoCheckLine",
                 "読み込んだCSVファイルの事業年度（自）と事業年度（至）の設定に誤りがあります。");
}
