#pragma once

#include <string>

#include "QZCValidItem.h"

// The line has exactly the given number of columns.
class QZCValidElementsCount : public QZCValidItem {
public:
    bool SetDefinition(QZCDOMParser& parser, const std::string& itemId) override;
    bool DoCheckLine(const Line& line, int row) override;

private:
    int m_nCount = 0;
};
