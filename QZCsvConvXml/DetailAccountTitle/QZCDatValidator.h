#pragma once

#include <memory>
#include <string>
#include <vector>

#include "QZCDatITData.h"
#include "QZCDatValidItem.h"

class QZCDOMParser;

// The ordered checks of one field or one call argument, run as one.
class QZCDatValidator {
public:
    QZCDatValidator() = default;
    virtual ~QZCDatValidator();
    QZCDatValidator(const QZCDatValidator&) = delete;
    QZCDatValidator& operator=(const QZCDatValidator&) = delete;

    // From the "valid" children of the element at the cursor; column is the
    // default column. 0, or -1 (logged) on a definition fault.
    int Initialize(long column, QZCDOMParser* dom);
    // Reads the "outer" children of the "valid" element at the cursor into item.
    int SetUpOuter(QZCDOMParser* dom, QZCDatValidItem* item);
    // From the fixed table of a call argument; parameter is the definition
    // file that the style version check looks for. Throws on failure.
    int Initialize(QZCDatArgValid_t argument, const char* parameter);

    // Runs every check on the record (each failure adds its error): 0 or -1.
    int ValidateCsv(QZCDatCsvFile* csv, long row, long col);
    // Runs the checks on one value up to the first failure: 0 or -1.
    int Validate(const std::string& value, long row, long col);
    void Clear();

private:
    std::vector<std::unique_ptr<QZCDatValidItem>> m_vecItems;
};
