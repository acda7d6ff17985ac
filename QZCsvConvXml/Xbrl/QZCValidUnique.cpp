#include "QZCValidUnique.h"

#include "QZCDOMParser.h"

bool QZCValidUnique::SetDefinition(QZCDOMParser& parser, const std::string& itemId)
{
    return defineWith(parser, itemId, "QZCValidUnique::SetDefinition", false, nullptr);
}

bool QZCValidUnique::DoCheckLine(const Line& line, int row)
{
    SetTargetRow(row);
    const bool first = m_mapFirstRows.emplace(line.at(static_cast<size_t>(m_nColumnIdx)), row).second;
    return judge(first, "QZCValidUnique::DoCheckLine", "読み込んだCSVファイルの値が重複しています。");
}
