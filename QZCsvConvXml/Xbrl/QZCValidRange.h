#pragma once

#include <string>

#include "QZCValidItem.h"

// The value, read as a leading number, lies between a minimum and a maximum.
class QZCValidRange : public QZCValidItem {
public:
    bool SetDefinition(QZCDOMParser& parser, const std::string& itemId) override;
    bool DoCheck(const std::string& value) override;

private:
    int m_nMin = 0;
    int m_nMax = 0;
};
