#include "QZICsvConvSupport.h"

#include "QZCErrorInfo.h"
#include "QZCFileWriter.h"
#include "QZCLoadResource.h"
#include "QZCMacOSNative.h"
#include "QZCUtility.h"

std::vector<QZICsvConvSupport::ErrorEntry> QZICsvConvSupport::ParseErrorInfo(const std::string& errorInfo)
{
    std::vector<ErrorEntry> entries;
    for (size_t start = 0; start < errorInfo.size();) {
        size_t comma = errorInfo.find(',', start);
        if (comma == std::string::npos)
            comma = errorInfo.size();
        ErrorEntry entry;
        if (QZCErrorInfo::Parse(std::string_view(errorInfo).substr(start, comma - start), entry.line, entry.column,
                                entry.code))
            entries.push_back(std::move(entry));
        start = comma + 1;
    }
    return entries;
}

std::optional<QZICsvConvSupport::DetailMessage> QZICsvConvSupport::FindDetailMessage(const std::string& code)
{
    for (const QZCDatMsgRow& row : DatMsgTable) {
        if (*row.code && code == row.code)
            return DetailMessage{row.message, row.blocksConversion != 0};
    }
    return std::nullopt;
}

bool QZICsvConvSupport::WriteFile(const std::string& path, const std::string& bytes)
{
    return QZCFileWriter::Write(path.c_str(), bytes);
}

std::optional<std::string> QZICsvConvSupport::ShiftJISToUtf8(const std::string& bytes)
{
    return QZCMacOSNative::sjisToUtf8(bytes);
}

std::optional<std::string> QZICsvConvSupport::Utf8ToShiftJIS(const std::string& text)
{
    return QZCMacOSNative::utf8ToSjis(text);
}

bool QZICsvConvSupport::IsAvailableString(const std::string& text)
{
    return QZCUtility::IsFylaAvailableString(text.c_str());
}

std::string QZICsvConvSupport::BundlePath()
{
    return QZCLoadResource().getBundlePath();
}

const char* QZICsvConvSupport::BundleVariable()
{
    return QZCLoadResource::kBundleVariable;
}
