#include "QZCValidDateType.h"

#include <regex>

#include "QZCDOMParser.h"
#include "QZCValidCalender.h"

bool QZCValidDateType::SetDefinition(QZCDOMParser& parser, const std::string& itemId)
{
    return defineWith(parser, itemId, "QZCValidDateType::SetDefinition", false, [this](QZCDOMParser& content) {
        m_bCalendarCheck = content.GetAttribute("type") == "IncludeCalChk";
    });
}

bool QZCValidDateType::DoCheck(const std::string& value)
{
    static const std::regex pattern("^[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]$");
    if (!std::regex_match(value, pattern)) {
        return judge(false, "QZCValidDateType::DoCheck", "日付の値がデータ型(Date)のパターンと一致しません");
    }
    return judge(!m_bCalendarCheck || QZCValidCalender::IsExistDate(value), "QZCValidCalender::IsExistDate",
                 "読み込んだCSVファイルに存在しない年月日が入力されています。");
}
