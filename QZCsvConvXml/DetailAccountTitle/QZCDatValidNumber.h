#pragma once

#include "QZCDatValidItem.h"

// Digits with an optional leading sign ("number"); a lone sign passes.
class QZCDatValidNumber : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

protected:
    QZCDatMessage_t _validate(const std::string& value) override;
};
