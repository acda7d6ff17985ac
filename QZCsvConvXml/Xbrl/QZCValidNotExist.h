#pragma once

#include <string>

#include "QZCValidItem.h"

// The value is empty.
class QZCValidNotExist : public QZCValidItem {
public:
    bool SetDefinition(QZCDOMParser& parser, const std::string& itemId) override;
    bool DoCheck(const std::string& value) override;
};
