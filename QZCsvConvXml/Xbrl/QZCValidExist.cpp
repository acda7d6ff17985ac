#include "QZCValidExist.h"

#include "QZCDOMParser.h"

bool QZCValidExist::SetDefinition(QZCDOMParser& parser, const std::string& itemId)
{
    return defineWith(parser, itemId, "QZCValidExist::SetDefinition", false,
                      [this](QZCDOMParser& content) { m_strValue = content.GetAttribute("value"); });
}

bool QZCValidExist::DoCheck(const std::string& value)
{
    if (value.empty()) {
        return judge(false, "QZCValidExist::DoCheck", "値が設定されていません。");
    }
    return judge(m_strValue == "ANYVALUE" || value == m_strValue, "QZCValidExist::DoCheck",
                 "読み込んだCSVファイルに設定されている値が正しくありません。");
}
