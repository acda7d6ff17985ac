#include "QZCCsvConvXML.h"

#include <memory>
#include <new>
#include <vector>

#include <xercesc/util/PlatformUtils.hpp>

#include "QZCCsvConvResultXML.h"
#include "QZCDatXMLManager.h"
#include "QZCLog.h"
#include "QZCMacOSNative.h"
#include "QZCProcFacade.h"
#include "QZCPublicFunction.h"
#include "QZCUtility.h"
#include "QZCXbrlResult.h"
#include "QZICsvConvXML.h"

QZCCsvConvResultXML* QZCCsvConvXML::m_pResult = nullptr;
QZCXbrlResult* QZCCsvConvXML::m_pXbrlResult = nullptr;

namespace {

// The manager of one check, ready for its arguments; null, with the
// unexpected-error entry, when it cannot be set up.
std::unique_ptr<QZCDatXMLManager> StartManager(uint16_t typeCase, const char* label)
{
    try {
        auto manager = std::make_unique<QZCDatXMLManager>(typeCase);
        manager->InitObject();
        return manager;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG(label, "予期せぬ例外が発生しました。");
        return nullptr;
    }
}

// Result of an operation without conformity: a success carries no error
// text, a failure the joined error list.
QZCCsvConvResultXML* Conclude(QZCCsvConvResultXML* record, bool passed)
{
    record->SetResult(passed ? PROCESS_OK : PROCESS_FAIL);
    if (!passed)
        record->SetDetailErrorInfo(QZCUtility::GetError());
    return record;
}

}  // namespace

QZCCsvConvXML::QZCCsvConvXML()
{
    QZCLog::InitDebugDump();
    // One reference held for the life of the process: without it the last
    // facade's Terminate frees the parser's static tables and every next
    // operation builds them again.
    static const bool platformKept = (XERCES_CPP_NAMESPACE::XMLPlatformUtils::Initialize(), true);
    (void)platformKept;
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

QZCCsvConvResultXML* QZCCsvConvXML::StartResult()
{
    if (!CreateResult())
        return nullptr;
    m_pResult->Initialize();
    QZCUtility::ClearErrorInfo();
    g_nRecordCount = 0;
    return m_pResult;
}

QZCCsvConvResultXML* QZCCsvConvXML::CsvCheckToDetailAccountTitle(const char* csvPath, const char* styleVersion)
{
    QZCCsvConvResultXML* record = StartResult();
    if (!record)
        return nullptr;
    bool passed = false;
    if (auto manager = StartManager(TYPECASE_DETAIL, "QZCCsvConvXML::CsvCheckToDetailAccountTitle")) {
        try {
            passed = manager->InitForPath(ARG_CSV, csvPath) == 0 &&
                     manager->InitForPath(ARG_PROPFOLDER, "AccountTitle") == 0 &&
                     manager->SetITData(ARG_VR, styleVersion) == 0 &&
                     manager->IsCorrectCsvFilename(QZCPublicFunction::CharacterTrim(csvPath, true)) == 0 &&
                     manager->LoadCsvWithDefinition() == 0 && manager->ValidateCsv() == 0;
        } catch (...) {
            // The entries gathered so far tell what failed.
        }
    }
    return Conclude(record, passed);
}

QZCCsvConvResultXML* QZCCsvConvXML::CsvCheckToDetailAccountTitle2(const char* csvPath, const char* styleVersion)
{
    return CheckWithConformity(csvPath, styleVersion, TYPECASE_DETAIL2, "AccountTitle",
                               "QZCCsvConvXML::CsvCheckToDetailAccountTitle");
}

QZCCsvConvResultXML* QZCCsvConvXML::CsvCheckToAppendedTable(const char* csvPath, const char* styleVersion)
{
    return CheckWithConformity(csvPath, styleVersion, TYPECASE_APPENDED, "AppendedTable",
                               "QZCCsvConvXML::CsvCheckToAppendedTable");
}

QZCCsvConvResultXML* QZCCsvConvXML::CsvReportToXml(const char* csvPath, const char* styleVersion,
                                                   std::string& report)
{
    report.clear();
    const bool detail = QZCMacOSNative::getLastPathComponent(csvPath, true).rfind("HOI", 0) == 0;
    std::string pages;
    QZCCsvConvResultXML* record =
        detail ? CheckWithConformity(csvPath, styleVersion, TYPECASE_DETAIL2, "AccountTitle",
                                     "QZCCsvConvXML::CsvCheckToDetailAccountTitle", &pages)
               : CheckWithConformity(csvPath, styleVersion, TYPECASE_APPENDED, "AppendedTable",
                                     "QZCCsvConvXML::CsvCheckToAppendedTable", &pages);
    // The page elements, when the file could be read whole and converted,
    // become one well-formed document.
    if (record && record->GetConformity() != QZIConformityBlocked && !pages.empty())
        report = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<CONTENTS>" + pages + "</CONTENTS>\r\n";
    return record;
}

QZCCsvConvResultXML* QZCCsvConvXML::CheckWithConformity(const char* csvPath, const char* styleVersion,
                                                        uint16_t typeCase, const char* folder, const char* label,
                                                        std::string* report)
{
    QZCCsvConvResultXML* record = StartResult();
    if (!record)
        return nullptr;
    bool passed = false;
    // Cleared when a style version was let through for a file whose form is
    // unknown: the outward checks alone then decide the conformity.
    bool conformityFromErrors = true;
    int64_t conformity = QZIConformityBlocked;
    if (auto manager = StartManager(typeCase, label)) {
        try {
            if (manager->InitForPath(ARG_CSV, csvPath) == 0 && manager->InitForPath(ARG_PROPFOLDER, folder) == 0) {
                int version = manager->SetITData(ARG_VR, styleVersion);
                bool rejected = false;
                if (version != 0) {
                    rejected = !manager->SetInputReportVersion(styleVersion);
                    if (!rejected) {
                        QZCUtility::AddCsvErrorInfo(9999, 3, "HQZ9250E");
                        conformityFromErrors = false;
                    }
                }
                if (!rejected) {
                    int appearance = manager->AppearanceCheck(csvPath);
                    if (version != 0 || appearance != 0)
                        conformity = appearance == 0 ? QZIConformityWithErrors : QZIConformityBlocked;
                    else if (manager->LoadCsvWithDefinition() == 0) {
                        passed = manager->ValidateCsv() == 0;
                        // Value errors that do not block conversion still let
                        // the report be written.
                        const bool convertible = passed || GetCsvCorrectness(QZCUtility::GetError()) != QZIConformityBlocked;
                        if (report && convertible && manager->MakeReport(*report) != 0)
                            passed = false;
                    }
                }
            }
        } catch (...) {
            // The entries gathered so far tell what failed.
        }
    }
    if (passed) {
        record->SetConformity(QZIConformityClean);
        record->SetResult(PROCESS_OK);
        return record;
    }
    std::string errors = QZCUtility::GetError();
    record->SetDetailErrorInfo(errors);
    if (conformityFromErrors)
        conformity = GetCsvCorrectness(errors);
    record->SetConformity(conformity);
    record->SetResult(conformity == QZIConformityBlocked ? PROCESS_FAIL : PROCESS_OK);
    return record;
}

QZCCsvConvResultXML* QZCCsvConvXML::CsvWrite(const char* outputPath, const char* data)
{
    QZCCsvConvResultXML* record = StartResult();
    if (!record)
        return nullptr;
    bool written = false;
    try {
        if (!outputPath || !data)
            throw -1;
        QZCDatXMLManager manager(TYPECASE_WRITE);
        if (manager.InitForPath(ARG_CSVWRITE, outputPath) == 0)
            written = WriteFileData(QZCPublicFunction::StringTrim(outputPath).c_str(), data);
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCCsvConvXML::CsvWrite", "予期せぬ例外が発生しました。");
    }
    return Conclude(record, written);
}

bool QZCCsvConvXML::WriteFileData(const char* path, const char* data)
{
    const char* code = "HQZ9940E";
    if (!QZCMacOSNative::pathDirectoryExists(path, true))
        code = "HQZ9240E";
    else if (data && QZCMacOSNative::writeSJISFile(path, data, false))
        return true;
    QZCUtility::AddCsvErrorInfo("0000", "00000", code);
    std::string message = "ファイル書き込みに失敗しました。\n(" + std::string(path ? path : "").substr(0, 1023) + ")";
    QZC_LOG("QZCCsvConvXML::WriteFileData", message.c_str());
    return false;
}

int64_t QZCCsvConvXML::GetCsvCorrectness(const std::string& errors)
{
    if (errors.empty())
        return QZIConformityBlocked;
    for (const QZCDatMsgRow& row : DatMsgTable) {
        if (row.blocksConversion == 1 && errors.find(row.code) != std::string::npos)
            return QZIConformityBlocked;
    }
    return QZIConformityWithErrors;
}
