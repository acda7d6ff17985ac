#include "QZCValidItem.h"

#include <algorithm>
#include <climits>
#include <memory>
#include <string>

#include "QZCDOMParser.h"
#include "QZCLog.h"
#include "QZCUtility.h"
#include "QZCValidCalender.h"
#include "QZCValidCherType.h"
#include "QZCValidCompare.h"
#include "QZCValidDateType.h"
#include "QZCValidElementsCount.h"
#include "QZCValidExclusive.h"
#include "QZCValidExist.h"
#include "QZCValidFylaString.h"
#include "QZCValidLength.h"
#include "QZCValidNotExist.h"
#include "QZCValidRange.h"
#include "QZCValidSelect.h"
#include "QZCValidUnique.h"

namespace {


template <typename T>
QZCValidItem* create()
{
    return new T();
}

struct Kind {
    const char* keyword;
    QZCValidItem* (*make)();
};

const Kind kKinds[] = {
    {"ELEMENTSCOUNT", create<QZCValidElementsCount>}, {"LENGTH", create<QZCValidLength>},
    {"CHARTYPE", create<QZCValidCherType>},           {"UNIQUE", create<QZCValidUnique>},
    {"EXIST", create<QZCValidExist>},                 {"SELECT", create<QZCValidSelect>},
    {"EXCLUSIVE", create<QZCValidExclusive>},         {"CALENDER", create<QZCValidCalender>},
    {"COMPARE", create<QZCValidCompare>},             {"RANGE", create<QZCValidRange>},
    {"NOTEXIST", create<QZCValidNotExist>},           {"FYLASTRING", create<QZCValidFylaString>},
    {"DATETYPE", create<QZCValidDateType>},
};

}  // namespace

bool QZCValidItem::DoCheckLine(const Line& line, int row)
{
    SetTargetRow(row);
    return DoCheck(line.at(static_cast<size_t>(m_nColumnIdx)));
}

bool QZCValidItem::DoCheck(const std::string&)
{
    return false;
}

int QZCValidItem::LeadingInt(const std::string& text)
{
    return static_cast<int>(std::min<int64_t>(QZCUtility::LeadingDigits(text), INT_MAX));
}

bool QZCValidItem::SetCommonInfo(QZCDOMParser& parser, const std::string& itemId)
{
    try {
        m_strItemId = itemId;
        m_strColumn = parser.GetAttribute("column");
        m_nColumnIdx = LeadingInt(m_strColumn) - 1;
        m_strErrorMsg = parser.GetAttribute("errorMsg");
        m_bContinue = parser.GetAttribute("continue") == "TRUE";
        m_bOutputRow = parser.GetAttribute("outputRow") == "TRUE";
        return true;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCValidItem::SetCommonInfo", QZCLog::kUnexpected);
        return false;
    }
}

bool QZCValidItem::defineWith(QZCDOMParser& parser, const std::string& itemId, const char* label,
                              bool allContents, const ContentReader& reader)
{
    try {
        if (!SetCommonInfo(parser, itemId)) {
            return false;
        }
        if (!reader) {
            return true;
        }
        // A kind with one parameter set cannot run without it.
        if (parser.MoveFirstChild() != 0) {
            return allContents || definitionFault(label);
        }
        if (!allContents && parser.GetNodeName() != "content") {
            parser.MoveParent();
            return definitionFault(label);
        }
        do {
            if (parser.GetNodeName() == "content") {
                reader(parser);
            }
        } while (allContents && parser.MoveNextSibling() == 0);
        parser.MoveParent();
        return true;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG(label, QZCLog::kUnexpected);
        return false;
    }
}

bool QZCValidItem::definitionFault(const char* label)
{
    QZCUtility::AddOtherExceptionErrorInfo();
    QZC_LOG(label, "定義体パラメータ指定エラー。");
    return false;
}

void QZCValidItem::addEntry(const char* line) const
{
    QZCUtility::AddCsvErrorInfo(line, m_strColumn.c_str(), m_strErrorMsg.c_str());
}

bool QZCValidItem::judge(bool passed, const char* label, const char* text)
{
    if (passed) {
        return true;
    }
    addEntry(std::to_string(m_nTargetRow).c_str());
    QZC_LOG(label, text);
    return m_bContinue;
}

QZCValidItem* QZCValidItem::CreateValidItem(QZCDOMParser& parser, const std::string& itemId)
{
    try {
        const std::string keyword = parser.GetAttribute("id");
        for (const Kind& kind : kKinds) {
            if (keyword == kind.keyword) {
                std::unique_ptr<QZCValidItem> item(kind.make());
                return item->SetDefinition(parser, itemId) ? item.release() : nullptr;
            }
        }
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCValidItem::CreateValidItem", "想定外エラーが発生しました。");
        return nullptr;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCValidItem::CreateValidItem", QZCLog::kUnexpected);
        return nullptr;
    }
}
