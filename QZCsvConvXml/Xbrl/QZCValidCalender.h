#pragma once

#include <string>

#include "QZCValidItem.h"

// The value is a date that exists in the calendar.
class QZCValidCalender : public QZCValidItem {
public:
    bool SetDefinition(QZCDOMParser& parser, const std::string& itemId) override;
    bool DoCheck(const std::string& value) override;
    // The calendar test shared with the date type check.
    static bool IsExistDate(const std::string& value);
};
