#include "QZCAccountItem.h"

#include "QZCLog.h"
#include "QZCUtility.h"

namespace {

bool IsNumericItemType(const std::string& type)
{
    for (const char* numeric :
         {"xbrli:monetaryItemType", "xbrli:sharesItemType", "xbrli:pureItemType", "xbrli:decimalItemType",
          "xbrli:nonNegativeIntegerItemType", "xbrli:integerItemType", "jpfr-fyla-dt:perShareItemType"}) {
        if (type == numeric) {
            return true;
        }
    }
    return false;
}

}  // namespace

void QZCAccountItem::InitializeMember()
{
    *this = QZCAccountItem();
}

bool QZCAccountItem::SetCsvData(const Line& line, int rowNo)
{
    try {
        const std::string& type = line.at(2);
        m_nRowNo = rowNo;
        m_nLayerNo = static_cast<int>(QZCUtility::LeadingInteger(line.at(3)));
        m_strSubjectId = line.at(4);
        m_strSubjectName = line.at(0);
        m_strParentSbjId.clear();
        m_strContent = line.at(1);
        m_strElementName = m_strSubjectId;
        m_bAbstract = type == TYPE_TITLE;
        if (type == TYPE_MONETARY) {
            m_strItemType = "xbrli:monetaryItemType";
        } else if (type == TYPE_STRING || type == TYPE_TITLE) {
            m_strItemType = "xbrli:stringItemType";
        } else {
            m_strItemType = type.empty() ? "EMPTY" : "INVALID_TYPE";
        }
        m_strNameSpace = QZC_XBRL_NAMESPACE_URI;
        m_bOriginalSubject = false;
        return true;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCAccountItem::SetCsvData", QZCLog::kUnexpected);
        return false;
    }
}

void QZCAccountItem::SetChild(const QZCAccountItem& item)
{
    m_vChildren.push_back(item);
}

std::string QZCAccountItem::GetContent() const
{
    if (m_strContent.empty() && IsNumericItemType(m_strItemType)) {
        return "0";
    }
    return m_strContent;
}

void QZCAccountItem::SetLayerPath(const std::string& parentPath)
{
    m_strLayerPath = parentPath + "/" + m_strSubjectName;
    for (QZCAccountItem& child : m_vChildren) {
        child.SetLayerPath(m_strLayerPath);
    }
}
