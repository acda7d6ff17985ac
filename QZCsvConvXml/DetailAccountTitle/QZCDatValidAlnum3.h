#pragma once

#include "QZCDatValidItem.h"

// Digits with at most one hyphen anywhere ("alnum3"), such as a postal or phone number.
class QZCDatValidAlnum3 : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

protected:
    QZCDatMessage_t _validate(const std::string& value) override;
};
