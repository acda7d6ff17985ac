#pragma once

#include "QZCDatValidItem.h"

// Printable ASCII, the blank included ("alnum2"); line ends may stand inside the value.
class QZCDatValidAlnum2 : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

protected:
    QZCDatMessage_t _validate(const std::string& value) override;
};
