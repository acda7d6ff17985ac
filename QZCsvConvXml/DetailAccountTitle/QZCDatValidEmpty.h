#pragma once

#include "QZCDatValidItem.h"

// The field must be left empty ("empty"), as on total rows.
class QZCDatValidEmpty : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

protected:
    QZCDatMessage_t _validate(const std::string& value) override;
};
