#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The fields of a detail CSV file's records: every field's text ended by a
// NUL, one after another in one buffer, and per record the range of its
// field starts. One buffer instead of a string per field keeps a
// million-record file at a third of the memory and spares an allocation per
// field. Offsets are 32-bit: texts come from files of at most 2 GB.
class QZCDatFieldStore {
public:
    // A record's fields are the field starts first .. first + count - 1.
    struct Record {
        uint32_t first;
        uint32_t count;
    };

    // Asks once for room for a text of that many bytes, line ends and
    // separators: growing by doubling would touch twice the memory of a
    // large file. False when the text would not fit the 32-bit offsets.
    bool Reserve(size_t length, size_t lineEnds, size_t separators);
    void AddField(std::string_view text);
    // The fields added since the last record ended, as a record of their own;
    // the next record starts after them.
    Record EndRecord();
    void Keep(const Record& record) { m_records.push_back(record); }

    size_t RecordCount() const { return m_records.size(); }
    const Record& At(size_t record) const { return m_records[record]; }
    // The field's text; "" beyond the record's last field.
    const char* Field(const Record& record, uint32_t field) const
    {
        return field < record.count ? m_texts.data() + m_starts[record.first + field] : "";
    }
    // Replaces a field's text: in its place when the new one fits, else at
    // the end of the buffer.
    void SetField(size_t record, uint32_t field, std::string_view text);
    // Removes the records whose first field is empty, keeping the order.
    void RemoveRecordsWithoutFirstField();
    void Clear();

private:
    std::string m_texts;
    std::vector<uint32_t> m_starts;
    std::vector<Record> m_records;
    uint32_t m_recordFirst = 0;
};
