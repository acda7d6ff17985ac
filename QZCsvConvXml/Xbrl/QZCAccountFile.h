#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "QZCAccountBook2.h"
#include "QZCFinancialStatementsCSV.h"
#include "QZCXbrlResult.h"

// Header values of a statements file: the "B", "C1" and "C2" lines.
struct XBRL_PROPERTIES {
    std::string corporateName;
    std::string fiscalYearFrom;
    std::string fiscalYearTo;
};

// One statements file while it is checked: its path, parsed lines, account
// books, header values and current result.
class QZCAccountFile {
public:
    void SetCSVFileName(const std::string& name) { m_strCSVFileName = name; }
    const std::string& GetCSVFileName() const { return m_strCSVFileName; }
    void SetCSVData(const std::string& text) { m_strGenericCSV = text; }
    void SetXBRLPropertyInfo(const std::string& corporateName, const std::string& fiscalYearFrom,
                             const std::string& fiscalYearTo);
    XBRL_PROPERTIES GetXBRLPropertyInfo() const { return m_properties; }
    void SetAccountBook2List(std::vector<QZCAccountBook2> books);
    const std::vector<QZCAccountBook2>& GetAccountBook2List() const { return m_vBooks; }
    _XBRLRESULTINFO GetResultInfo() const { return m_result; }

    bool ReadCSVFile() { return m_csv.ReadCsvFile(m_strCSVFileName.c_str()); }
    const QZCFinancialStatementsCSV& GetCSVData() const { return m_csv; }
    // Kind codes of the books joined by ","; "-" without books.
    std::string GetXBRLTypes() const;

    void SetResultInfo(const std::string& fileName, int64_t checkResult, const std::string& xbrlType,
                       const std::string& styleVersion, const std::string& corporateName,
                       const std::string& fiscalYearFrom, const std::string& fiscalYearTo,
                       const std::string& genericCSV, const std::string& detailErrorInfo);
    // The category setters; all but the first move the error list into the
    // result and empty it.
    void SetCompleteResultInfo(const std::string& styleVersion);
    void SetIncompleteResultInfo(const std::string& styleVersion);
    void SetInconsistencyResultInfo(const std::string& styleVersion);
    void SetInconsistencyResultInfo(const std::string& styleVersion, const std::string& detail);
    void SetFormatErrorResultInfo(const std::string& styleVersion);

private:
    void setCategory(int64_t checkResult, const std::string& styleVersion, const std::string& genericCSV,
                     const std::string& detail);
    void setCategoryTakingErrors(int64_t checkResult, const std::string& styleVersion,
                                 const std::string& genericCSV);

    std::string m_strCSVFileName;
    std::string m_strGenericCSV;
    std::vector<QZCAccountBook2> m_vBooks;
    XBRL_PROPERTIES m_properties;
    _XBRLRESULTINFO m_result;
    QZCFinancialStatementsCSV m_csv;
};
