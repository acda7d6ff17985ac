#include "QZCDatValidExistyear.h"

QZCDatValidExistyear::QZCDatValidExistyear(long column, QZCDatMessage_t message) : QZCDatValidDate(column, message, 2)
{
}

QZCDatMessage_t QZCDatValidExistyear::_validate(const std::string& value)
{
    return ExistCheck(value);
}
