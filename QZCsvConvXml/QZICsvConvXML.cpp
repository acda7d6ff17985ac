#include "QZICsvConvXML.h"

#include <memory>

#include <unicode/ustring.h>

#include "QZCCsvConvResultXML.h"
#include "QZCCsvConvXML.h"
#include "QZCMacOSNative.h"
#include "QZCXbrlResult.h"

const char* const PROCESS_OK = "S_OK";
const char* const PROCESS_FAIL = "E_FAIL";
const char* const EMPTY_CONST_CHAR = "";

const double QZCsvConvXmlVersionNumber = 1.0;
const unsigned char QZCsvConvXmlVersionString[] = QZC_VERSION;

namespace {

// The argument as the facade takes it: a null pointer stays null, and so
// does a text that is not valid UTF-8.
const char* utf8Argument(const char* text)
{
    if (!text)
        return nullptr;
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    u_strFromUTF8(nullptr, 0, &length, text, -1, &status);
    return status == U_INVALID_CHAR_FOUND || status == U_ILLEGAL_CHAR_FOUND ? nullptr : text;
}

// Runs one operation of the detail and writing side on a fresh facade and
// copies its record; the conformity only when the operation reports one.
template <typename Operation>
QZICsvConvResultXML runDetailOperation(Operation operation, bool withConformity)
{
    QZICsvConvResultXML result;
    try {
        result.initialize();
        auto facade = std::make_unique<QZCCsvConvXML>();
        const QZCCsvConvResultXML* record = operation(*facade);
        if (!record)
            return result;
        result.Result = record->GetResult();
        result.DetailErrorInfo = record->GetDetailErrorInfo();
        if (withConformity)
            result.Conformity = record->GetConformity();
    } catch (...) {
        // Whatever was copied so far is the answer.
    }
    return result;
}

std::string lastPathComponent(const std::string& path)
{
    size_t separator = path.find_last_of('/');
    return separator == std::string::npos ? path : path.substr(separator + 1);
}

}  // namespace

QZICsvConvXbrlResultXML QZICsvConvXML::CsvCheckToXbrl2(const char* csvFolder, const char* styleVersion)
{
    QZICsvConvXbrlResultXML result;
    try {
        result.initialize();
        auto facade = std::make_unique<QZCCsvConvXML>();
        const QZCXbrlResult* record = facade->CsvCheckToXbrl2(utf8Argument(csvFolder), utf8Argument(styleVersion));
        if (!record)
            return result;
        result.Result = record->GetResult();
        result.DetailErrorInfo = record->GetDetailErrorInfo();
        int64_t count = record->GetCsvFileCount();
        result.XbrlCsvFileCount = count;
        for (int64_t i = 0; i < count; ++i) {
            result.CsvFileNameArray.push_back(lastPathComponent(record->GetFileName(i)));
            result.CheckResultArray.push_back(std::to_string(record->GetCheckResult(i)));
            result.XbrlTypeArray.push_back(record->GetXbrlType(i));
            result.StyleVersionArray.push_back(record->GetStyleVersion(i));
            result.CorporateNameArray.push_back(record->GetCorporateName(i));
            result.FiscalYearFromArray.push_back(record->GetFiscalYearFrom(i));
            result.FiscalYearToArray.push_back(record->GetFiscalYearTo(i));
            result.GenericCSVArray.push_back(record->GetGenericCSV(i));
            result.DetailErrorInfoArray.push_back(record->GetDetailErrorInfo(i));
        }
    } catch (...) {
        // Whatever was copied so far is the answer.
    }
    return result;
}

QZICsvConvResultXML QZICsvConvXML::CsvReportToXml(const char* csvPath, const char* styleVersion, std::string& report)
{
    report.clear();
    return runDetailOperation(
        [&](QZCCsvConvXML& facade) {
            return facade.CsvReportToXml(utf8Argument(csvPath), utf8Argument(styleVersion), report);
        },
        true);
}

QZICsvConvResultXML QZICsvConvXML::CsvCheckToDetailAccountTitle(const char* csvPath, const char* styleVersion)
{
    return runDetailOperation(
        [&](QZCCsvConvXML& facade) {
            return facade.CsvCheckToDetailAccountTitle(utf8Argument(csvPath), utf8Argument(styleVersion));
        },
        false);
}

QZICsvConvResultXML QZICsvConvXML::CsvCheckToDetailAccountTitle2(const char* csvPath, const char* styleVersion)
{
    return runDetailOperation(
        [&](QZCCsvConvXML& facade) {
            return facade.CsvCheckToDetailAccountTitle2(utf8Argument(csvPath), utf8Argument(styleVersion));
        },
        true);
}

QZICsvConvResultXML QZICsvConvXML::CsvCheckToAppendedTable(const char* csvPath, const char* styleVersion)
{
    return runDetailOperation(
        [&](QZCCsvConvXML& facade) {
            return facade.CsvCheckToAppendedTable(utf8Argument(csvPath), utf8Argument(styleVersion));
        },
        true);
}

QZICsvConvResultXML QZICsvConvXML::CsvWrite(const char* outputPath, const char* utf8Data)
{
    return runDetailOperation(
        [&](QZCCsvConvXML& facade) {
            // The data goes on as Shift_JIS; without a Shift_JIS form it is missing.
            std::optional<std::string> data;
            if (utf8Data)
                data = QZCMacOSNative::utf8ToSjis(utf8Data);
            return facade.CsvWrite(utf8Argument(outputPath), data ? data->c_str() : nullptr);
        },
        false);
}
