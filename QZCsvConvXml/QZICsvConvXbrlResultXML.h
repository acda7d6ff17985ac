#pragma once

#include "QZICsvConvExport.h"

#include <cstdint>
#include <string>
#include <vector>

// Check result of one financial statements file, as CheckResultArray holds
// it (written as a decimal number).
enum QZICheckResult : long {
    QZICheckComplete = 0,      // can become XBRL
    QZICheckIncomplete = 1,    // errors in the content
    QZICheckInconsistent = 2,  // differs from the other files (name, fiscal year)
    QZICheckFormatError = 3,   // not checked: name, structure or size refused
};

// Result of the financial statements check as the host receives it. Element
// i of every array belongs to the same file.
class QZC_EXPORT QZICsvConvXbrlResultXML {
public:
    std::string Result;
    std::string DetailErrorInfo;
    int64_t XbrlCsvFileCount = 0;
    std::vector<std::string> CsvFileNameArray;
    std::vector<std::string> CheckResultArray;
    std::vector<std::string> XbrlTypeArray;
    std::vector<std::string> StyleVersionArray;
    std::vector<std::string> CorporateNameArray;
    std::vector<std::string> FiscalYearFromArray;
    std::vector<std::string> FiscalYearToArray;
    std::vector<std::string> GenericCSVArray;
    std::vector<std::string> DetailErrorInfoArray;

    // Empty strings, a count of 0 and empty arrays.
    void initialize();
};
