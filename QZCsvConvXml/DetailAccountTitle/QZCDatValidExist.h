#pragma once

#include "QZCDatValidItem.h"

// The value must be given ("exist").
class QZCDatValidExist : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

protected:
    QZCDatMessage_t _validate(const std::string& value) override;
};
