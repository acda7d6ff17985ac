#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "QZCAccountFile.h"
#include "QZCFinancialStatementsCSV.h"
#include "QZCXbrlResult.h"

// What the caller wants done with the files; only checking is supported.
enum OPERATION_TYPE {
    OPERATION_CHECK = 0,
    OPERATION_CONVERT = 1
};

// The financial statements check: decides for every CSV file of a folder (or
// for one file) whether it can become XBRL, and compares the files that can.
//
// How a check flows: the parameters are checked (a refusal is one format
// error record for the whole call); the file names are checked, alone and as
// a folder, and every accepted file is read and its characters checked; over
// 5000 lines in all no file is checked further. Each file still without
// errors then goes through the mediator's pass over its lines, the account
// book builder (layers and the account code list) and the mediator's pass
// over the layered items; its result setter moves the error list into its
// record. Last, the complete files' corporate names and fiscal years are
// compared. A failure of the check itself (a file that cannot be read, a
// definition that cannot be loaded) leaves as an exception.
class QZCProcFacade {
public:
    // Checks a folder (csvFile null) or one file; one result record per file,
    // or one record in all when the arguments are refused. A failure that
    // stops the whole check leaves as an exception.
    static bool CsvCheck2(const char* csvFile, const char* csvFolder, const char* styleVersion,
                          std::vector<_XBRLRESULTINFO>& results);
    static bool CsvCheck2(const char* csvFile, const char* csvFolder, const char* styleVersion,
                          OPERATION_TYPE type, std::vector<QZCAccountFile>& files,
                          std::vector<_XBRLRESULTINFO>& results);

    // Checks the content of one file and sets its result; true when complete.
    static bool validateCSVToXBRL2forOneFile(OPERATION_TYPE type, QZCAccountFile& file,
                                             const std::string& resourceFolder, const std::string& styleVersion);
    // Checks the content of every file still without errors, then compares
    // the complete ones.
    static void checkFiles(std::vector<QZCAccountFile>& files, const std::string& version);
    // Compares corporate name and fiscal year of the complete files.
    static bool checkInterFileConsistency(std::vector<QZCAccountFile>& files, const std::string& styleVersion);
    // Reports the first field that holds a character the service refuses.
    static bool checkValidFylaString(const QZCFinancialStatementsCSV* csv);

    static _XBRLRESULTINFO makeResultInfo(const std::string& fileName, long checkResult, const std::string& xbrlType,
                                          const std::string& styleVersion, const std::string& genericCSV,
                                          const std::string& detailErrorInfo);
    static _XBRLRESULTINFO makeResultInfo(const std::string& fileName, long checkResult, const std::string& xbrlType,
                                          const std::string& styleVersion, const std::string& corporateName,
                                          const std::string& fiscalYearFrom, const std::string& fiscalYearTo,
                                          const std::string& genericCSV, const std::string& detailErrorInfo);

    // Errors after which a file's content is not checked further.
    static bool isCheckError(const std::string& entry, const std::string* codes, size_t count);
    static bool isGeneralCheckError(const std::string& entry);
    static std::vector<std::string>::iterator getGeneralCheckErrorIterator();
    static bool isExistGeneralCheckError();
    static void setOnlyGeneralCheckError();
};
