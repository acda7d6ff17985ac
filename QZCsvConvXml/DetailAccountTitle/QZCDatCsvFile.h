#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "QZCDatFieldStore.h"

class QZCDOMParser;

// Attributes of a format kubun's "report" element: column count, maximum
// occurrences and maximum occurrences per tag.
struct ReportAttr_t {
    int64_t columnNum;
    int64_t maxOccurs;
    int64_t maxOccursPerTag;
};

// A detail-statement or appended-table CSV file: reads it (Shift_JIS on
// disk), splits it into records of trimmed fields and checks each record's
// frame against the validation definition while reading. Indices count from 0.
class QZCDatCsvFile {
public:
    QZCDatCsvFile() = default;
    virtual ~QZCDatCsvFile() = default;

    // Reads, splits and frame-checks a file; 0, or -1 with the first frame
    // error recorded.
    int ReadFile(const char* path, QZCDOMParser* definition);
    // Splits text already in memory without a definition and finds the first
    // field holding a character the e-filing service refuses: 0, or -1 with
    // the error "HQZ8230E" at that record and field.
    int ParseSimply(const char* text);
    // Splits text into records (quoted fields, CR, LF or CR LF line ends).
    int Parse(const char* text);
    // Quick estimate of the number of non-empty lines.
    int64_t GetRoughRecordCount(const std::string& text) const;

    std::map<std::string, ReportAttr_t> GetFormatKubun() const;
    int64_t GetRecordCount() const;
    // The record exists, its first field is not empty and it has a second.
    bool IsValidRecord(int64_t record) const;
    // The field's text; "" for any index out of range. The pointer stays
    // valid until the file is read again or a field is replaced.
    const char* GetItem(int64_t record, int64_t field) const;
    // Replaces a field's text; indices out of range change nothing.
    void SetItem(const std::string& value, int64_t record, int64_t field);
    bool IsMeisai(int64_t record, int64_t field) const;
    const char* GetRecordMeisaiGoukei(int64_t record) const;
    int64_t GetMaxOccurs(const std::string& formatKubun) const;
    int64_t GetMaxOccursPerTag(const std::string& formatKubun) const;
    void DeleteEmptyRecord();
    void Clear();

private:
    // What the definition says about one field-1 text, looked up once per
    // distinct text instead of walking the document for every record.
    struct FormatKubunInfo {
        bool found = false;
        int64_t columnNum = 0;
        std::vector<int64_t> columnNumEx;
        int64_t maxOccurs = 0;
        int64_t maxOccursPerTag = 0;
        std::vector<std::string> meisaiGoukei;
    };

    using Record = QZCDatFieldStore::Record;

    // Adds the trimmed field to the record being read; at the record's end
    // checks the record and keeps it.
    int ColumnTerm(std::string_view field, bool endOfRecord);
    bool ValidateRecord(const Record& record);
    void ValidFylstring(const Record& record);
    const char* Field(const Record& record, uint32_t field) const;
    bool IsValidFormatKubun(const std::string& formatKubun, const std::string& styleVersion) const;
    bool IsValidFormatKubunPageNumber(const std::string& rest, const std::string& bracketed) const;
    bool IsValidPageNumber(const std::string& text) const;
    std::vector<int64_t> GetVecColCount(const std::string& text) const;
    void FormatKubunAdds(const std::string& formatKubun, int64_t columnNum, int64_t maxOccurs,
                         int64_t maxOccursPerTag);
    bool GyouKubunCheck(const std::string& formatKubun, const std::string& gyouKubun);
    bool IsCorrectRecordRelation(int64_t& line) const;

    const FormatKubunInfo& LookUpFormatKubun(const std::string& formatKubun);
    int64_t CurrentLine() const;

    std::map<std::string, ReportAttr_t> m_mapFormatKubun;
    std::map<std::string, int64_t> m_mapMaxOccurs;
    QZCDOMParser* m_pDefinition = nullptr;
    int64_t m_nColumnCount = 0;
    int64_t m_nMaxOccurs = 0;
    QZCDatFieldStore m_fields;
    // The field under the character test, reused to spare an allocation.
    std::string m_strScratch;
    bool m_bSimpleMode = false;
    int64_t m_nInvalidLine = 0;
    int64_t m_nInvalidColumn = 0;
    int32_t m_nInvalidResult = 0;
    std::map<std::string, FormatKubunInfo> m_mapFormatKubunInfo;
};
