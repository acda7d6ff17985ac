#pragma once

#include "QZCDatValidItem.h"

// Digits only ("alnum"); line ends may stand inside the value.
class QZCDatValidAlnum : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

protected:
    QZCDatMessage_t _validate(const std::string& value) override;
};
