#pragma once

#include <string>
#include <vector>

#include "QZCValidItem.h"

// The value is one of the listed values.
class QZCValidSelect : public QZCValidItem {
public:
    bool SetDefinition(QZCDOMParser& parser, const std::string& itemId) override;
    bool DoCheck(const std::string& value) override;

private:
    std::vector<std::string> m_vValues;
};
