#include "qzcsvconv.h"

#include <new>
#include <string>
#include <vector>

#include "QZICsvConvXML.h"

// One answer of any operation: the statements record holds the result code,
// the error text and, for the statements check, the per-file arrays.
struct qzc_result {
    QZICsvConvXbrlResultXML answer;
    int64_t conformity = 0;
    std::string report;
};

namespace {

// Builds the result of one operation; no exception reaches the C caller, and
// running out of memory answers NULL.
template <typename Fill>
qzc_result* makeResult(Fill fill)
{
    qzc_result* result = new (std::nothrow) qzc_result;
    if (!result)
        return nullptr;
    try {
        fill(*result);
    } catch (...) {
        delete result;
        return nullptr;
    }
    return result;
}

// A detail, write or report operation; only the report operation fills the
// report it is handed.
template <typename Operation>
qzc_result* detailResult(Operation operation)
{
    return makeResult([&](qzc_result& result) {
        QZICsvConvResultXML answer = operation(result.report);
        result.answer.Result = std::move(answer.Result);
        result.answer.DetailErrorInfo = std::move(answer.DetailErrorInfo);
        result.conformity = answer.Conformity;
    });
}

const char* fileText(const qzc_result* result, int64_t index,
                     std::vector<std::string> QZICsvConvXbrlResultXML::*array)
{
    if (!result || index < 0 || index >= result->answer.XbrlCsvFileCount)
        return nullptr;
    const std::vector<std::string>& texts = result->answer.*array;
    return static_cast<size_t>(index) < texts.size() ? texts[index].c_str() : nullptr;
}

}  // namespace

qzc_result* qzc_check_detail(const char* csv_path, const char* style_version)
{
    return detailResult([&](std::string&) {
        return QZICsvConvXML().CsvCheckToDetailAccountTitle(csv_path, style_version);
    });
}

qzc_result* qzc_check_detail2(const char* csv_path, const char* style_version)
{
    return detailResult([&](std::string&) {
        return QZICsvConvXML().CsvCheckToDetailAccountTitle2(csv_path, style_version);
    });
}

qzc_result* qzc_check_appended(const char* csv_path, const char* style_version)
{
    return detailResult([&](std::string&) {
        return QZICsvConvXML().CsvCheckToAppendedTable(csv_path, style_version);
    });
}

qzc_result* qzc_write(const char* output_path, const char* text)
{
    return detailResult([&](std::string&) { return QZICsvConvXML().CsvWrite(output_path, text); });
}

qzc_result* qzc_report(const char* csv_path, const char* style_version)
{
    return detailResult([&](std::string& report) {
        return QZICsvConvXML().CsvReportToXml(csv_path, style_version, report);
    });
}

qzc_result* qzc_check_statements(const char* csv_folder, const char* style_version)
{
    return makeResult([&](qzc_result& result) {
        result.answer = QZICsvConvXML().CsvCheckToXbrl2(csv_folder, style_version);
    });
}

const char* qzc_result_code(const qzc_result* result)
{
    return result ? result->answer.Result.c_str() : nullptr;
}

const char* qzc_result_error_info(const qzc_result* result)
{
    return result ? result->answer.DetailErrorInfo.c_str() : nullptr;
}

int64_t qzc_result_conformity(const qzc_result* result)
{
    return result ? result->conformity : 0;
}

const char* qzc_result_report(const qzc_result* result)
{
    return result ? result->report.c_str() : nullptr;
}

int64_t qzc_result_file_count(const qzc_result* result)
{
    return result ? result->answer.XbrlCsvFileCount : 0;
}

// The per-file accessors, one for each array of the statements record.
#define QZC_FILE_TEXT(name, array)                                               \
    const char* qzc_result_file_##name(const qzc_result* result, int64_t index) \
    {                                                                            \
        return fileText(result, index, &QZICsvConvXbrlResultXML::array);         \
    }
QZC_FILE_TEXT(name, CsvFileNameArray)
QZC_FILE_TEXT(check_result, CheckResultArray)
QZC_FILE_TEXT(xbrl_type, XbrlTypeArray)
QZC_FILE_TEXT(style_version, StyleVersionArray)
QZC_FILE_TEXT(corporate_name, CorporateNameArray)
QZC_FILE_TEXT(fiscal_year_from, FiscalYearFromArray)
QZC_FILE_TEXT(fiscal_year_to, FiscalYearToArray)
QZC_FILE_TEXT(generic_csv, GenericCSVArray)
QZC_FILE_TEXT(error_info, DetailErrorInfoArray)
#undef QZC_FILE_TEXT

void qzc_result_free(qzc_result* result)
{
    delete result;
}
