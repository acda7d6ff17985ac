#pragma once

#include <map>
#include <string>

#include "QZCValidItem.h"

// The value of the column occurs on one line only, across all lines
// checked by the validator.
class QZCValidUnique : public QZCValidItem {
public:
    bool SetDefinition(QZCDOMParser& parser, const std::string& itemId) override;
    bool DoCheckLine(const Line& line, int row) override;

private:
    std::map<std::string, int> m_mapFirstRows;
};
