#include "QZCLog.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "QZCMacOSNative.h"

thread_local bool QZCLog::m_bOutput = false;
thread_local std::string QZCLog::m_strOutputPath;

void QZCLog::InitDebugDump()
{
    if (!std::getenv(kSwitchVariable))
        return;
    m_bOutput = true;
    std::string home = QZCMacOSNative::homeDirectory();
    std::string name = QZCMacOSNative::dateTimeNow("'_VORNA_QZCSVCONV_'yyyyMMdd'.log'", nullptr);
    m_strOutputPath = QZCMacOSNative::appendFilePath(home.c_str(), name.c_str());
}

void QZCLog::OutputLog(const char* sourceFile, int64_t line, const char* label, const char* message)
{
    if (!m_bOutput || !sourceFile || !label)
        return;
    // Source positions are given from the library's own folder on.
    if (const char* inLibrary = std::strstr(sourceFile, "QZCsvConvXml/"))
        sourceFile = inLibrary + std::strlen("QZCsvConvXml/");

    std::string now = QZCMacOSNative::dateTimeNow("yyyy'-'MM'-'dd", "HH':'mm':'ss");
    char header[512];
    std::snprintf(header, sizeof header, "--%s %s--\n", now.c_str(), label);
    char position[512];
    std::snprintf(position, sizeof position, "[File:%s Line:%ld]\n", sourceFile, static_cast<long>(line));

    std::string record = header;
    if (message) {
        record += message;
        record += '\n';
    }
    record += position;
    record += '\n';

    if (FILE* file = std::fopen(m_strOutputPath.c_str(), "a")) {
        std::fwrite(record.data(), 1, record.size(), file);
        std::fflush(file);
        std::fclose(file);
    }
}
