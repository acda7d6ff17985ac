#pragma once

#include <cstdint>
#include <string>

// The facade's result record of the detail-statement and writing operations.
class QZCCsvConvResultXML {
public:
    virtual ~QZCCsvConvResultXML() = default;

    void Initialize();
    std::string GetResult() const { return m_strResult; }
    std::string GetDetailErrorInfo() const { return m_strDetailErrorInfo; }
    int64_t GetConformity() const { return m_nConformity; }
    void SetResult(const std::string& result) { m_strResult = result; }
    void SetDetailErrorInfo(const std::string& info) { m_strDetailErrorInfo = info; }
    void SetConformity(int64_t conformity) { m_nConformity = conformity; }

private:
    std::string m_strResult;
    std::string m_strDetailErrorInfo;
    int64_t m_nConformity = 0;
};
