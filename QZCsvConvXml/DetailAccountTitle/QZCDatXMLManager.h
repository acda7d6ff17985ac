#pragma once

#include <cstdint>
#include <string>

#include "QZCDatITData.h"

// Drives one check of a detail-statement or appended-table CSV file: the
// call's arguments, the file-name rule with the report id and style version
// it implies, the outward checks of the file, loading the CSV file with its
// validation definition and validating every record. Operations return 0 on
// success and non-zero on failure; what went wrong is in the error list.
// Destroying the manager ends the conversion's shared state.
//
// How a check flows: InitForPath checks the CSV path and finds the
// definition folder; SetITData with the style version applies the file-name
// rule, reads the file once for its report id (GetReportId) and checks the
// version against the forms table; AppearanceCheck checks the name's
// characters and length and, in the light pass, every character of the
// text; LoadCsvWithDefinition parses the definition, reads the file record
// by record, checking each record's frame (format kubun, columns, row kind,
// rows per page: QZCDatCsvFile), and builds the tree of definition nodes
// with their validators (QZCDatDefinition); ValidateCsv runs every node's
// validators over every record. Each failed check adds its entry.
class QZCDatXMLManager {
public:
    explicit QZCDatXMLManager(uint16_t typeCase);
    virtual ~QZCDatXMLManager();
    QZCDatXMLManager(const QZCDatXMLManager&) = delete;
    QZCDatXMLManager& operator=(const QZCDatXMLManager&) = delete;

    // Hands the type case to the filer data; throws -1 when that fails.
    void InitObject();
    bool SetTypeCaseInside();
    // Checks a path argument (CSV file, definition folder, output file).
    int InitForPath(QZCDatArgValid_t kind, const char* value);
    // Checks and records a filer-data argument; for ARG_VR the file-name rule,
    // the report id and the style version.
    int SetITData(QZCDatArgValid_t kind, const char* value);

    // The file-name rule; a failure adds "HQZ9350E" (the internal form adds nothing).
    int IsCorrectCsvFilename(const std::string& path);
    int IsCorrectCsvFilenameInternal(const std::string& path);
    static bool IsValidFilename(const std::string& base, const std::string& minor, const char* reportId,
                                const char* version);
    static bool IsValidFilename(const std::string& base, const std::string& minor, const std::string& candidate);

    // Report id, separator and style version as the validation definition names them.
    std::string GetIdVr(const std::string& separator);
    // The form code from the file name, read once together with the CSV text.
    const std::string& GetReportId();
    bool CheckStyleVersion(const std::string& reportId, const std::string& version) const;
    // Accepted only while the report id is unknown.
    bool SetInputReportVersion(const char* version);

    // File name, its characters and length, and the characters of the data.
    int AppearanceCheck(const char* csvPath);
    int LoadCsvWithDefinition();
    const std::string& GetCsvData() const;
    int ValidateCsv();
    // The report XML of the loaded file, from the print trees of its
    // definition (the page elements, without a document element).
    int MakeReport(std::string& xml);
    void Terminate(bool destroy);

private:
    bool IsTypeCaseDetail() const;
    std::string DefinitionPath(const std::string& reportId, const std::string& version) const;

    std::string m_strCsvPath;
    std::string m_strDefinitionFolder;
    std::string m_strReportId;
    std::string m_strInputReportVersion;
    std::string m_strCsvData;
    uint16_t m_nTypeCase;
};
