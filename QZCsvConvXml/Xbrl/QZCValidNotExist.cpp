#include "QZCValidNotExist.h"

#include "QZCDOMParser.h"

bool QZCValidNotExist::SetDefinition(QZCDOMParser& parser, const std::string& itemId)
{
    return defineWith(parser, itemId, "QZCValidNotExist::SetDefinition", false, nullptr);
}

bool QZCValidNotExist::DoCheck(const std::string& value)
{
    return judge(value.empty(), "QZCValidNotExist::DoCheck", "読み込んだCSVファイルに不要な値が存在しています。");
}
