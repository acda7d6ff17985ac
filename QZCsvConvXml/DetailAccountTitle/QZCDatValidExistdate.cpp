#include "QZCDatValidExistdate.h"

QZCDatValidExistdate::QZCDatValidExistdate(long column, QZCDatMessage_t message) : QZCDatValidDate(column, message, 0)
{
}

QZCDatMessage_t QZCDatValidExistdate::_validate(const std::string& value)
{
    return ExistCheck(value);
}
