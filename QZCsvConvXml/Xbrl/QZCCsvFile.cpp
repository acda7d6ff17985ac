#include "QZCCsvFile.h"

#include <cstring>

#include "QZCLog.h"
#include "QZCMacOSNative.h"
#include "QZCPublicFunction.h"
#include "QZCUtility.h"

bool QZCCsvFile::ReadCsvFile(const char* path)
{
    constexpr const char* kLabel = "QZCCsvFile::ReadCsvFile";
    m_strText.clear();
    if (path == nullptr || *path == '\0') {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG(kLabel, "ファイル名が設定されていません。");
        return false;
    }
    const char* failure = nullptr;
    if (!QZCMacOSNative::pathFileExists(path)) {
        failure = "CSVファイルが存在しません。";
    } else if (!QZCMacOSNative::pathFileIsRead(path)) {
        failure = "CSVファイルリードエラーが発生しました。";
    } else if (static_cast<int64_t>(QZCMacOSNative::getFileSize(path)) <= 0) {
        failure = "CSVファイルにデータがありません。";
    }
    if (failure != nullptr) {
        QZC_LOG(kLabel, failure);
        QZCUtility::AddOtherExceptionErrorInfo();
        return false;
    }
    m_strText = QZCMacOSNative::readSJISFile(path);
    return ParseCsvData(m_strText.c_str());
}

void QZCCsvFile::InitMembers()
{
    m_vLines.clear();
    m_strText.clear();
}

bool QZCCsvFile::StoreDataWithinBuffers(std::string& field, Line& lineFields, bool endOfLine)
{
    lineFields.push_back(QZCPublicFunction::StringTrim(field));
    field.clear();
    if (endOfLine) {
        m_vLines.push_back(std::move(lineFields));
        lineFields.clear();
    }
    return true;
}

bool QZCCsvFile::ParseCsvData(const char* text)
{
    if (text == nullptr) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCCsvFile::ParseCsvData", "想定外エラーが発生しました。");
        return false;
    }
    try {
        const size_t length = std::strlen(text);
        std::string field;
        Line lineFields;
        size_t fieldStart = 0;
        bool quoted = false;
        for (size_t i = 0;; ++i) {
            const bool atEnd = i >= length;
            const char c = atEnd ? '\0' : text[i];
            if (quoted) {
                if (atEnd) {
                    return StoreDataWithinBuffers(field, lineFields, true);
                }
                if (c != '"') {
                    field += c;
                    continue;
                }
                // A quote closes the field only where a separator follows,
                // or a single character before the line feed (a blank).
                const char next = i + 1 < length ? text[i + 1] : '\0';
                const bool closes = next == ',' || next == '\r' || next == '\n' || next == '\0'
                                    || (i + 2 < length && text[i + 2] == '\n');
                if (closes) {
                    quoted = false;
                } else {
                    field += c;
                }
                continue;
            }
            if (atEnd) {
                if (lineFields.empty() && field.empty()) {
                    return true;
                }
                return StoreDataWithinBuffers(field, lineFields, true);
            }
            if (c == '\n' || c == '\r') {
                StoreDataWithinBuffers(field, lineFields, true);
                if (c == '\r' && i + 1 < length && text[i + 1] == '\n') {
                    ++i;
                }
                fieldStart = i + 1;
            } else if (c == '"' && i == fieldStart) {
                quoted = true;
            } else if (c == ',') {
                StoreDataWithinBuffers(field, lineFields, false);
                fieldStart = i + 1;
            } else {
                field += c;
            }
        }
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCCsvFile::ParseCsvData", "予期せぬ例外が発生しました。");
        return false;
    }
}
