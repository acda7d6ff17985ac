#include "QZCDatCsvFile.h"

#include <cstring>

#include "QZCDatValidFylstring.h"
#include "QZCLog.h"
#include "QZCPublicFunction.h"
#include "QZCUtility.h"

namespace {

constexpr int64_t kMaxRecordCount = int64_t{1} << 31;

bool IsLineEnd(char c)
{
    return c == '\r' || c == '\n';
}

}  // namespace

int QZCDatCsvFile::ParseSimply(const char* text)
{
    const char* label = "QZCDatCsvFile::ParseSimply";
    try {
        m_bSimpleMode = true;
        Parse(text);
        if (m_nInvalidResult == 0) {
            return 0;
        }
        g_nRecordCount = GetRecordCount();
        QZCUtility::AddCsvErrorInfo(static_cast<int>(m_nInvalidLine), static_cast<int>(m_nInvalidColumn),
                                    "HQZ8230E");
        QZC_LOG(label, "Fyla利用可能文字ではない");
        return -1;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG(label, "想定外エラーが発生しました。");
        throw -1;
    }
}

int QZCDatCsvFile::Parse(const char* text)
{
    if (text == nullptr) {
        QZC_LOG("QZCDatCsvFile::Parse", "引数のポインタが不正です。");
        throw -1;
    }
    const size_t length = std::strlen(text);
    std::string field;
    std::vector<std::string> record;
    bool fieldStart = true;
    bool quoted = false;
    for (size_t i = 0; i < length; ++i) {
        const char c = text[i];
        if (quoted) {
            // A quote closes the field only where a separator or line end
            // follows (one blank may stand before the line feed); any other
            // quote, a doubled one included, belongs to the value.
            const char next = i + 1 < length ? text[i + 1] : '\0';
            const bool closes = c == '"' && (next == '\0' || next == ',' || IsLineEnd(next) ||
                                             (i + 2 < length && text[i + 2] == '\n'));
            if (closes) {
                quoted = false;
            } else {
                field += c;
            }
            continue;
        }
        if (fieldStart && c == '"') {
            quoted = true;
            fieldStart = false;
            continue;
        }
        fieldStart = false;
        if (c == ',') {
            ColumnTerm(field, record, false);
            fieldStart = true;
        } else if (IsLineEnd(c)) {
            if (c == '\r' && i + 1 < length && text[i + 1] == '\n') {
                ++i;
            }
            if (ColumnTerm(field, record, true) != 0) {
                return -1;
            }
            fieldStart = true;
        } else {
            field += c;
        }
    }
    if (record.empty() && field.empty()) {
        return 0;
    }
    return ColumnTerm(field, record, true) != 0 ? -1 : 0;
}

int QZCDatCsvFile::ColumnTerm(std::string& field, std::vector<std::string>& record, bool endOfRecord)
{
    record.push_back(QZCPublicFunction::StringTrim(field));
    field.clear();
    if (!endOfRecord) {
        return 0;
    }
    if (m_bSimpleMode && m_nInvalidResult == 0) {
        ValidFylstring(record);
    }
    m_vecRecords.push_back(std::move(record));
    record.clear();
    return 0;
}

void QZCDatCsvFile::ValidFylstring(const std::vector<std::string>& record)
{
    for (size_t column = 1; column <= record.size(); ++column) {
        QZCDatValidFylstring validator(static_cast<long>(column - 1), MSG_NONE);
        const int result = validator.validate(record[column - 1]);
        if (result != 0) {
            m_nInvalidLine = static_cast<int64_t>(m_vecRecords.size()) + 1;
            m_nInvalidColumn = static_cast<int64_t>(column);
            m_nInvalidResult = result;
            return;
        }
    }
}

int64_t QZCDatCsvFile::GetRecordCount() const
{
    const auto count = static_cast<int64_t>(m_vecRecords.size());
    if (count >= kMaxRecordCount) {
        QZC_LOG("QZCDatCsvFile::GetRecordCount", "想定外エラーが発生しました。");
        throw -1;
    }
    return count;
}

bool QZCDatCsvFile::IsValidRecord(int64_t record) const
{
    if (record < 0 || record >= static_cast<int64_t>(m_vecRecords.size())) {
        return false;
    }
    const std::vector<std::string>& fields = m_vecRecords[static_cast<size_t>(record)];
    return fields.size() >= 2 && !fields[0].empty();
}

const char* QZCDatCsvFile::GetItem(int64_t record, int64_t field) const
{
    if (record < 0 || field < 0 || record >= static_cast<int64_t>(m_vecRecords.size())) {
        return "";
    }
    const std::vector<std::string>& fields = m_vecRecords[static_cast<size_t>(record)];
    return field < static_cast<int64_t>(fields.size()) ? fields[static_cast<size_t>(field)].c_str() : "";
}

void QZCDatCsvFile::SetItem(const std::string& value, int64_t record, int64_t field)
{
    if (record < 0 || field < 0 || record >= static_cast<int64_t>(m_vecRecords.size())) {
        return;
    }
    std::vector<std::string>& fields = m_vecRecords[static_cast<size_t>(record)];
    if (field < static_cast<int64_t>(fields.size())) {
        fields[static_cast<size_t>(field)] = value;
    }
}

void QZCDatCsvFile::Clear()
{
    m_vecRecords.clear();
}
