#include "QZCAccountFile.h"

#include "QZCUtility.h"

void QZCAccountFile::SetXBRLPropertyInfo(const std::string& corporateName, const std::string& fiscalYearFrom,
                                         const std::string& fiscalYearTo)
{
    m_properties = {corporateName, fiscalYearFrom, fiscalYearTo};
}

void QZCAccountFile::SetAccountBook2List(std::vector<QZCAccountBook2> books)
{
    m_vBooks = std::move(books);
}

std::string QZCAccountFile::GetXBRLTypes() const
{
    std::string types;
    for (size_t i = 0; i < m_vBooks.size(); ++i) {
        types += (i == 0 ? "" : ",") + m_vBooks[i].GetBookTypeID();
    }
    return types.empty() ? "-" : types;
}

void QZCAccountFile::SetResultInfo(const std::string& fileName, int64_t checkResult, const std::string& xbrlType,
                                   const std::string& styleVersion, const std::string& corporateName,
                                   const std::string& fiscalYearFrom, const std::string& fiscalYearTo,
                                   const std::string& genericCSV, const std::string& detailErrorInfo)
{
    m_result = {checkResult, fileName, xbrlType, styleVersion, corporateName, fiscalYearFrom,
                fiscalYearTo, genericCSV, detailErrorInfo};
}

void QZCAccountFile::setCategory(int64_t checkResult, const std::string& styleVersion,
                                 const std::string& genericCSV, const std::string& detail)
{
    SetResultInfo(m_strCSVFileName, checkResult, GetXBRLTypes(), styleVersion, m_properties.corporateName,
                  m_properties.fiscalYearFrom, m_properties.fiscalYearTo, genericCSV, detail);
}

void QZCAccountFile::setCategoryTakingErrors(int64_t checkResult, const std::string& styleVersion,
                                             const std::string& genericCSV)
{
    setCategory(checkResult, styleVersion, genericCSV, QZCUtility::GetError());
    QZCUtility::ClearErrorInfo();
}

void QZCAccountFile::SetCompleteResultInfo(const std::string& styleVersion)
{
    setCategory(QZICheckComplete, styleVersion, std::string(), std::string());
}

void QZCAccountFile::SetIncompleteResultInfo(const std::string& styleVersion)
{
    setCategoryTakingErrors(QZICheckIncomplete, styleVersion, m_strGenericCSV);
}

void QZCAccountFile::SetInconsistencyResultInfo(const std::string& styleVersion)
{
    setCategoryTakingErrors(QZICheckInconsistent, styleVersion, m_strGenericCSV);
}

void QZCAccountFile::SetInconsistencyResultInfo(const std::string& styleVersion, const std::string& detail)
{
    setCategory(QZICheckInconsistent, styleVersion, m_strGenericCSV, detail);
    QZCUtility::ClearErrorInfo();
}

void QZCAccountFile::SetFormatErrorResultInfo(const std::string& styleVersion)
{
    setCategoryTakingErrors(QZICheckFormatError, styleVersion, std::string());
}
