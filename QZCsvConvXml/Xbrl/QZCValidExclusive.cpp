#include "QZCValidExclusive.h"

#include <algorithm>

#include "QZCDOMParser.h"

bool QZCValidExclusive::SetDefinition(QZCDOMParser& parser, const std::string& itemId)
{
    return defineWith(parser, itemId, "QZCValidExclusive::SetDefinition", true,
                      [this](QZCDOMParser& content) { m_mapSeen[content.GetAttribute("value")] = false; });
}

bool QZCValidExclusive::DoCheck(const std::string& value)
{
    const auto found = m_mapSeen.find(value);
    if (found == m_mapSeen.end()) {
        return true;
    }
    const bool anySeen = std::any_of(m_mapSeen.begin(), m_mapSeen.end(), [](const auto& entry) { return entry.second; });
    found->second = true;
    return judge(!anySeen, "QZCValidExclusive::DoCheck",
                 "読み込んだCSVファイルの財務諸表種別に同時に設定できない値があります。");
}
