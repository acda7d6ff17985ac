#pragma once

#include <cstdint>
#include <string>

class QZCCsvConvResultXML;
class QZCXbrlResult;

// Runs one operation of the library. Constructing it switches the debug log
// on when asked for and initialises the XML platform; destroying it ends the
// XML platform, empties the error list and deletes the result records, so
// nothing survives from one operation to the next.
//
// How a check flows: every operation empties the error list and the record
// count, then drives one subsystem. The detail operations run a
// QZCDatXMLManager through its fixed steps (arguments, style version and
// file-name rule, outward checks, loading the file with its definition,
// validating every record); a failed step ends the run, and the conformity
// comes from the entries gathered (blocking codes of the detail message
// table give "cannot be converted"). The financial statements operation
// hands the folder to QZCProcFacade::CsvCheck2, which leaves one result
// record per file. Writing checks the folder and hands the data to the file
// writer. Every entry goes to the one error list, joined for the caller.
class QZCCsvConvXML {
public:
    QZCCsvConvXML();
    virtual ~QZCCsvConvXML();
    QZCCsvConvXML(const QZCCsvConvXML&) = delete;
    QZCCsvConvXML& operator=(const QZCCsvConvXML&) = delete;

    // Checks a folder of financial statements; null only when the record
    // could not be created.
    QZCXbrlResult* CsvCheckToXbrl2(const char* csvFolder, const char* styleVersion);

    // Checks a detail-statement CSV file; the first form reports no conformity.
    QZCCsvConvResultXML* CsvCheckToDetailAccountTitle(const char* csvPath, const char* styleVersion);
    QZCCsvConvResultXML* CsvCheckToDetailAccountTitle2(const char* csvPath, const char* styleVersion);
    QZCCsvConvResultXML* CsvCheckToAppendedTable(const char* csvPath, const char* styleVersion);
    // Checks a detail statement (a form id beginning with HOI) or an appended
    // table and, when the conformity allows conversion, gives its report XML
    // as a document; otherwise the report stays empty.
    QZCCsvConvResultXML* CsvReportToXml(const char* csvPath, const char* styleVersion, std::string& report);
    // Writes Shift_JIS data to a file, replacing it whole or leaving it as it was.
    QZCCsvConvResultXML* CsvWrite(const char* outputPath, const char* data);

    bool WriteFileData(const char* path, const char* data);
    // 0 when the error text is empty or holds a blocking code, else 2.
    int64_t GetCsvCorrectness(const std::string& errors);

    static bool CreateResult();
    static void ReleaseResult();
    static bool CreateXbrlResult();
    static void ReleaseXbrlResult();

    static QZCCsvConvResultXML* m_pResult;
    static QZCXbrlResult* m_pXbrlResult;

private:
    // The second detail operation and the appended table, which also report
    // the conformity.
    // With a report given, it is filled when the file can be converted.
    QZCCsvConvResultXML* CheckWithConformity(const char* csvPath, const char* styleVersion, uint16_t typeCase,
                                             const char* folder, const char* label, std::string* report = nullptr);
    // Creates and empties the result record and the error list; null when
    // the record cannot be created.
    QZCCsvConvResultXML* StartResult();
};
