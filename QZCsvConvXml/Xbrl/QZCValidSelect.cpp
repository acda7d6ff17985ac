#include "QZCValidSelect.h"

#include <algorithm>

#include "QZCDOMParser.h"

bool QZCValidSelect::SetDefinition(QZCDOMParser& parser, const std::string& itemId)
{
    return defineWith(parser, itemId, "QZCValidSelect::SetDefinition", true,
                      [this](QZCDOMParser& content) { m_vValues.push_back(content.GetAttribute("value")); });
}

bool QZCValidSelect::DoCheck(const std::string& value)
{
    const bool passed = std::find(m_vValues.begin(), m_vValues.end(), value) != m_vValues.end();
    return judge(passed, "QZCValidSelect::DoCheck", "読み込んだCSVファイルの値設定に誤りがあります。");
}
