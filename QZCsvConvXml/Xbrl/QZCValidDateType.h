#pragma once

#include <string>

#include "QZCValidItem.h"

// The value is written yyyy-mm-dd and, with "IncludeCalChk", exists in
// the calendar.
class QZCValidDateType : public QZCValidItem {
public:
    bool SetDefinition(QZCDOMParser& parser, const std::string& itemId) override;
    bool DoCheck(const std::string& value) override;

private:
    bool m_bCalendarCheck = false;
};
