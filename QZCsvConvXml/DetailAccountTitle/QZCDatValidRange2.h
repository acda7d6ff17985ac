#pragma once

#include "QZCDatValidRange.h"

// As "range", but compared as decimals whenever the value, min or max holds
// a point ("range2"): with min 0.5 the value 3 is not cut to an integer.
class QZCDatValidRange2 : public QZCDatValidRange {
public:
    using QZCDatValidRange::QZCDatValidRange;

protected:
    using QZCDatValidRange::_validate;
    QZCDatMessage_t _validate(const std::string& value) override;
};
