#pragma once

#include "QZCDatValidItem.h"

// Only characters that the e-filing service accepts ("fylstring").
class QZCDatValidFylstring : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

    // The bare test, for callers that check text outside a validator list;
    // records nothing. Returns 0 or the message number.
    int validate(const std::string& value);

protected:
    QZCDatMessage_t _validate(const std::string& value) override;
};
