#pragma once

#include "QZCDatValidItem.h"

// Digits and points with an optional leading sign ("decimal").
class QZCDatValidDecimal : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

protected:
    QZCDatMessage_t _validate(const std::string& value) override;
};
