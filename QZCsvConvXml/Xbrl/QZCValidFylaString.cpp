#include "QZCValidFylaString.h"

#include "QZCDOMParser.h"
#include "QZCUtility.h"

bool QZCValidFylaString::SetDefinition(QZCDOMParser& parser, const std::string& itemId)
{
    return defineWith(parser, itemId, "QZCValidFylaString::SetDefinition", false, nullptr);
}

bool QZCValidFylaString::DoCheck(const std::string& value)
{
    return judge(QZCUtility::IsFylaAvailableString(value.c_str()), "QZCValidFylaString::DoCheck",
                 "読み込んだCSVファイルの文字コードがS-JISではありません。");
}
