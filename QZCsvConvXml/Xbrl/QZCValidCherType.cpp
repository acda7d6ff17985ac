#include "QZCValidCherType.h"

#include <unicode/unistr.h>

#include "QZCDOMParser.h"
#include "QZCUtility.h"

bool QZCValidCherType::SetDefinition(QZCDOMParser& parser, const std::string& itemId)
{
    return defineWith(parser, itemId, "QZCValidCherType::SetDefinition", true, [this](QZCDOMParser& content) {
        const std::string type = content.GetAttribute("charType");
        m_bAlphabet = m_bAlphabet || type == "ALPHABET";
        m_bNumber = m_bNumber || type == "NUMBER";
        m_bUnderScore = m_bUnderScore || type == "UNDERSCORE";
        m_bHyphen = m_bHyphen || type == "HYPHEN";
        m_bZenkaku = m_bZenkaku || type == "ZENKAKUCHAR";
    });
}

bool QZCValidCherType::DoCheck(const std::string& value)
{
    const icu::UnicodeString text = icu::UnicodeString::fromUTF8(value);
    bool passed = true;
    for (int32_t i = 0; i < text.length() && passed; ++i) {
        const char16_t unit = text.charAt(i);
        passed = (m_bAlphabet && QZCUtility::IsAlphabetChar(unit)) || (m_bNumber && QZCUtility::IsNumber(unit))
                 || (m_bUnderScore && QZCUtility::IsUnderScore(unit)) || (m_bHyphen && QZCUtility::IsHyphen(unit))
                 || (m_bZenkaku && QZCUtility::IsZenkakuChar(unit));
    }
    return judge(passed, "QZCValidCherType::DoCheck", "読み込んだCSVファイルに使用できない文字が含まれています。");
}
