#pragma once

#include <string>

#include "QZCValidItem.h"

// The start of the fiscal year is not after its end: the date of the line
// whose key column holds the earlier key against that of the later key.
class QZCValidCompare : public QZCValidItem {
public:
    bool SetDefinition(QZCDOMParser& parser, const std::string& itemId) override;
    bool DoCheckLine(const Line& line, int row) override;

private:
    int m_nSmallerKeyIdx = -1;
    std::string m_strSmallerKey;
    int m_nLargerKeyIdx = -1;
    std::string m_strLargerKey;
    int m_nSmallerDate = 0;
    int m_nLargerDate = 0;
};
