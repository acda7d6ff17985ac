#include "QZCDatITData.h"

#include "QZCDatValidator.h"
#include "QZCLog.h"
#include "QZCMacOSNative.h"
#include "QZCUtility.h"

QZCDatITData::QZCDatITData() = default;

QZCDatITData::~QZCDatITData()
{
    Clear();
}

void QZCDatITData::Initialize(QZCDatArgValid_t kind, const char* parameter)
{
    if (m_mapArguments.count(kind) != 0) {
        return;
    }
    auto validator = std::make_unique<QZCDatValidator>();
    try {
        validator->Initialize(kind, parameter);
    } catch (...) {
        QZC_LOG("QZCDatITData::Initialize", "想定外エラーが発生しました。");
        return;
    }
    m_mapArguments[kind] = QZCDataValid_t{"", std::move(validator)};
}

int QZCDatITData::SetITData(QZCDatArgValid_t kind, const char* value)
{
    const auto found = m_mapArguments.find(kind);
    if (found == m_mapArguments.end() || !found->second.validator) {
        return -1;
    }
    const std::string text = value != nullptr ? value : "";
    const int result = found->second.validator->Validate(text, 9999, kind);
    if (result == 0) {
        found->second.value = text;
    }
    return result;
}

const char* QZCDatITData::GetITData(QZCDatArgValid_t kind) const
{
    const auto found = m_mapArguments.find(kind);
    return found != m_mapArguments.end() ? found->second.value.c_str() : "";
}

void QZCDatITData::SetCsvData(const std::string& data)
{
    // The whole file's text: its copy goes into huge pages like the original.
    m_strCsvData.clear();
    m_strCsvData.reserve(data.size());
    QZCMacOSNative::adviseHugePages(m_strCsvData.data(), m_strCsvData.capacity());
    m_strCsvData.append(data);
}

const std::string& QZCDatITData::GetCsvData() const
{
    return m_strCsvData;
}

void QZCDatITData::SetCsvFileName(const std::string& name)
{
    m_strCsvFileName = name;
}

const std::string& QZCDatITData::GetCsvFileName() const
{
    return m_strCsvFileName;
}

void QZCDatITData::SetTypeCase(uint16_t typeCase)
{
    m_nTypeCase = typeCase;
}

bool QZCDatITData::IsUtiwakeOn() const
{
    return (m_nTypeCase & 0x0001) != 0;
}

bool QZCDatITData::IsD15HO001On() const
{
    return (m_nTypeCase & 0x0100) != 0;
}

void QZCDatITData::SetPageNo(QZCDatArgValid_t kind, const char* value)
{
    const int64_t number = (value == nullptr || *value == '\0') ? 1 : QZCUtility::LeadingInteger(value);
    if (kind == ARG_PAGENO || kind == ARG_CSVPAGENO) {
        m_nCsvPageNo = number;
    } else if (kind == ARG_XMLPAGENO) {
        m_nXmlPageNo = number;
    }
}

int64_t QZCDatITData::GetXmlPageNo() const
{
    return m_nXmlPageNo;
}

int64_t QZCDatITData::GetCsvPageNo() const
{
    return m_nCsvPageNo;
}

void QZCDatITData::Clear()
{
    m_mapArguments.clear();
}
