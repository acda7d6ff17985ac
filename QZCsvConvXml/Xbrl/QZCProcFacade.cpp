#include "QZCProcFacade.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

#include "QZCAccountBookListBuilder2.h"
#include "QZCErrorInfo.h"
#include "QZCKamokuCodeListCSV.h"
#include "QZCLog.h"
#include "QZCMacOSNative.h"
#include "QZCParamCheck.h"
#include "QZCPublicFunction.h"
#include "QZCUtility.h"
#include "QZCValidateFolderFiles.h"
#include "QZCValidateMediator2.h"

namespace {

// More lines than this in all files of a folder: no file is checked.
constexpr size_t kMaxFolderLines = 5000;

// Ends the whole check: logs the cause under the operation and throws.
[[noreturn]] void stopCheck(const char* label, const char* message)
{
    QZC_LOG(label, message);
    throw std::runtime_error(message);
}

// Reads an accepted file and checks its characters; a failed read stops the
// whole check.
void readAcceptedFile(QZCAccountFile& file, const std::string& styleVersion)
{
    file.SetCompleteResultInfo(styleVersion);
    if (!file.ReadCSVFile())
        stopCheck("QZCProcFacade::CsvCheck2", "「財務諸表CSV読込みが失敗しました。");
    if (!QZCProcFacade::checkValidFylaString(&file.GetCSVData()))
        file.SetFormatErrorResultInfo(styleVersion);
}

void appendResults(const std::vector<QZCAccountFile>& files, std::vector<_XBRLRESULTINFO>& results)
{
    for (const QZCAccountFile& file : files)
        results.push_back(file.GetResultInfo());
}

bool isComplete(const QZCAccountFile& file)
{
    return file.GetResultInfo().checkResult == QZICheckComplete;
}

// The one file named: read when its name passes the rule; false when the
// name is refused, and the file's record then holds the format error.
bool readSingleFile(QZCAccountFile& single, const std::string& path, const std::string& version)
{
    single.SetCSVFileName(path);
    QZCValidateFile nameCheck;
    if (!nameCheck.DoCheck(single)) {
        single.SetFormatErrorResultInfo(version);
        return false;
    }
    readAcceptedFile(single, version);
    return true;
}

// Every file of the folder, read when its name passes the rules of a file
// and of the folder; the number of lines read, or nullopt when no file was.
std::optional<size_t> readFolder(const std::string& folder, const std::string& version,
                                 std::vector<QZCAccountFile>& files)
{
    std::vector<std::string> names;
    QZCParamCheck::GetFileNameList(folder, names);
    QZCValidateFolderFiles nameCheck;
    nameCheck.PreCheck(names);
    files.reserve(names.size());
    size_t totalLines = 0;
    bool anyRead = false;
    for (const std::string& name : names) {
        QZCAccountFile current;
        current.SetCSVFileName(name);
        if (nameCheck.DoCheck(current)) {
            readAcceptedFile(current, version);
            totalLines += current.GetCSVData().GetLineCount();
            anyRead = true;
        } else {
            current.SetFormatErrorResultInfo(version);
        }
        files.push_back(std::move(current));
    }
    return anyRead ? std::optional<size_t>(totalLines) : std::nullopt;
}

// Over the line cap no file is checked: each one still without errors
// becomes a format error with the entry of the cap.
void refuseOverLineCap(std::vector<QZCAccountFile>& files, const std::string& version)
{
    QZCErrorInfo tooManyLines;
    tooManyLines.SetInfo("0000", "00000", "HQZ9900E");
    for (QZCAccountFile& current : files) {
        if (isComplete(current))
            current.SetResultInfo(current.GetCSVFileName(), QZICheckFormatError, current.GetXBRLTypes(), version, "",
                                  "", "", "", tooManyLines.GetErrorInfo());
    }
}

}  // namespace

bool QZCProcFacade::CsvCheck2(const char* csvFile, const char* csvFolder, const char* styleVersion,
                              std::vector<_XBRLRESULTINFO>& results)
{
    std::vector<QZCAccountFile> files;
    return CsvCheck2(csvFile, csvFolder, styleVersion, OPERATION_CHECK, files, results);
}

bool QZCProcFacade::CsvCheck2(const char* csvFile, const char* csvFolder, const char* styleVersion,
                              OPERATION_TYPE type, std::vector<QZCAccountFile>& files,
                              std::vector<_XBRLRESULTINFO>& results)
{
    try {
        QZCParamCheck paramCheck;
        if (type != OPERATION_CHECK || !paramCheck.ParamCheckOfCheckMethod2(csvFile, csvFolder, styleVersion)) {
            results.push_back(makeResultInfo("", QZICheckFormatError, "", "", "", QZCUtility::GetError()));
            QZCUtility::ClearErrorInfo();
            return true;
        }
        const std::string version = QZCUtility::OrEmpty(styleVersion);
        if (QZCParamCheck::isUseFileParam(csvFile)) {
            QZCAccountFile single;
            if (!readSingleFile(single, QZCUtility::OrEmpty(csvFile), version)) {
                results.push_back(single.GetResultInfo());
                return true;
            }
            files.push_back(std::move(single));
        } else {
            const std::optional<size_t> lines = readFolder(QZCUtility::OrEmpty(csvFolder), version, files);
            if (lines && *lines > kMaxFolderLines)
                refuseOverLineCap(files, version);
            if (!lines || *lines > kMaxFolderLines) {
                appendResults(files, results);
                return true;
            }
        }
        checkFiles(files, version);
        appendResults(files, results);
        return true;
    } catch (...) {
        QZC_LOG("QZCProcFacade::CsvCheck2", "予期せぬ例外が発生しました。");
        throw;
    }
}

void QZCProcFacade::checkFiles(std::vector<QZCAccountFile>& files, const std::string& version)
{
    const std::string resourceFolder = QZCPublicFunction::GetBundlePath(QZC_RESOURCE_XBRL_V30);
    bool anyComplete = false;
    for (QZCAccountFile& current : files) {
        if (isComplete(current))
            anyComplete = validateCSVToXBRL2forOneFile(OPERATION_CHECK, current, resourceFolder, version) || anyComplete;
    }
    if (anyComplete)
        checkInterFileConsistency(files, version);
}

bool QZCProcFacade::validateCSVToXBRL2forOneFile(OPERATION_TYPE type, QZCAccountFile& file,
                                                 const std::string& resourceFolder, const std::string& styleVersion)
{
    const char* label = "QZCProcFacade::validateCSVToXBRL2forOneFile";
    if (type == OPERATION_CONVERT)
        stopCheck(label, "「財務諸表CSV変換には対応していません。");

    std::string xbrlType;
    QZCValidateFile nameCheck;
    if (!nameCheck.getFileXBRLType(QZCMacOSNative::getLastPathComponent(file.GetCSVFileName().c_str(), true), xbrlType))
        stopCheck(label, "ファイル名のフォーマット異常を検知しました。");

    const QZCFinancialStatementsCSV& csv = file.GetCSVData();
    QZCValidateMediator2 mediator(xbrlType);
    if (!mediator.CheckLinesWithinLimits(csv)) {
        file.SetFormatErrorResultInfo(styleVersion);
        return false;
    }
    if (!mediator.ConstructValidators())
        stopCheck(label, "定義体の読み込みに失敗しました。");

    bool complete = true;
    if (!mediator.ExecCheck(csv)) {
        if (isExistGeneralCheckError()) {
            file.SetIncompleteResultInfo(styleVersion);
            return false;
        }
        complete = false;
    }

    QZCAccountBookListBuilder2 builder;
    std::string corporateName, fiscalYearFrom, fiscalYearTo;
    if (!builder.AnalyzeFinancialStatement(csv, corporateName, fiscalYearFrom, fiscalYearTo)) {
        if (isExistGeneralCheckError()) {
            setOnlyGeneralCheckError();
            file.SetIncompleteResultInfo(styleVersion);
            return false;
        }
        complete = false;
    }
    file.SetXBRLPropertyInfo(corporateName, fiscalYearFrom, fiscalYearTo);

    QZCKamokuCodeListCSV codeList;
    if (!codeList.ReadCsvFile(resourceFolder.c_str(), builder.GetAccountBook2()))
        stopCheck(label, "プロパティファイルの読み込みに失敗しました。");
    bool propertiesSet = builder.SetPropertyAfterLayered(codeList);
    bool itemsValid = mediator.ExecCheckAfterLayered(builder.GetAccountBook2(), codeList);
    complete = complete && propertiesSet && itemsValid;
    file.SetAccountBook2List(builder.ReleaseAccountBook2());

    if (complete)
        file.SetCompleteResultInfo(styleVersion);
    else
        file.SetIncompleteResultInfo(styleVersion);
    return complete;
}

bool QZCProcFacade::checkInterFileConsistency(std::vector<QZCAccountFile>& files, const std::string& styleVersion)
{
    auto reference = std::find_if(files.begin(), files.end(), isComplete);
    if (reference == files.end() || reference + 1 == files.end())
        return true;

    const XBRL_PROPERTIES expected = reference->GetXBRLPropertyInfo();
    bool differs = false;
    for (auto other = reference + 1; other != files.end(); ++other) {
        if (!isComplete(*other))
            continue;
        const XBRL_PROPERTIES actual = other->GetXBRLPropertyInfo();
        if (actual.corporateName != expected.corporateName) {
            QZCUtility::AddCsvErrorInfo(2, 2, "HQZ8080E");
            differs = true;
        }
        if (actual.fiscalYearFrom != expected.fiscalYearFrom) {
            QZCUtility::AddCsvErrorInfo(3, 2, "HQZ8060E");
            differs = true;
        }
        if (actual.fiscalYearTo != expected.fiscalYearTo) {
            QZCUtility::AddCsvErrorInfo(4, 2, "HQZ8070E");
            differs = true;
        }
    }
    if (!differs)
        return true;

    reference->SetInconsistencyResultInfo(styleVersion);
    const std::string detail = reference->GetResultInfo().detailErrorInfo;
    for (auto other = reference + 1; other != files.end(); ++other) {
        if (isComplete(*other))
            other->SetInconsistencyResultInfo(styleVersion, detail);
    }
    return false;
}

bool QZCProcFacade::checkValidFylaString(const QZCFinancialStatementsCSV* csv)
{
    if (!csv)
        return true;
    int line = 1;
    for (auto it = csv->GetCsvLineItelator(); it != csv->GetCsvLineEndItelator(); ++it, ++line) {
        int column = 1;
        for (const std::string& field : *it) {
            if (!QZCUtility::IsFylaAvailableString(field.c_str())) {
                QZCUtility::AddCsvErrorInfo(line, column, "HQZ8230E");
                return false;
            }
            ++column;
        }
    }
    return true;
}

_XBRLRESULTINFO QZCProcFacade::makeResultInfo(const std::string& fileName, long checkResult,
                                              const std::string& xbrlType, const std::string& styleVersion,
                                              const std::string& genericCSV, const std::string& detailErrorInfo)
{
    return makeResultInfo(fileName, checkResult, xbrlType, styleVersion, "", "", "", genericCSV, detailErrorInfo);
}

_XBRLRESULTINFO QZCProcFacade::makeResultInfo(const std::string& fileName, long checkResult,
                                              const std::string& xbrlType, const std::string& styleVersion,
                                              const std::string& corporateName, const std::string& fiscalYearFrom,
                                              const std::string& fiscalYearTo, const std::string& genericCSV,
                                              const std::string& detailErrorInfo)
{
    _XBRLRESULTINFO info;
    info.fileName = fileName;
    info.checkResult = checkResult;
    info.xbrlType = xbrlType;
    info.styleVersion = styleVersion;
    info.corporateName = corporateName;
    info.fiscalYearFrom = fiscalYearFrom;
    info.fiscalYearTo = fiscalYearTo;
    info.genericCSV = genericCSV;
    info.detailErrorInfo = detailErrorInfo;
    return info;
}

bool QZCProcFacade::isCheckError(const std::string& entry, const std::string* codes, size_t count)
{
    for (size_t i = 0; codes && i < count; ++i) {
        if (entry.find(codes[i]) != std::string::npos)
            return true;
    }
    return false;
}

bool QZCProcFacade::isGeneralCheckError(const std::string& entry)
{
    return isCheckError(entry, generalChackErrorList, QZC_GENERAL_CHECK_ERROR_COUNT);
}

std::vector<std::string>::iterator QZCProcFacade::getGeneralCheckErrorIterator()
{
    return std::find_if(g_mlErrors.begin(), g_mlErrors.end(), isGeneralCheckError);
}

bool QZCProcFacade::isExistGeneralCheckError()
{
    return getGeneralCheckErrorIterator() != g_mlErrors.end();
}

void QZCProcFacade::setOnlyGeneralCheckError()
{
    auto found = getGeneralCheckErrorIterator();
    if (found == g_mlErrors.end())
        return;
    std::string kept = *found;
    QZCUtility::ClearErrorInfo();
    g_mlErrors.push_back(kept);
}
