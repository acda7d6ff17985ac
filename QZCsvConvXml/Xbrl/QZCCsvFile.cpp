#include "QZCCsvFile.h"

#include "QZCCsvTokenizer.h"
#include "QZCLog.h"
#include "QZCMacOSNative.h"
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
    const char* failure = QZCMacOSNative::csvFileProblem(path);
    if (*failure != '\0') {
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

bool QZCCsvFile::StoreDataWithinBuffers(std::string_view field, Line& lineFields, bool endOfLine)
{
    lineFields.emplace_back(field);
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
        Line lineFields;
        return QZCCsvTokenizer::Split(text, QZCCsvTokenizer::QuotedEnd::KeepsRecord,
                                      [&](std::string_view field, bool endOfLine, QZCCsvTokenizer::Span) {
                                          return StoreDataWithinBuffers(field, lineFields, endOfLine);
                                      });
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCCsvFile::ParseCsvData", "予期せぬ例外が発生しました。");
        return false;
    }
}
