#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The records of a detail-statement or appended-table CSV file, each the
// list of its trimmed fields. Indices count from 0.
class QZCDatCsvFile {
public:
    QZCDatCsvFile() = default;
    virtual ~QZCDatCsvFile() = default;

    // Splits text already in memory into records and finds the first field
    // holding a character the e-filing service refuses: 0, or -1 with the
    // error "HQZ8230E" at that record and field.
    int ParseSimply(const char* text);
    // Splits text into records (quoted fields, CR, LF or CR LF line ends).
    int Parse(const char* text);

    int64_t GetRecordCount() const;
    // The record exists, its first field is not empty and it has a second.
    bool IsValidRecord(int64_t record) const;
    // The field's text; "" for any index out of range.
    const char* GetItem(int64_t record, int64_t field) const;
    // Replaces a field's text; indices out of range change nothing.
    void SetItem(const std::string& value, int64_t record, int64_t field);
    void Clear();

private:
    // Closes a field; at the end of a record checks and stores the record.
    int ColumnTerm(std::string& field, std::vector<std::string>& record, bool endOfRecord);
    // Notes the first field of record that fails the character check.
    void ValidFylstring(const std::vector<std::string>& record);

    std::vector<std::vector<std::string>> m_vecRecords;
    bool m_bSimpleMode = false;
    int64_t m_nInvalidLine = 0;
    int64_t m_nInvalidColumn = 0;
    int32_t m_nInvalidResult = 0;
};
