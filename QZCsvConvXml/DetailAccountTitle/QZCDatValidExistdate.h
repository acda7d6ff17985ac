#pragma once

#include "QZCDatValidDate.h"

// The era full date ("existdate") exists and lies within its era.
class QZCDatValidExistdate : public QZCDatValidDate {
public:
    QZCDatValidExistdate(long column, QZCDatMessage_t message);

protected:
    QZCDatMessage_t _validate(const std::string& value) override;
};
