#pragma once

class QZCCsvConvResultXML;
class QZCXbrlResult;

// Runs one operation of the library. Constructing it switches the debug log
// on when asked for and initialises the XML platform; destroying it ends the
// XML platform, empties the error list and deletes the result records, so
// nothing survives from one operation to the next.
class QZCCsvConvXML {
public:
    QZCCsvConvXML();
    virtual ~QZCCsvConvXML();
    QZCCsvConvXML(const QZCCsvConvXML&) = delete;
    QZCCsvConvXML& operator=(const QZCCsvConvXML&) = delete;

    // Checks a folder of financial statements; null only when the record
    // could not be created.
    QZCXbrlResult* CsvCheckToXbrl2(const char* csvFolder, const char* styleVersion);

    static bool CreateResult();
    static void ReleaseResult();
    static bool CreateXbrlResult();
    static void ReleaseXbrlResult();

    static QZCCsvConvResultXML* m_pResult;
    static QZCXbrlResult* m_pXbrlResult;
};
