// The financial statements CSV reader.
#include "FuzzSupport.h"
#include "QZCFinancialStatementsCSV.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text = Bytes(data, size);
    ResetErrors();
    QZCFinancialStatementsCSV csv;
    csv.ParseCsvData(text.c_str());
    return 0;
}
