#pragma once

#include <string>

#include "QZCValidItem.h"

// The value is given: any value ("ANYVALUE") or exactly the expected one.
class QZCValidExist : public QZCValidItem {
public:
    bool SetDefinition(QZCDOMParser& parser, const std::string& itemId) override;
    bool DoCheck(const std::string& value) override;

private:
    std::string m_strValue;
};
