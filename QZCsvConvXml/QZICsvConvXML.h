#pragma once

#include "QZICsvConvExport.h"
#include "QZICsvConvResultXML.h"
#include "QZICsvConvXbrlResultXML.h"

// Result codes of every operation.
extern QZC_EXPORT const char* const PROCESS_OK;
extern QZC_EXPORT const char* const PROCESS_FAIL;
extern QZC_EXPORT const char* const EMPTY_CONST_CHAR;

extern QZC_EXPORT const double QZCsvConvXmlVersionNumber;
extern QZC_EXPORT const unsigned char QZCsvConvXmlVersionString[];

// The library's interface. Arguments are UTF-8 texts; a null pointer or a
// text that is not valid UTF-8 is passed on as a missing argument. No
// operation lets an exception reach the caller.
class QZC_EXPORT QZICsvConvXML {
public:
    // Checks a detail-statement CSV file (Conformity stays 0).
    QZICsvConvResultXML CsvCheckToDetailAccountTitle(const char* csvPath, const char* styleVersion);
    // Checks a detail-statement CSV file and tells whether it can be converted.
    QZICsvConvResultXML CsvCheckToDetailAccountTitle2(const char* csvPath, const char* styleVersion);
    // Checks an appended-table CSV file and tells whether it can be converted.
    QZICsvConvResultXML CsvCheckToAppendedTable(const char* csvPath, const char* styleVersion);
    // Writes UTF-8 text as a Shift_JIS file; text without a Shift_JIS form
    // is refused and nothing is written.
    // Checks a detail statement or appended table like the second detail
    // operation and, when it can be converted, fills report with its report
    // XML document (UTF-8); otherwise report is empty.
    QZICsvConvResultXML CsvReportToXml(const char* csvPath, const char* styleVersion, std::string& report);
    QZICsvConvResultXML CsvWrite(const char* outputPath, const char* utf8Data);

    // Checks a folder of financial statements CSV files.
    QZICsvConvXbrlResultXML CsvCheckToXbrl2(const char* csvFolder, const char* styleVersion);
};
