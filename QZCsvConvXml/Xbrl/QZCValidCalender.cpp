#include "QZCValidCalender.h"

#include "QZCDOMParser.h"
#include "QZCMacOSNative.h"

bool QZCValidCalender::SetDefinition(QZCDOMParser& parser, const std::string& itemId)
{
    return defineWith(parser, itemId, "QZCValidCalender::SetDefinition", false, nullptr);
}

bool QZCValidCalender::IsExistDate(const std::string& value)
{
    return QZCMacOSNative::dateTimeChange(value.c_str());
}

bool QZCValidCalender::DoCheck(const std::string& value)
{
    return judge(IsExistDate(value), "QZCValidCalender::IsExistDate",
                 "読み込んだCSVファイルに存在しない年月日が入力されています。");
}
