#pragma once

#include "QZCDatValidItem.h"

// No single-byte (ASCII) character at all ("multibyte").
class QZCDatValidMultibyte : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

protected:
    QZCDatMessage_t _validate(const std::string& value) override;
};
