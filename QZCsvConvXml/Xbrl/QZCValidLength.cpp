#include "QZCValidLength.h"

#include "QZCDOMParser.h"
#include "QZCMacOSNative.h"

bool QZCValidLength::SetDefinition(QZCDOMParser& parser, const std::string& itemId)
{
    return defineWith(parser, itemId, "QZCValidLength::SetDefinition", false, [this](QZCDOMParser& content) {
        m_nLength = LeadingInt(content.GetAttribute("length"));
        m_strType = content.GetAttribute("type");
    });
}

bool QZCValidLength::DoCheck(const std::string& value)
{
    const uint64_t count = QZCMacOSNative::getCharacterLength(value.c_str());
    const uint64_t length = static_cast<uint64_t>(m_nLength);
    const bool passed = (m_strType == "MAX" && count <= length) || (m_strType == "FIX" && count == length);
    return judge(passed, "QZCValidLength::DoCheck", "値が有効な桁数を超えています。");
}
