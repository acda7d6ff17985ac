#pragma once

#include <string>

class QZCFinancialStatementsCSV;

// Turns a financial statements file into account books.
class QZCAccountBookListBuilder {
public:
    virtual ~QZCAccountBookListBuilder() = default;

    // Builds the books and fills the header values; false when the file
    // breaks a rule of the statement structure.
    virtual bool AnalyzeFinancialStatement(const QZCFinancialStatementsCSV& csv, std::string& corporateName,
                                           std::string& fiscalYearFrom, std::string& fiscalYearTo) = 0;
};
