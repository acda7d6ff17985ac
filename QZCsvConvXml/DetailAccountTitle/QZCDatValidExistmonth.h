#pragma once

#include "QZCDatValidDate.h"

// The era year and month ("existmonth") exists and lies within its era.
class QZCDatValidExistmonth : public QZCDatValidDate {
public:
    QZCDatValidExistmonth(long column, QZCDatMessage_t message);

protected:
    QZCDatMessage_t _validate(const std::string& value) override;
};
