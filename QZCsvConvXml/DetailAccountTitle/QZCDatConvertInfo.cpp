#include "QZCDatConvertInfo.h"

#include "QZCDatCsvFile.h"
#include "QZCDatDefinition.h"
#include "QZCDatITData.h"

QZCDatConvertInfo* QZCDatConvertInfo::m_pInstance = nullptr;

QZCDatConvertInfo::QZCDatConvertInfo()
    : m_pCsvFile(std::make_unique<QZCDatCsvFile>()),
      m_pDefinition(std::make_unique<QZCDatDefinition>()),
      m_pITData(std::make_unique<QZCDatITData>())
{
}

QZCDatConvertInfo::~QZCDatConvertInfo()
{
    Terminate();
}

QZCDatConvertInfo* QZCDatConvertInfo::instance()
{
    if (m_pInstance == nullptr) {
        m_pInstance = new QZCDatConvertInfo();
    }
    return m_pInstance;
}

void QZCDatConvertInfo::destroy()
{
    delete m_pInstance;
    m_pInstance = nullptr;
}

void QZCDatConvertInfo::Terminate()
{
    m_pCsvFile.reset();
    m_pDefinition.reset();
    m_pITData.reset();
}

QZCDatCsvFile* QZCDatConvertInfo::GetCsvFile() const
{
    return m_pCsvFile.get();
}

QZCDatDefinition* QZCDatConvertInfo::GetDefinition() const
{
    return m_pDefinition.get();
}

QZCDatITData* QZCDatConvertInfo::GetITData() const
{
    return m_pITData.get();
}

QZCDatConvertTable_t QZCDatConvertInfo::GetConvertTable() const
{
    return {m_pCsvFile.get(), m_pDefinition.get(), m_pITData.get()};
}
