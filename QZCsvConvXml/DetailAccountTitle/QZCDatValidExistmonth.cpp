#include "QZCDatValidExistmonth.h"

QZCDatValidExistmonth::QZCDatValidExistmonth(long column, QZCDatMessage_t message) : QZCDatValidDate(column, message, 1)
{
}

QZCDatMessage_t QZCDatValidExistmonth::_validate(const std::string& value)
{
    return ExistCheck(value);
}
