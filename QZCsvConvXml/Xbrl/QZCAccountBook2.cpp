#include "QZCAccountBook2.h"

#include <memory>

#include "QZCKamokuCodeListCSV.h"
#include "QZCLog.h"
#include "QZCUtility.h"

QZCAccountBook2::QZCAccountBook2()
{
    initBookType2Prefix();
}

void QZCAccountBook2::InitMembers()
{
    QZCAccountBook::InitMembers();
    m_vAccountItems2.clear();
}

bool QZCAccountBook2::SetElementName()
{
    try {
        const auto found = m_mapBookType2Prefix.find(m_strBookTypeName);
        if (found == m_mapBookType2Prefix.end()) {
            QZCUtility::AddOtherExceptionErrorInfo();
            QZC_LOG("QZCAccountBook2::SetElementName", "和名変換プロパティからの情報取得に失敗しました。");
            return false;
        }
        m_strElementName = found->second;
        return true;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCAccountBook2::SetElementName", QZCLog::kUnexpected);
        return false;
    }
}

bool QZCAccountBook2::SetDataWithProperty(const QZCKamokuCodeListCSV& codeList)
{
    try {
        if (!SetElementName()) {
            return false;
        }
        const auto& pattern = QZCAccountItem2::originalCodePattern();
        bool ok = true;
        for (QZCAccountItem2& item : m_vAccountItems2) {
            item.setRegex(pattern);
            ok = item.SetAttrFromKamokuListProperty(m_strBookTypeID, codeList) && ok;
        }
        return ok;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCAccountBook2::SetDataWithProperty", QZCLog::kUnexpected);
        return false;
    }
}

bool QZCAccountBook2::SetAccountItems(std::vector<QZCAccountItem2> items)
{
    try {
        m_vAccountItems2 = std::move(items);
        return SetLayerPathToAccountItems();
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCAccountBook2::SetAccountItems", QZCLog::kUnexpected);
        return false;
    }
}

bool QZCAccountBook2::SetLayerPathToAccountItems()
{
    try {
        for (QZCAccountItem2& item : m_vAccountItems2) {
            item.SetLayerPath(std::string());
        }
        return true;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCAccountBook2::SetLayerPathToAccountItems", QZCLog::kUnexpected);
        return false;
    }
}
