#pragma once

#include "QZCDatValidDate.h"

// The era year ("existyear") exists and lies within its era.
class QZCDatValidExistyear : public QZCDatValidDate {
public:
    QZCDatValidExistyear(long column, QZCDatMessage_t message);

protected:
    QZCDatMessage_t _validate(const std::string& value) override;
};
