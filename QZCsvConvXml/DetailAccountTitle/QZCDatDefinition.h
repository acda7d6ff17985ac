#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "QZCDatCsvFile.h"
#include "QZCDatXMLDefReport.h"

class QZCDOMParser;
class QZCDatITData;

// What one element name collects on one page of the report: its tags, whether
// it is one container for all records of the page, and the fragments of the
// records by the name of their first element, in record order.
struct _ReportTable {
    std::string startTag;
    std::string endTag;
    std::string sibling;
    std::map<std::string, std::string> children;
};

using QZCDatRootNodes = std::vector<std::unique_ptr<QZCDatXMLDefReport>>;

// The validation definition of the form being converted, as one tree of
// definition nodes per format kubun of the CSV file, and the pass that runs
// those trees over the records.
class QZCDatDefinition {
public:
    QZCDatDefinition();
    virtual ~QZCDatDefinition();
    QZCDatDefinition(const QZCDatDefinition&) = delete;
    QZCDatDefinition& operator=(const QZCDatDefinition&) = delete;

    // One validation tree per format kubun, in ascending key order. 0 or -1.
    int CreateValidDefinition(const std::map<std::string, ReportAttr_t>& formatKubun, QZCDOMParser* definition);
    // The nested trees that report XML is written from. 0 or -1.
    int CreatePrintDefinition(const std::map<std::string, ReportAttr_t>& formatKubun, QZCDOMParser* definition);
    void ClearVecRootNode();
    void Clear();

    // The first root whose id occurs in the format kubun; null for none.
    static QZCDatXMLDefReport* GetRootNode(const QZCDatRootNodes& roots, const char* formatKubun);
    const QZCDatRootNodes& GetValidRootNodes() const;
    const QZCDatRootNodes& GetPrintRootNodes() const;

    // Total rows first (the first failure ends the pass), then every record
    // with all its failures recorded. 0, or -1 when any check failed.
    int ValidateCsv(QZCDatCsvFile* csv);

    // The report XML of a checked file: one page element per page, in page
    // order, from the print trees. Throws -1 on failure.
    std::string MakeReportToCsv(const QZCDatCsvFile* csv, const QZCDatITData* itData);

private:
    // The tables of each page's first-level elements, by page number.
    using ReportPages = std::map<int64_t, std::map<std::string, _ReportTable>>;
    // One page element per page, in page order, around its tables.
    std::string WritePages(const ReportPages& pages, const QZCDatITData* itData) const;
    void GetLevel4Tag(const QZCDatXMLDefReport* report, std::string fragment, std::string& name,
                      _ReportTable& table) const;
    void TagCorrection1(std::string& fragment, _ReportTable& table) const;
    void TagAppend(std::map<std::string, std::string>& stored, const std::map<std::string, std::string>& added) const;
    void TagCorrection2(std::string& output, const _ReportTable& table) const;

    int CreateDefinition(const std::map<std::string, ReportAttr_t>& formatKubun, QZCDOMParser* definition,
                         bool print, const char* label);
    // Puts the cursor on the "report" element of the key and the style version.
    bool MoveToReport(const std::string& key, const std::string& styleVersion);

    std::string m_strReportId;
    QZCDatRootNodes m_vecValidRootNode;
    QZCDatRootNodes m_vecPrintRootNode;
    QZCDOMParser* m_pDefinition = nullptr;
};
