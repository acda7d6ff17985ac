#include "QZICsvConvSupport.h"

#include <unicode/ustring.h>

#include "QZCCsvFile.h"
#include "QZCCsvTokenizer.h"
#include "QZCDOMParser.h"
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

std::optional<std::string> QZICsvConvSupport::TextToUtf8(const std::string& bytes)
{
    const std::string_view bom = "\xEF\xBB\xBF";
    std::string_view text = bytes;
    if (text.substr(0, bom.size()) == bom)
        text.remove_prefix(bom.size());
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    u_strFromUTF8(nullptr, 0, &length, text.data(), static_cast<int32_t>(text.size()), &status);
    if (status != U_INVALID_CHAR_FOUND && status != U_ILLEGAL_CHAR_FOUND)
        return std::string(text);
    return ShiftJISToUtf8(bytes);
}

std::vector<std::vector<std::string>> QZICsvConvSupport::ParseCsv(const std::string& text)
{
    QZCCsvFile csv;
    csv.ParseCsvData(text.c_str());
    return csv.GetCSVData();
}

std::vector<std::vector<QZICsvConvSupport::CsvField>> QZICsvConvSupport::SplitDetailCsv(const std::string& text)
{
    std::vector<std::vector<CsvField>> records(1);
    QZCCsvTokenizer::Split(std::string_view(text.c_str()), QZCCsvTokenizer::QuotedEnd::DropsEmptyRecord,
                           [&](std::string_view field, bool endOfRecord, QZCCsvTokenizer::Span span) {
                               records.back().push_back(CsvField{std::string(field), span.begin, span.end});
                               if (endOfRecord)
                                   records.emplace_back();
                               return true;
                           });
    // The record the last line end opened holds nothing.
    records.pop_back();
    return records;
}

std::vector<std::vector<std::string>> QZICsvConvSupport::ReadCsvRecords(const std::string& path)
{
    return ParseCsv(QZCMacOSNative::readSJISFile(path.c_str()));
}

uint64_t QZICsvConvSupport::MaxReadableFileSize()
{
    return QZCFileAccess::kMaxReadableFileSize;
}

bool QZICsvConvSupport::IsWellFormedXml(const std::string& text)
{
    QZCDOMParser parser;
    return parser.Initialize() && parser.Parse(text.c_str(), "document", "UTF-8");
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
