#pragma once

#include <string>

#include "QZCValidItem.h"

// The value holds only characters that the e-filing service accepts.
class QZCValidFylaString : public QZCValidItem {
public:
    bool SetDefinition(QZCDOMParser& parser, const std::string& itemId) override;
    bool DoCheck(const std::string& value) override;
};
