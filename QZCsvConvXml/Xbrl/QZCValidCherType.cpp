#include "QZCValidCherType.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

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
    // UTF-16 units decoded on the fly; both units of a surrogate pair lie
    // above U+007F, so the lead unit stands for the pair.
    const auto* bytes = reinterpret_cast<const uint8_t*>(value.data());
    const auto length = static_cast<int32_t>(value.size());
    bool passed = true;
    for (int32_t i = 0; i < length && passed;) {
        UChar32 c;
        U8_NEXT(bytes, i, length, c);
        const char16_t unit = c < 0 ? u'\uFFFD' : c > 0xFFFF ? U16_LEAD(c) : static_cast<char16_t>(c);
        passed = (m_bAlphabet && QZCUtility::IsAlphabetChar(unit)) || (m_bNumber && QZCUtility::IsNumber(unit))
                 || (m_bUnderScore && QZCUtility::IsUnderScore(unit)) || (m_bHyphen && QZCUtility::IsHyphen(unit))
                 || (m_bZenkaku && QZCUtility::IsZenkakuChar(unit));
    }
    return judge(passed, "QZCValidCherType::DoCheck", "読み込んだCSVファイルに使用できない文字が含まれています。");
}
