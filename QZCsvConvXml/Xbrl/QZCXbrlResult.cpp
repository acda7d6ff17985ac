#include "QZCXbrlResult.h"

void QZCXbrlResult::Initialize()
{
    Clear();
}

void QZCXbrlResult::Clear()
{
    m_strResult.clear();
    m_strDetailErrorInfo.clear();
    m_vResults.clear();
}

void QZCXbrlResult::AddResultInfo(const std::string& fileName, int64_t checkResult, const std::string& xbrlType,
                                  const std::string& styleVersion, const std::string& corporateName,
                                  const std::string& fiscalYearFrom, const std::string& fiscalYearTo,
                                  const std::string& genericCSV, const std::string& detailErrorInfo)
{
    m_vResults.push_back({checkResult, fileName, xbrlType, styleVersion, corporateName, fiscalYearFrom,
                          fiscalYearTo, genericCSV, detailErrorInfo});
}

std::string QZCXbrlResult::field(int64_t i, std::string _XBRLRESULTINFO::*member) const
{
    if (i < 0 || i >= GetCsvFileCount()) {
        return std::string();
    }
    return m_vResults[static_cast<size_t>(i)].*member;
}

int64_t QZCXbrlResult::GetCheckResult(int64_t i) const
{
    if (i < 0 || i >= GetCsvFileCount()) {
        return -1;
    }
    return m_vResults[static_cast<size_t>(i)].checkResult;
}

std::string QZCXbrlResult::GetFileName(int64_t i) const { return field(i, &_XBRLRESULTINFO::fileName); }
std::string QZCXbrlResult::GetXbrlType(int64_t i) const { return field(i, &_XBRLRESULTINFO::xbrlType); }
std::string QZCXbrlResult::GetStyleVersion(int64_t i) const { return field(i, &_XBRLRESULTINFO::styleVersion); }
std::string QZCXbrlResult::GetCorporateName(int64_t i) const { return field(i, &_XBRLRESULTINFO::corporateName); }
std::string QZCXbrlResult::GetFiscalYearFrom(int64_t i) const { return field(i, &_XBRLRESULTINFO::fiscalYearFrom); }
std::string QZCXbrlResult::GetFiscalYearTo(int64_t i) const { return field(i, &_XBRLRESULTINFO::fiscalYearTo); }
std::string QZCXbrlResult::GetGenericCSV(int64_t i) const { return field(i, &_XBRLRESULTINFO::genericCSV); }
std::string QZCXbrlResult::GetDetailErrorInfo(int64_t i) const { return field(i, &_XBRLRESULTINFO::detailErrorInfo); }
