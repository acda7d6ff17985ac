#include "QZCParamCheck.h"

#include <cstdint>
#include <stdexcept>

#include "QZCLog.h"
#include "QZCMacOSNative.h"
#include "QZCPublicFunction.h"
#include "QZCUtility.h"

const std::string generalChackErrorList[QZC_GENERAL_CHECK_ERROR_COUNT] = {
    "HQZ8020E", "HQZ8030E", "HQZ8040E", "HQZ8050E", "HQZ8210E", "HQZ8220E",
    "HQZ8240E", "HQZ9080E", "HQZ9160E", "HQZ9290E", "HQZ9400E", "HQZ9710E",
    "HQZ9720E", "HQZ9750E", "HQZ9760E", "HQZ9770E", "HQZ9780E", "HQZ9790E",
    "HQZ9840E", "HQZ9850E", "HQZ9860E", "HQZ9870E", "HQZ9890E",
};

namespace {

constexpr const char* kUnexpected = "予期せぬ例外が発生しました。";
constexpr const char* kEitherFileOrFolder = "財務諸表CSVはファイルまたはフォルダのいずれかを設定してください。";

}  // namespace

QZCParamCheck::QZCParamCheck()
    : m_mapCheckFileCodes{{CHECK_FILE_EMPTY_PATH, "HQZ9000E"},
                          {CHECK_FILE_BAD_EXTENSION, "HQZ9370E"},
                          {CHECK_FILE_NOT_FOUND, "HQZ9230E"},
                          {CHECK_FILE_NOT_READABLE, "HQZ9230E"},
                          {CHECK_FILE_NO_DATA, "HQZ9230E"}}
{
}

bool QZCParamCheck::ParamCheckOfCheckMethod2(const char* csvFile, const char* csvFolder, const char* styleVersion)
{
    return ParamCheck2(csvFile, csvFolder, styleVersion, {1, 2, 3, 4});
}

bool QZCParamCheck::ParamCheck2(const char* csvFile, const char* csvFolder, const char* styleVersion,
                                const std::vector<int>& paramNumbers)
{
    constexpr const char* kLabel = "QZCParamCheck::ParamCheck2";
    const std::string file = QZCUtility::OrEmpty(csvFile);
    const std::string folder = QZCUtility::OrEmpty(csvFolder);
    const std::string version = QZCUtility::OrEmpty(styleVersion);

    if (!file.empty()) {
        if (!folder.empty()) {
            QZCUtility::AddParamErrorInfoDefinition(paramNumbers.at(0), "HQZ8280E");
            QZC_LOG(kLabel, kEitherFileOrFolder);
            return false;
        }
        if (!CheckInputCSVFile(paramNumbers.at(0), file, {"csv"}, m_mapCheckFileCodes)) {
            QZC_LOG(kLabel, "財務諸表CSVファイルのチェックでエラーが検出されました。");
            return false;
        }
    } else {
        if (folder.empty()) {
            QZCUtility::AddParamErrorInfoDefinition(paramNumbers.at(0), "HQZ9000E");
            QZC_LOG(kLabel, kEitherFileOrFolder);
            return false;
        }
        if (!CheckExistsFolder(paramNumbers.at(1), folder)) {
            QZC_LOG(kLabel, "財務諸表CSV格納先フォルダのチェックでエラーが検出されました。");
            return false;
        }
        std::vector<std::string> names;
        GetFileNameList(folder, names);
        if (names.empty()) {
            QZCUtility::AddParamErrorInfoDefinition(paramNumbers.at(1), "HQZ9970E");
            return false;
        }
    }

    const std::string propertyFolder = QZCPublicFunction::GetBundlePath(QZC_RESOURCE_XBRL_V30);
    if (!CheckExistsFolder(paramNumbers.at(2), propertyFolder)) {
        QZC_LOG(kLabel, "プロパティファイル格納先フォルダのチェックでエラーが検出されました。");
        return false;
    }
    const std::string iniVersion =
        QZCPublicFunction::GetInifileString(propertyFolder, "QZFylaCSVConv.ini", "Report", "version");
    if (iniVersion.empty()) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG(kLabel, "iniファイルのバージョン取得に失敗しました。");
        return false;
    }
    if (!version.empty() && version == iniVersion) {
        return true;
    }
    QZCUtility::AddParamErrorInfoDefinition(paramNumbers.at(3), "HQZ9250E");
    QZC_LOG(kLabel, "様式のバージョンとiniファイルのバージョンが一致していません。");
    return false;
}

bool QZCParamCheck::CheckInputCSVFile(int paramNumber, const std::string& path,
                                      const std::vector<std::string>& extensions,
                                      const std::map<CheckFileRS, std::string>& codes)
{
    for (const CheckFileRS result : {CheckPathString(path, extensions), CheckFile(path)}) {
        if (result == CHECK_FILE_EXCEPTION) {
            return false;
        }
        const auto code = codes.find(result);
        if (code != codes.end()) {
            QZCUtility::AddParamErrorInfoDefinition(paramNumber, code->second.c_str());
            return false;
        }
    }
    return true;
}

CheckFileRS QZCParamCheck::CheckPathString(const std::string& path, const std::vector<std::string>& extensions)
{
    if (path.empty()) {
        return CHECK_FILE_EMPTY_PATH;
    }
    std::string extension;
    try {
        extension = QZCMacOSNative::getPathExtension(path.c_str());
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCParamCheck::CheckPathString", kUnexpected);
        return CHECK_FILE_EXCEPTION;
    }
    for (const std::string& allowed : extensions) {
        if (QZCUtility::AsciiLower(extension) == QZCUtility::AsciiLower(allowed)) {
            return CHECK_FILE_OK;
        }
    }
    return CHECK_FILE_BAD_EXTENSION;
}

CheckFileRS QZCParamCheck::CheckFile(const std::string& path)
{
    constexpr const char* kLabel = "QZCParamCheck::CheckFile";
    try {
        if (path.empty()) {
            throw std::invalid_argument("empty path");
        }
        if (!QZCMacOSNative::pathFileExists(path.c_str())) {
            QZC_LOG(kLabel, "CSVファイルが存在しません。");
            return CHECK_FILE_NOT_FOUND;
        }
        if (!QZCMacOSNative::pathFileIsRead(path.c_str())) {
            QZC_LOG(kLabel, "CSVファイルリードエラーが発生しました。");
            return CHECK_FILE_NOT_READABLE;
        }
        if (static_cast<int64_t>(QZCMacOSNative::getFileSize(path.c_str())) <= 0) {
            QZC_LOG(kLabel, "CSVファイルにデータがありません。");
            return CHECK_FILE_NO_DATA;
        }
        return CHECK_FILE_OK;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG(kLabel, kUnexpected);
        return CHECK_FILE_EXCEPTION;
    }
}

bool QZCParamCheck::CheckExistsFolder(int paramNumber, const std::string& folder)
{
    if (folder.empty()) {
        QZCUtility::AddParamErrorInfoDefinition(paramNumber, "HQZ9950E");
        return false;
    }
    if (!QZCMacOSNative::pathDirectoryExists(folder.c_str(), false)) {
        QZCUtility::AddParamErrorInfoDefinition(paramNumber, "HQZ9240E");
        return false;
    }
    return true;
}

bool QZCParamCheck::isUseFileParam(const char* csvFile)
{
    return csvFile != nullptr && *csvFile != '\0';
}

bool QZCParamCheck::GetFileNameList(const std::string& folder, std::vector<std::string>& names)
{
    const bool listed = QZCMacOSNative::getFilesUnderFolder(folder.c_str(), names);
    if (!listed) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCParamCheck::GetFileNameList", kUnexpected);
    }
    return listed;
}
