#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "QZICsvConvXbrlResultXML.h"

// Result record of one financial statements file.
struct _XBRLRESULTINFO {
    // 0 complete, 1 incomplete, 2 inconsistent with the other files, 3 format error.
    int64_t checkResult = 0;
    std::string fileName;
    std::string xbrlType = "-";
    std::string styleVersion;
    std::string corporateName;
    std::string fiscalYearFrom;
    std::string fiscalYearTo;
    std::string genericCSV;
    std::string detailErrorInfo;
};

// The outcome of a financial statements check as the host receives it:
// the operation's result, its error text and one record per file.
class QZCXbrlResult {
public:
    virtual ~QZCXbrlResult() = default;

    void Initialize();
    void Clear();
    void SetResult(const std::string& result) { m_strResult = result; }
    const std::string& GetResult() const { return m_strResult; }
    void SetDetailErrorInfo(const std::string& info) { m_strDetailErrorInfo = info; }
    const std::string& GetDetailErrorInfo() const { return m_strDetailErrorInfo; }

    void AddResultInfo(const std::string& fileName, int64_t checkResult, const std::string& xbrlType,
                       const std::string& styleVersion, const std::string& corporateName,
                       const std::string& fiscalYearFrom, const std::string& fiscalYearTo,
                       const std::string& genericCSV, const std::string& detailErrorInfo);
    int64_t GetCsvFileCount() const { return static_cast<int64_t>(m_vResults.size()); }

    // Out-of-range indexes give "" (-1 for the check result).
    std::string GetFileName(int64_t i) const;
    int64_t GetCheckResult(int64_t i) const;
    std::string GetXbrlType(int64_t i) const;
    std::string GetStyleVersion(int64_t i) const;
    std::string GetCorporateName(int64_t i) const;
    std::string GetFiscalYearFrom(int64_t i) const;
    std::string GetFiscalYearTo(int64_t i) const;
    std::string GetGenericCSV(int64_t i) const;
    std::string GetDetailErrorInfo(int64_t i) const;

private:
    std::string field(int64_t i, std::string _XBRLRESULTINFO::*member) const;

    std::string m_strResult;
    std::string m_strDetailErrorInfo;
    std::vector<_XBRLRESULTINFO> m_vResults;
};
