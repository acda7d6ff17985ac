#include "QZCDatFieldStore.h"

#include <algorithm>
#include <cstring>

#include "QZCMacOSNative.h"

bool QZCDatFieldStore::Reserve(size_t length, size_t lineEnds, size_t separators)
{
    if (m_texts.size() + length >= UINT32_MAX)
        return false;
    m_texts.reserve(m_texts.size() + length + 1);
    m_starts.reserve(m_starts.size() + lineEnds + separators + 1);
    m_records.reserve(m_records.size() + lineEnds + 1);
    QZCMacOSNative::adviseHugePages(m_texts.data(), m_texts.capacity());
    QZCMacOSNative::adviseHugePages(m_starts.data(), m_starts.capacity() * sizeof(uint32_t));
    QZCMacOSNative::adviseHugePages(m_records.data(), m_records.capacity() * sizeof(Record));
    m_recordFirst = static_cast<uint32_t>(m_starts.size());
    return true;
}

void QZCDatFieldStore::AddField(std::string_view text)
{
    m_starts.push_back(static_cast<uint32_t>(m_texts.size()));
    m_texts.append(text).push_back('\0');
}

QZCDatFieldStore::Record QZCDatFieldStore::EndRecord()
{
    const auto end = static_cast<uint32_t>(m_starts.size());
    const Record record{m_recordFirst, end - m_recordFirst};
    m_recordFirst = end;
    return record;
}

void QZCDatFieldStore::SetField(size_t record, uint32_t field, std::string_view text)
{
    uint32_t& start = m_starts[m_records[record].first + field];
    if (text.size() <= std::strlen(m_texts.data() + start)) {
        m_texts.replace(start, text.size(), text);
        m_texts[start + text.size()] = '\0';
    } else if (m_texts.size() + text.size() < UINT32_MAX) {
        start = static_cast<uint32_t>(m_texts.size());
        m_texts.append(text).push_back('\0');
    }
}

void QZCDatFieldStore::RemoveRecordsWithoutFirstField()
{
    m_records.erase(std::remove_if(m_records.begin(), m_records.end(),
                                   [this](const Record& record) { return *Field(record, 0) == '\0'; }),
                    m_records.end());
}

void QZCDatFieldStore::Clear()
{
    m_texts.clear();
    m_starts.clear();
    m_records.clear();
    m_recordFirst = 0;
}
