#include "QZCDatConvertInfo.h"

#include "QZCDatCsvFile.h"
#include "QZCDatDefinition.h"
#include "QZCDatITData.h"

namespace {

// Freed at the latest when its thread ends.
thread_local std::unique_ptr<QZCDatConvertInfo> tInstance;

}  // namespace

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
    if (!tInstance)
        tInstance.reset(new QZCDatConvertInfo());
    return tInstance.get();
}

void QZCDatConvertInfo::destroy()
{
    tInstance.reset();
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
