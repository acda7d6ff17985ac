#include "QZCValidRange.h"

#include "QZCDOMParser.h"

bool QZCValidRange::SetDefinition(QZCDOMParser& parser, const std::string& itemId)
{
    const char* label = "QZCValidRange::SetDefinition";
    if (!defineWith(parser, itemId, label, false, [this](QZCDOMParser& content) {
            m_nMin = LeadingInt(content.GetAttribute("min"));
            m_nMax = LeadingInt(content.GetAttribute("max"));
        })) {
        return false;
    }
    // A range that no value can meet is a fault of the definition.
    return m_nMin <= m_nMax || definitionFault(label);
}

bool QZCValidRange::DoCheck(const std::string& value)
{
    const int number = LeadingInt(value);
    return judge(m_nMin <= number && number <= m_nMax, "QZCValidRange::DoCheck",
                 "読み込んだCSVファイルの値が有効な範囲を超えています。");
}
