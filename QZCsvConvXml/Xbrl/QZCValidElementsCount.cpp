#include "QZCValidElementsCount.h"

#include "QZCDOMParser.h"
#include "QZCLog.h"
#include "QZCUtility.h"

bool QZCValidElementsCount::SetDefinition(QZCDOMParser& parser, const std::string& itemId)
{
    return defineWith(parser, itemId, "QZCValidElementsCount::SetDefinition", false,
                      [this](QZCDOMParser& content) { m_nCount = LeadingInt(content.GetAttribute("count")); });
}

bool QZCValidElementsCount::DoCheckLine(const Line& line, int row)
{
    SetTargetRow(row);
    if (line.size() == static_cast<size_t>(m_nCount)) {
        return true;
    }
    // The entry names the row only when asked to, and never a column.
    QZCUtility::AddCsvErrorInfo(m_bOutputRow ? std::to_string(row).c_str() : "0000", "00000", m_strErrorMsg.c_str());
    QZC_LOG("QZCValidElementsCount::DoCheckLine", "読み込んだCSVファイルの1行のカラム数が正しくありません。");
    return m_bContinue;
}
