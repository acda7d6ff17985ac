#pragma once

#include "QZCDatValidItem.h"

// A number between min and max inclusive ("range"). Compared as integers,
// or as decimals when the value holds a point. A passing value written with
// a leading '+' is handed on without it.
class QZCDatValidRange : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

    void SetParam(const std::string& min, const std::string& max);

    // 1 when a < b, 2 when a > b, 0 when equal, -1 when either is empty.
    // Exact also for decimals with more digits than a double holds.
    static int CompareDouble(const std::string& a, const std::string& b);

protected:
    QZCDatMessage_t _validate(const std::string& value) override;
    QZCDatMessage_t _validate(const std::string& value, bool decimal);
    bool _updated(std::string& out, const std::string& value) override;

    std::string m_strMin;
    std::string m_strMax;

private:
    std::string m_strUpdated;
};
