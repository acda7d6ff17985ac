#include "QZCCsvConvXML.h"

#include <new>
#include <vector>

#include <xercesc/util/PlatformUtils.hpp>

#include "QZCCsvConvResultXML.h"
#include "QZCLog.h"
#include "QZCProcFacade.h"
#include "QZCPublicFunction.h"
#include "QZCUtility.h"
#include "QZCXbrlResult.h"
#include "QZICsvConvXML.h"

QZCCsvConvResultXML* QZCCsvConvXML::m_pResult = nullptr;
QZCXbrlResult* QZCCsvConvXML::m_pXbrlResult = nullptr;

QZCCsvConvXML::QZCCsvConvXML()
{
    QZCLog::InitDebugDump();
    XERCES_CPP_NAMESPACE::XMLPlatformUtils::Initialize();
}

QZCCsvConvXML::~QZCCsvConvXML()
{
    XERCES_CPP_NAMESPACE::XMLPlatformUtils::Terminate();
    QZCUtility::ClearErrorInfo();
    g_nRecordCount = 0;
    ReleaseResult();
    ReleaseXbrlResult();
}

bool QZCCsvConvXML::CreateResult()
{
    if (!m_pResult)
        m_pResult = new (std::nothrow) QZCCsvConvResultXML;
    return m_pResult != nullptr;
}

void QZCCsvConvXML::ReleaseResult()
{
    delete m_pResult;
    m_pResult = nullptr;
}

bool QZCCsvConvXML::CreateXbrlResult()
{
    if (!m_pXbrlResult)
        m_pXbrlResult = new (std::nothrow) QZCXbrlResult;
    return m_pXbrlResult != nullptr;
}

void QZCCsvConvXML::ReleaseXbrlResult()
{
    delete m_pXbrlResult;
    m_pXbrlResult = nullptr;
}

QZCXbrlResult* QZCCsvConvXML::CsvCheckToXbrl2(const char* csvFolder, const char* styleVersion)
{
    if (!CreateXbrlResult())
        return nullptr;
    QZCXbrlResult& record = *m_pXbrlResult;
    record.Initialize();
    std::string result = PROCESS_FAIL;
    try {
        std::string folder = QZCPublicFunction::CharacterTrim(csvFolder, true);
        std::string version = QZCPublicFunction::CharacterTrim(styleVersion, true);
        QZCUtility::ClearErrorInfo();
        g_nRecordCount = 0;

        std::vector<_XBRLRESULTINFO> results;
        if (QZCProcFacade::CsvCheck2(nullptr, folder.c_str(), version.c_str(), results)) {
            result = PROCESS_OK;
            for (const _XBRLRESULTINFO& info : results)
                record.AddResultInfo(info.fileName, info.checkResult, info.xbrlType, info.styleVersion,
                                     info.corporateName, info.fiscalYearFrom, info.fiscalYearTo,
                                     info.genericCSV, info.detailErrorInfo);
        } else {
            record.SetDetailErrorInfo(QZCUtility::GetError());
            QZC_LOG("CsvCheckToXbrl2", "財務諸表CSV検証でエラーを検出しました。");
        }
    } catch (...) {
        // The check could not run to its end: no per-file records.
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("CsvCheckToXbrl2", "予期せぬ例外が発生しました。");
        result = PROCESS_FAIL;
    }
    record.SetResult(result);
    return &record;
}
