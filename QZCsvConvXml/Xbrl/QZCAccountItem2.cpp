#include "QZCAccountItem2.h"

#include "QZCKamokuCodeListCSV.h"
#include "QZCLog.h"
#include "QZCUtility.h"

namespace {

constexpr size_t kTupleColumn = 4;
constexpr size_t kSubstitutionGroupColumn = 7;

}  // namespace

void QZCAccountItem2::InitializeMember()
{
    *this = QZCAccountItem2();
}

const std::shared_ptr<const QZCRegex>& QZCAccountItem2::originalCodePattern()
{
    static const std::shared_ptr<const QZCRegex> pattern = std::make_shared<const QZCRegex>(kOriginalCodePattern);
    return pattern;
}

void QZCAccountItem2::SetChild(QZCAccountItem2 item, bool& added)
{
    m_vChildren2.push_back(std::move(item));
    added = true;
}

bool QZCAccountItem2::SetAttrFromKamokuListProperty(const std::string& kindCode,
                                                    const QZCKamokuCodeListCSV& codeList)
{
    try {
        bool ok = true;
        std::vector<std::string> row;
        if (codeList.GetRow(kindCode, m_strSubjectId, row)) {
            m_bOriginalSubject = false;
            m_bTuple = row.at(kTupleColumn) == "tuple";
            if (m_bTuple && m_strItemType == "xbrli:stringItemType") {
                m_strItemType.clear();
            }
            m_strRequiredSubject = row.at(kSubstitutionGroupColumn);
        } else {
            m_bOriginalSubject = true;
            std::string prefix;
            if (!m_strSubjectId.empty()
                && !(getKamokuCode(m_strSubjectId, prefix) && codeList.GetRow(kindCode, prefix, row))) {
                QZCUtility::AddCsvErrorInfo(m_nRowNo, 5, "HQZ9700E");
                ok = false;
            }
        }
        for (QZCAccountItem2& child : m_vChildren2) {
            child.SetInnerTuple(m_bTuple || m_bInnerTuple);
            child.setRegex(m_pRegex);
            ok = child.SetAttrFromKamokuListProperty(kindCode, codeList) && ok;
        }
        return ok;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCAccountItem2::SetAttrFromKamokuListProperty", QZCLog::kUnexpected);
        return false;
    }
}

bool QZCAccountItem2::getKamokuCode(const std::string& code, std::string& prefix) const
{
    if (!m_pRegex) {
        return false;
    }
    std::vector<std::string> groups;
    if (!QZCRegex::rgx(*m_pRegex, code, groups) || groups.size() < 2) {
        return false;
    }
    prefix = groups[1];
    return true;
}

void QZCAccountItem2::noticeBookTypeID(const std::string& kindCode)
{
    m_strElementName = kindCode + m_strSubjectId;
    for (QZCAccountItem2& child : m_vChildren2) {
        child.noticeBookTypeID(kindCode);
    }
}
