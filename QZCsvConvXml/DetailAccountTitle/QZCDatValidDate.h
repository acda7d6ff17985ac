#pragma once

#include "QZCDatValidItem.h"

// Base of the era date checks. A date is written over consecutive columns:
// era code (1 明治 to 5 令和), year of the era, then month and day as the
// precision asks. The columns are joined into an era date such as
// 令和05/04/01, turned into a Western date and checked against the era.
class QZCDatValidDate : public QZCDatValidItem {
public:
    QZCDatValidDate(long column, QZCDatMessage_t message);

    int ValidateCsv(QZCDatCsvFile* csv, long row, long col) override;
    int ValidateOuter(QZCDatCsvFile* csv, long row, long col) override;

    // The era date of the record's columns from col on; "" when they are all empty.
    virtual std::string GetDateString(QZCDatCsvFile* csv, long row, long col);
    // 令和05/04/01 becomes 2023/04/01; a Western date is returned unchanged.
    virtual std::string WarekiToSeireki(const std::string& eraDate);

    static std::string GetEra(long code);
    static bool CHK_ERA(long code);
    // MSG_NONE when the date exists and lies within the era it names.
    QZCDatMessage_t ExistCheck(const std::string& eraDate);

protected:
    // Precision 0: full date, 1: year and month, 2: year only.
    QZCDatValidDate(long column, QZCDatMessage_t message, int precision);

    int m_nPrecision;
};
