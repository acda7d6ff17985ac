#pragma once

#include "QZCCsvFile.h"

// One financial statements file: header lines "B", "C1", "C2", statement
// start lines "A", title lines and account item lines.
class QZCFinancialStatementsCSV : public QZCCsvFile {
};
