#pragma once

#include "QZCDatValidItem.h"

// Length in UTF-8 bytes ("length"): either exactly the given length, or at
// most the maximum, where a maximum N.M allows N places before the point and
// M after it, and a value that fills all N places must carry a sign.
class QZCDatValidLength : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

    void SetParam(const std::string& length, const std::string& max);

protected:
    QZCDatMessage_t _validate(const std::string& value) override;
    QZCDatMessage_t _validateInteger(const std::string& value);
    QZCDatMessage_t _validateDecimal(const std::string& value);

private:
    // Fewer places than the limit fit; exactly as many fit only with a sign
    // in front when signRequiredAtLimit.
    static bool FitsPlaces(const std::string& value, size_t length, size_t limit, bool signRequiredAtLimit);

    std::string m_strLength;
    std::string m_strMax;
};
